#include "Options.h"
#include "win/CharTables.h"
#include "win/CodePage.h"
#include <algorithm>
#include <string_view>

namespace KxConsole {

namespace {

struct OptionRow {
    const char* shortName;   // may be empty
    const char* longName;
    bool takesValue;
    void (*apply)(Options&, const std::string& value);
};

const char* const kReleases[] = {"18.0", "18.1", "18.2", "19.0"};

void SetRelease(Options& options, const std::string& value)
{
    if (std::find(std::begin(kReleases), std::end(kReleases), value) == std::end(kReleases))
        options.error = "--release " + value + ": must be 18.0, 18.1, 18.2 or 19.0";
    options.release = value;
}

void Check(Options& options, const std::string& what, const std::string& why)
{
    if (!why.empty())
        options.error = what + ": " + why;
}

const OptionRow kOptions[] = {
    {"-s", "--script", true,
     [](Options& o, const std::string& value) {
         o.steps.push_back({Step::Kind::Script, value});
     }},
    {"-c", "--command", true,
     [](Options& o, const std::string& value) {
         o.steps.push_back({Step::Kind::Command, value});
     }},
    {"-m", "--module", true, [](Options& o, const std::string& value) { o.modules.push_back(value); }},
    {"", "--no-module", false, [](Options& o, const std::string&) { o.hasBaseModule = false; }},
    {"-o", "--output", true, [](Options& o, const std::string& value) { o.output = value; }},
    {"-p", "--plot", true, [](Options& o, const std::string& value) { o.plot.files.push_back(value); }},
    {"", "--paper", true,
     [](Options& o, const std::string& value) { Check(o, "--paper " + value, SetPlotPaper(o.plot, value)); }},
    {"", "--dpi", true,
     [](Options& o, const std::string& value) { Check(o, "--dpi " + value, SetPlotResolution(o.plot, value)); }},
    {"", "--background", true,
     [](Options& o, const std::string& value) { Check(o, "--background " + value, SetPlotBackground(o.plot, value)); }},
    {"", "--layout", true,
     [](Options& o, const std::string& value) { o.plot.settings.layout = KxPlat::FromUtf8(value); }},
    {"", "--layers", true,
     [](Options& o, const std::string& value) { o.plot.settings.layers = KxPlat::FromUtf8(value); }},
    {"", "--all-layers", false, [](Options& o, const std::string&) { o.plot.settings.showsAllLayers = true; }},
    {"", "--window", false, [](Options& o, const std::string&) { o.hasWindow = true; }},
    {"", "--release", true, SetRelease},
    {"", "--info", false, [](Options& o, const std::string&) { o.showsInfo = true; }},
    {"", "--stay", false, [](Options& o, const std::string&) { o.staysOpen = true; }},
    {"", "--no-messages", false, [](Options& o, const std::string&) { o.takesTexts = false; }},
    {"", "--log", true, [](Options& o, const std::string& value) { o.logFile = value; }},
    {"", "--install", true, [](Options& o, const std::string& value) { o.installFolder = value; }},
    {"", "--uninstall", false, [](Options& o, const std::string&) { o.uninstalls = true; }},
    {"", "--debug-output", false, [](Options& o, const std::string&) { o.showsDebugOutput = true; }},
    {"", "--quiet", false, [](Options& o, const std::string&) { o.isQuiet = true; }},
    {"", "--help", false, [](Options& o, const std::string&) { o.showsHelp = true; }},
    {"", "--version", false, [](Options& o, const std::string&) { o.showsVersion = true; }},
};

// What launchers of a CAD program write. Nothing else that begins with "/" is a switch: it is a path.
const OptionRow kSwitches[] = {
    {"", "/b", true,
     [](Options& o, const std::string& value) {
         o.steps.push_back({Step::Kind::Script, value});
     }},
    {"", "/ld", true, [](Options& o, const std::string& value) { o.modules.push_back(value); }},
    {"", "/nologo", false, [](Options&, const std::string&) {}},
    {"", "/p", true, [](Options& o, const std::string& value) { o.profile = value; }},
    {"", "/s", true, [](Options& o, const std::string& value) { o.supportPath = value; }},
    {"", "/t", true, [](Options& o, const std::string& value) { o.templateFile = value; }},
};

const OptionRow* FindSwitch(std::string_view name)
{
    for (const OptionRow& row : kSwitches)
        if (KxPlat::EqualNoCase(KxPlat::FromUtf8(name), KxPlat::FromUtf8(row.longName)))
            return &row;
    return nullptr;
}

const OptionRow* FindOption(std::string_view name)
{
    for (const OptionRow& row : kOptions)
        if (name == row.longName || (*row.shortName != 0 && name == row.shortName))
            return &row;
    return nullptr;
}

void TakeDrawing(Options& options, const std::string& name)
{
    if (!options.drawing.empty())
        options.error = name + ": only one drawing can be opened";
    options.drawing = name;
}

}   // namespace

Options ParseOptions(int argc, char** argv)
{
    Options options;
    bool onlyNames = false;
    for (int i = 1; i < argc && options.error.empty(); ++i) {
        const std::string argument = argv[i];
        if (const OptionRow* row = onlyNames ? nullptr : FindSwitch(argument)) {
            options.isLaunched = options.staysOpen = true;
            if (row->takesValue && i + 1 >= argc)
                options.error = argument + ": needs a value";
            else
                row->apply(options, row->takesValue ? argv[++i] : "");
            continue;
        }
        if (onlyNames || argument.size() < 2 || argument[0] != '-') {
            TakeDrawing(options, argument);
            continue;
        }
        if (argument == "--") {
            onlyNames = true;
            continue;
        }
        const size_t equals = argument.compare(0, 2, "--") == 0 ? argument.find('=') : std::string::npos;
        const std::string name = argument.substr(0, equals);
        const OptionRow* row = FindOption(name);
        if (row == nullptr) {
            options.error = name + ": unknown option";
        } else if (!row->takesValue) {
            if (equals != std::string::npos)
                options.error = name + ": takes no value";
            else
                row->apply(options, std::string());
        } else if (equals != std::string::npos) {
            row->apply(options, argument.substr(equals + 1));
        } else if (i + 1 < argc) {
            row->apply(options, argv[++i]);
        } else {
            options.error = name + ": needs a value";
        }
    }
    if (options.error.empty() && options.showsInfo && options.drawing.empty())
        options.error = "--info: needs a drawing";
    return options;
}

const char* HelpText()
{
    return "usage: kxcad [options] [DRAWING]\n"
           "Opens a drawing, loads the command module and runs commands on it.\n"
           "\n"
           "  -s, --script FILE    run the lines of FILE as if typed (\"-\": standard input)\n"
           "  -c, --command TEXT   run one line as if typed; may be repeated, in order with --script\n"
           "  -m, --module FILE    load a module besides KxArxBase.arx; --no-module loads none\n"
           "  -o, --output FILE    save the drawing there afterwards (by extension; a DXF keeps its version)\n"
           "      --info           tell what the drawing file is and holds, and do nothing else\n"
           "  -p, --plot FILE      write a picture of the model space: .png, .svg, .pdf; may be repeated\n"
           "      --paper P        size of the picture: A0 to A4 (the default), letter, legal, or WIDTHxHEIGHT in mm\n"
           "      --dpi N          pixels per inch of the paper (150)\n"
           "      --background C   white, black or #RRGGBB\n"
           "      --layout NAME    the sheet of this name with its viewports, instead of the model space\n"
           "      --layers NAMES   only these layers, as \"WALL*,DOOR\"; --all-layers also shows what is off or "
           "frozen\n"
           "      --window         open the desktop window, behind what scripts and commands do\n"
           "      --release R      the host release to present: 18.0, 18.1, 18.2, 19.0\n"
           "      --quiet          only what commands print\n"
           "      --stay           go on after the end of the input, as texts from other programs may come\n"
           "      --no-messages    do not run texts that other programs of this user send\n"
           "      --log FILE       append all output to FILE\n"
           "      --debug-output   show what programs send to the debugger, until Ctrl-C\n"
           "      --install DIR    put a program acad.exe of this release into DIR and enter it in the registry\n"
           "      --uninstall      take the program of this release out again\n"
           "      --help, --version\n"
           "\n"
           "Switches of launchers: /b SCRIPT, /s FOLDERS, /p PROFILE, /ld MODULE, /t TEMPLATE, /nologo. With one of "
           "them\n"
           "the program stays open after the script; without a terminal its output goes to a log.\n"
           "\n"
           "Without --script and --command it reads the terminal or standard input.\n"
           "Exit status: 0 done; 1 a command or form failed under a script; 2 wrong usage;\n"
           "3 the drawing or module could not be read; 4 it could not be saved.\n";
}

}   // namespace KxConsole
