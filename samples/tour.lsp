; What the tour says besides the answers of the commands.

; A heading, and a line of any values.
(defun heading (text) (princ (strcat "\n\n=== " text "\n")) (princ))
(defun say (values / value)
  (princ "\n")
  (foreach value values (princ value))
  (princ))

; The layers in a state ("off", "frozen", "locked"), told on one line.
(defun in-state (state record / flags)
  (setq flags (cdr (assoc 70 record)))
  (cond ((= state "off") (minusp (cdr (assoc 62 record))))
        ((= state "frozen") (= 1 (logand 1 flags)))
        ((= state "locked") (= 4 (logand 4 flags)))))
(defun layers-that-are (state / record names)
  (setq record (tblnext "LAYER" T))
  (while record
    (if (in-state state record) (setq names (cons (cdr (assoc 2 record)) names)))
    (setq record (tblnext "LAYER")))
  (reverse names))
(defun tell (state / names name)
  (setq names (layers-that-are state))
  (princ (strcat "\n" (itoa (length names)) " layers " state ":"))
  (foreach name names (princ (strcat " " name)))
  (princ))

; Is a record of this name in the table?
(defun presence (table name) (if (tblsearch table name) "there" "gone"))
(princ)
