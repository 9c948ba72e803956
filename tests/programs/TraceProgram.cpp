// TraceProgram LOG NUMBER COUNT: sends COUNT messages to one trace log, each with a tail whose length and letter tell
// where it belongs.
#include "KxMfcEx/KxTrace.h"
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    KxMfcEx::CKxTrace::m_strFileName = CString(argv[1]);
    KxMfcEx::CKxTrace::m_bTraceThreadId = false;
    const int number = std::atoi(argv[2]), count = std::atoi(argv[3]);
    for (int i = 0; i < count; ++i) {
        const std::wstring tail(size_t(i % 60), wchar_t(L'a' + number));
        KxMfcEx::CKxTrace(L"C:\\src\\mod.cpp", number)(L"%d %s\n", i, tail.c_str());
    }
    return 0;
}
