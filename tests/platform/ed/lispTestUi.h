// A host that remembers what was printed.
#pragma once
#include "ed/lisp/Interpreter.h"
#include "ed/lisp/Printer.h"
#include "ui/HostUi.h"

struct PrintingUi : KxPlat::HostUi {
    PrintingUi() { KxPlat::SetUi(this); }
    ~PrintingUi() override { KxPlat::SetUi(nullptr); }
    void Print(std::wstring_view text) override { printed += text; }
    bool Interrupted() override { return --untilInterrupt == 0; }

    std::wstring printed;
    long untilInterrupt = 0;   // checks until the user interrupts; 0: never
};

// The printed value of the last form; what was printed on the way is in `ui`.
struct Lisp {
    PrintingUi ui;
    KxPlat::Lisp::Interpreter interpreter;
    bool failed = false;

    std::wstring operator()(const wchar_t* text)
    {
        KxPlat::Lisp::Value value;
        ui.printed.clear();
        failed = !interpreter.Run(text, value);
        return failed ? ui.printed.substr(0, ui.printed.find(L"\n", 1)) : KxPlat::Lisp::Printed(value);
    }
};

struct LispRow {
    const wchar_t* form;
    const wchar_t* answer;
};
