// What the command line says.
#pragma once
#include "KxWin.h"

namespace KxLaunch {

struct Options {
    CString word;       // list, start or send
    CString registry;   // a file in the export format
    int release = 0;    // 0: any
    CString title;      // a part of it
    int process = 0;
    CString module, script, profile;
    CString rest;        // the drawing, or the text
    int patience = 60;   // seconds
    bool showsHelp = false;
};

// False after a complaint.
bool ParseOptions(int count, char** arguments, Options& options);
const wchar_t* HelpText();

}   // namespace KxLaunch
