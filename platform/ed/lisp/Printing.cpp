#include "../../ui/HostUi.h"
#include "FileCell.h"
#include "Interpreter.h"
#include "Printer.h"

namespace KxPlat::Lisp {

namespace {

// To the file given as second argument, or to the command line.
void Send(const Arguments& arguments, const std::wstring& text)
{
    if (arguments.Get(1))
        FileOf(arguments[1]).Write(text);
    else
        Ui().Print(text);
}

template <PrintStyle Style>
Value Print(Interpreter& lisp, const Arguments& arguments)
{
    if (arguments.count == 0)
        return lisp.Nothing();
    Send(arguments, Printed(arguments[0], Style));
    return arguments[0];
}

// A line end before, a blank behind.
Value PrintOnLine(Interpreter& lisp, const Arguments& arguments)
{
    if (arguments.count == 0)
        return lisp.Nothing();
    Send(arguments, L"\n" + Printed(arguments[0]) + L" ");
    return arguments[0];
}

Value Prompt(Interpreter&, const Arguments& arguments)
{
    Ui().Print(TextOf(arguments[0]));
    return Value();
}

Value NewLine(Interpreter&, const Arguments&)
{
    Ui().Print(L"\n");
    return Value();
}

Value Alert(Interpreter&, const Arguments& arguments)
{
    Ui().ShowMessage(TextOf(arguments[0]), L"Message", 0);
    return Value();
}

const Builtin kRows[] = {
    {L"PRINC", Print<PrintStyle::Plain>, 0, 2},
    {L"PRIN1", Print<PrintStyle::Quoted>, 0, 2},
    {L"PRINT", PrintOnLine, 0, 2},
    {L"PROMPT", Prompt, 1, 1},
    {L"TERPRI", NewLine, 0, 0},
    {L"ALERT", Alert, 1, 1},
};

}   // namespace

const BuiltinTable kPrinting = TableOf(kRows);

}   // namespace KxPlat::Lisp
