; Copies picked objects to a layer, with a mark of their origin in extended data.   Command: C2LAY
(defun c:c2lay (/ name ss i e d)
  (setq name (getstring T "\nLayer: "))
  (if (not (snvalid name)) (progn (princ "\nBad name.") (exit)))
  (regapp "C2LAY")
  (setq ss (ssget) i 0)
  (if ss
    (repeat (sslength ss)
      (setq e (ssname ss i) d (entget e) i (1+ i))
      (setq d (vl-remove-if '(lambda (g) (member (car g) '(-1 5 330 410 102))) d))
      (entmakex (append (subst (cons 8 name) (assoc 8 d) d)
                        (list (list -3 (list "C2LAY" (cons 1005 (cdr (assoc 5 (entget e)))))))))))
  (princ (strcat "\n" (itoa i) " copied."))
  (princ))
