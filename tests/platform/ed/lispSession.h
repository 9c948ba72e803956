// A session with one new drawing, for forms that need one.
#pragma once
#include "ap/Documents.h"
#include "db/core/Stub.h"
#include "ed/acedads.h"
#include "ed/lisp/DocumentLisp.h"
#include "ed/Session.h"
#include "lispTestUi.h"
#include "rx/acutads.h"
#include <gtest/gtest.h>

struct LispSession {
    PrintingUi ui;
    KxPlat::Session session{{L"18.1", false, false}};
    AcApDocument* document = nullptr;

    LispSession()
    {
        std::wstring why;
        KxPlat::NewDrawing(L"", document, why);
        ui.printed.clear();
        session.state().secureLoad = 0;
    }
    KxPlat::Lisp::Interpreter& interpreter() { return KxPlat::Lisp::InterpreterOf(*document); }
    // The printed value of the last form, or the first line of the complaint.
    std::wstring operator()(const std::wstring& text)
    {
        KxPlat::Lisp::Value value;
        ui.printed.clear();
        if (!interpreter().Run(text, value))
            return ui.printed.substr(0, ui.printed.find(L"\n", 1));
        return KxPlat::Lisp::Printed(value);
    }
    // What the command line prints for text as if typed.
    std::wstring Typed(const std::wstring& text)
    {
        ui.printed.clear();
        session.Run(text);
        return ui.printed;
    }
};

// Each form answers what its row says and leaves no object open.
template <size_t N>
void Check(LispSession& lisp, const LispRow (&rows)[N])
{
    for (const LispRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.form)));
        EXPECT_EQ(lisp(row.form), row.answer);
        EXPECT_EQ(KxPlat::OpenObjectCount(), 0);
    }
}
