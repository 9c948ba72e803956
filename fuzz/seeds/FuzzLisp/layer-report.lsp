; Counts the objects of each layer and prints a table.   Command: LAYREP
(defun lr:count (name / ss) (if (setq ss (ssget "X" (list (cons 8 name)))) (sslength ss) 0))
(defun lr:pad (text width) (while (< (strlen text) width) (setq text (strcat text " "))) text)
(defun c:layrep (/ rec names n total)
  (setq rec (tblnext "LAYER" T))
  (while rec
    (setq names (cons (cdr (assoc 2 rec)) names) rec (tblnext "LAYER")))
  (setq total 0)
  (foreach name (acad_strlsort names)
    (setq n (lr:count name) total (+ total n))
    (princ (strcat "\n" (lr:pad name 12) (itoa n))))
  (princ (strcat "\ntotal " (itoa total)))
  (princ))
