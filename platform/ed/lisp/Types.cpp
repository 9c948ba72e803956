#include "Families.h"
#include "Interpreter.h"

namespace KxPlat::Lisp {

namespace {

const wchar_t* TypeName(const Value& value)
{
    switch (value.kind()) {
    case Kind::Integer:
        return L"INT";
    case Kind::Real:
        return L"REAL";
    case Kind::Symbol:
        return L"SYM";
    case Kind::EntityName:
        return L"ENAME";
    case Kind::Builtin:
        return L"SUBR";
    case Kind::Text:
        return L"STR";
    case Kind::Cons:
        return L"LIST";
    case Kind::Function:
        return L"USUBR";
    case Kind::Host:
        return value.host()->TypeName();
    case Kind::Nil:
        break;
    }
    return nullptr;
}

Value Type(Interpreter& lisp, const Arguments& arguments)
{
    const wchar_t* name = TypeName(arguments[0]);
    return name == nullptr ? Value() : Value(lisp.Intern(name));
}

Value IsAtom(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(!arguments[0].IsCons());
}

Value IsAList(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(arguments[0].IsList());
}

Value IsANumber(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(arguments[0].IsNumber());
}

Value IsASymbol(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(arguments[0].IsSymbol());
}

const Builtin kRows[] = {
    {L"TYPE", Type, 1, 1},         {L"ATOM", IsAtom, 1, 1},          {L"LISTP", IsAList, 1, 1},
    {L"NUMBERP", IsANumber, 1, 1}, {L"VL-SYMBOLP", IsASymbol, 1, 1},
};

}   // namespace

const BuiltinTable kTypes = TableOf(kRows);

}   // namespace KxPlat::Lisp
