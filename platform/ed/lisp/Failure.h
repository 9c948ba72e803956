// What ends an evaluation early. Inside the interpreter it travels as an exception; at its edges it becomes a line of
// text and a status.
#pragma once
#include "Value.h"

namespace KxPlat::Lisp {

struct Failure {
    enum class Kind { Error, Cancelled, Exit };

    explicit Failure(std::wstring text, Kind what = Kind::Error) : message(std::move(text)), kind(what) {}

    std::wstring message;   // in the drawing host's wording: "too few arguments"
    Kind kind;
    Value form;               // the innermost one that was being evaluated
    std::wstring place;       // file and line, for forms of a file
    bool isLocated = false;   // `form` is set
    bool isHandled = false;   // the program's *error* function has dealt with it
};

// "bad argument type: numberp: "a"".
[[noreturn]] void BadArgument(const wchar_t* predicate, const Value& value);
[[noreturn]] void Fail(const wchar_t* message);

}   // namespace KxPlat::Lisp
