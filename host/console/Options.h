// What the command line of kxcad says.
#pragma once
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
    std::string release = "18.1";
    bool isQuiet = false;
    bool showsHelp = false;
    bool showsVersion = false;
    std::string error;   // "WHAT: WHY"; set when the command line cannot be understood
};

Options ParseOptions(int argc, char** argv);
const char* HelpText();

}   // namespace KxConsole
