// The LISP environment of a document.
#pragma once
#include "../../ap/Documents.h"
#include "Interpreter.h"

namespace KxPlat::Lisp {

struct DocumentLisp : DocumentPart {
    Interpreter interpreter;
    // Handed to the command line last: selection sets in it live until the next answer.
    Value lastAnswer;
};

Interpreter& InterpreterOf(AcApDocument& document);
// Of the current document; null when there is none.
Interpreter* CurrentInterpreter();

}   // namespace KxPlat::Lisp
