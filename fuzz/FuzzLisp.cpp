// Any text as a LISP program in a drawing: it ends with a value or an error, within its bounds, and leaves no object
// open and no buffer behind.
#include "db/core/DbCore.h"
#include "db/core/Stub.h"
#include "ed/lisp/DocumentLisp.h"
#include "ed/lisp/Printer.h"
#include "ed/Session.h"
#include "FuzzFile.h"
#include "rx/ResBufs.h"
#include "win/CodePage.h"

namespace {

// What reaches beyond the process is no business of a fuzzed program.
const wchar_t* const kForbidden[] = {L"OPEN",           L"LOAD",         L"VL-LOAD-ALL", L"VL-FILE-DELETE",
                                     L"VL-FILE-RENAME", L"VL-FILE-COPY", L"VL-MKDIR",    L"SETENV",
                                     L"SETVAR",         L"ARXLOAD",      L"ARXUNLOAD",   L"COMMAND",
                                     L"COMMAND-S",      L"VL-CMDF",      L"STARTAPP",    L"VL-DIRECTORY-FILES"};

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static KxPlat::HostUi silent;
    KxPlat::SetUi(&silent);
    const long buffers = KxPlat::LiveResBufs();
    {
        KxPlat::Session session({L"18.1", false, false});
        AcApDocument* document = nullptr;
        std::wstring why;
        KxFuzz::Require(KxPlat::NewDrawing(L"", document, why) == Acad::eOk, "a drawing to work in");
        KxPlat::Lisp::Interpreter& lisp = KxPlat::Lisp::InterpreterOf(*document);
        for (const wchar_t* name : kForbidden)
            lisp.Intern(name)->value = KxPlat::Lisp::Value();
        lisp.SetStepLimit(20'000);
        lisp.SetMemoryLimit(1'000'000);
        const long open = KxPlat::OpenObjectCount();
        KxPlat::Lisp::Value value;
        const std::wstring text = KxPlat::FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
        if (lisp.Run(text, value))
            KxPlat::Lisp::Shortened(value);
        KxFuzz::Require(KxPlat::OpenObjectCount() == open, "no object stays open");
    }
    KxFuzz::Require(KxPlat::LiveResBufs() == buffers, "no buffer is left behind");
    return 0;
}
