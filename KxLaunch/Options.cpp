#include "Options.h"
#include "Text.h"

namespace KxLaunch {
namespace {

// What a word takes besides itself.
enum Needs : unsigned { kList = 1, kStart = 2, kSend = 4 };

struct OptionRow {
    const wchar_t* name;
    unsigned words;
    bool (*apply)(Options&, const CString& value);   // false: the value is wrong
};

bool SetRelease(Options& options, const CString& value)
{
    options.release = ReleaseOfText(value);
    return options.release != 0;
}

template <CString Options::*member>
bool SetText(Options& options, const CString& value)
{
    options.*member = value;
    return !value.IsEmpty();
}

template <int Options::*member>
bool SetNumber(Options& options, const CString& value)
{
    options.*member = _wtoi(value);
    return options.*member > 0;
}

const OptionRow kOptions[] = {
    {L"--registry", kList | kStart | kSend, SetText<&Options::registry>},
    {L"--release", kStart | kSend, SetRelease},
    {L"--arx", kStart, SetText<&Options::module>},
    {L"--script", kStart, SetText<&Options::script>},
    {L"--profile", kStart, SetText<&Options::profile>},
    {L"--wait", kStart, SetNumber<&Options::patience>},
    {L"--title", kSend, SetText<&Options::title>},
    {L"--process", kSend, SetNumber<&Options::process>},
};

const struct {
    const wchar_t* word;
    unsigned bit;
    int rest;   // how many words may follow; -1: one at least
} kWords[] = {{L"list", kList, 0}, {L"start", kStart, 1}, {L"send", kSend, -1}};

const OptionRow* RowOf(const CString& name)
{
    for (const OptionRow& row : kOptions)
        if (name == row.name)
            return &row;
    return nullptr;
}

bool Refuse(const wchar_t* what, const wchar_t* why)
{
    Complain(what, why);
    return false;
}

// "--name value" or "--name=value"; `next` moves on behind what was used.
bool TakeOption(CStringArray& words, INT_PTR& next, unsigned& used, Options& options)
{
    CString name = words[next++], value;
    const int equals = name.Find(L'=');
    const OptionRow* row = RowOf(equals >= 0 ? name.Left(equals) : name);
    if (row == nullptr)
        return Refuse(name, L"unknown option");
    if (equals >= 0)
        value = name.Mid(equals + 1);
    else if (next < words.GetSize())
        value = words[next++];
    else
        return Refuse(name, L"needs a value");
    used &= row->words;
    return row->apply(options, value) || Refuse(row->name + CString(L" ") + value, L"is no valid value");
}

bool CheckWord(const Options& options, unsigned used, int restCount)
{
    for (const auto& row : kWords) {
        if (options.word != row.word)
            continue;
        if ((used & row.bit) == 0)
            return Refuse(options.word, L"one of the options is not for it");
        if (row.rest < 0 ? restCount == 0 : restCount > row.rest)
            return Refuse(options.word, restCount == 0 ? L"needs a text" : L"too many words");
        return true;
    }
    return Refuse(options.word, L"unknown word: list, start or send");
}

}   // namespace

bool ParseOptions(int count, char** arguments, Options& options)
{
    CStringArray words;
    for (int i = 1; i < count; ++i)
        words.Add(FromArgument(arguments[i]));
    unsigned used = ~0U;
    int restCount = 0;
    bool onlyWords = false;
    for (INT_PTR next = 0; next < words.GetSize();) {
        const CString word = words[next];
        if (!onlyWords && (word == L"--help" || word == L"help")) {
            options.showsHelp = true;
            return true;
        }
        if (!onlyWords && word == L"--") {
            onlyWords = true;
            ++next;
        } else if (!onlyWords && word.Left(2) == L"--") {
            if (!TakeOption(words, next, used, options))
                return false;
        } else {
            ++next;
            if (options.word.IsEmpty()) {
                options.word = word;
                continue;
            }
            options.rest += (restCount++ != 0 ? L" " : L"") + word;
        }
    }
    options.showsHelp = options.word.IsEmpty() && words.GetSize() == 0;
    return options.showsHelp || CheckWord(options, used, restCount);
}

const wchar_t* HelpText()
{
    return L"usage: kxlaunch [options] list\n"
           L"       kxlaunch [options] start [DRAWING]\n"
           L"       kxlaunch [options] send TEXT...\n"
           L"Finds CAD programs, starts them and types into running ones.\n"
           L"\n"
           L"  list    what the registry says is installed, and what runs\n"
           L"  start   start a CAD program and wait until its drawing is open\n"
           L"  send    send a text as if typed into a running one\n"
           L"\n"
           L"  --registry FILE   look into an export of a registry (.reg) instead of the user's own\n"
           L"  --release R       18.2 or 182; start: else the newest that is installed\n"
           L"  --arx FILE        start: load this module\n"
           L"  --script FILE     start: run this script, after the module is loaded\n"
           L"  --profile NAME    start: with this profile; the current one comes back afterwards\n"
           L"  --wait SECONDS    start: how long to wait, 60 by itself\n"
           L"  --title TEXT      send: to the one whose title holds TEXT\n"
           L"  --process ID      send: to this process\n"
           L"  --help\n"
           L"\n"
           L"Exit status: 0 done; 1 nothing found, not started or not taken; 2 wrong usage.\n";
}

}   // namespace KxLaunch
