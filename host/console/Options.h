// What the command line of kxcad says.
#pragma once
#include "PlotOptions.h"
#include <string>
#include <vector>

namespace KxConsole {

struct Step {
    enum class Kind { Script, Command } kind = Kind::Command;
    std::string text;   // a file name ("-": standard input), or the line to run
};

struct Options {
    std::string drawing;
    std::vector<Step> steps;   // in the order given
    std::vector<std::string> modules;
    bool hasBaseModule = true;
    std::string output;
    PlotOptions plot;
    std::string release;   // empty: the one that the program's own version tells
    std::string templateFile;
    std::string supportPath;   // folders, parted by ";"
    std::string profile;
    std::string logFile;
    // Input may still come once there is nothing more to read: as in a program with a window.
    bool staysOpen = false;
    // By switches such as "/b", as programs that start a CAD program write them.
    bool isLaunched = false;
    bool takesTexts = true;
    bool hasWindow = false;   // on the desktop
    bool isQuiet = false;
    bool showsDebugOutput = false;
    bool showsInfo = false;   // of the drawing, and nothing else
    std::string installFolder;
    bool uninstalls = false;
    bool showsHelp = false;
    bool showsVersion = false;
    std::string error;   // "WHAT: WHY"; set when the command line cannot be understood
};

Options ParseOptions(int argc, char** argv);
const char* HelpText();

}   // namespace KxConsole
