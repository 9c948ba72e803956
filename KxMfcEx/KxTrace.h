// One diagnostic message with the place in the sources where it was issued:
//     CKxTrace(L"C:\\src\\mod.cpp", 42)(L"x=%d\n", x);     // mod.cpp(42) : [1A2C] x=5
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

class KXARX_API CKxTrace {
public:
    // `file` is not copied.
    CKxTrace(const wchar_t* file, int line) : m_file(file), m_line(line) {}
    virtual ~CKxTrace();

    // At most 4095 characters, no line end of its own. Appended to the log file in UTF-16 in one piece; without a log
    // file, or when that fails, sent to the debugger.
    // The source name takes part in the formatting: a "%" in it is read as a part of the format.
    void operator()(const wchar_t* format, ...);

    static bool m_bTraceThreadId;
    // Without it the text behind the last "\" is shown, "(null)" for a name that has none.
    static bool m_bTraceFullPath;
    static CString m_strFileName;

private:
    const wchar_t* m_file;
    int m_line;
};

}   // namespace KxMfcEx
