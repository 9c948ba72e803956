#include "AliasFile.h"
#include "../ui/HostUi.h"
#include "../win/CharTables.h"
#include "../win/Files.h"
#include "../win/Format.h"
#include "Input.h"
#include "StartupFile.h"
#include <algorithm>

namespace KxPlat {

namespace {

std::map<std::wstring, std::wstring> g_aliases;

std::wstring_view Trimmed(std::wstring_view text)
{
    const size_t start = text.find_first_not_of(L" \t\r");
    const size_t end = text.find_last_not_of(L" \t\r");
    return start == std::wstring_view::npos ? std::wstring_view() : text.substr(start, end - start + 1);
}

// What is wrong with a line; null for a good one.
const wchar_t* TakeAlias(std::wstring_view line, std::map<std::wstring, std::wstring>& names)
{
    const size_t comma = line.find(L',');
    if (comma == std::wstring_view::npos)
        return L"\"ALIAS, *COMMAND\" is expected";
    const std::wstring_view alias = Trimmed(line.substr(0, comma));
    std::wstring_view command = Trimmed(line.substr(comma + 1));
    if (alias.empty())
        return L"the alias is missing";
    // What a prefix or a form begins with would never be looked up here.
    if (alias.find_first_of(L" \t\"") != std::wstring_view::npos ||
        std::wstring_view(L"_.'(!").find(alias[0]) != std::wstring_view::npos)
        return L"this alias cannot be typed";
    if (command.empty() || command[0] != L'*')
        return L"the command has no \"*\" before it";
    command.remove_prefix(1);
    command.remove_prefix(std::min(command.find_first_not_of(L"_."), command.size()));
    if (command.empty() || command.find_first_of(L" \t,") != std::wstring_view::npos)
        return L"one command's name is expected behind the \"*\"";
    names[Upper(std::wstring(alias))] = Upper(std::wstring(command));
    return nullptr;
}

}   // namespace

AliasLines ReadAliases(std::wstring_view text)
{
    AliasLines result;
    int number = 0;
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find(L'\n', start), text.size());
        const std::wstring_view whole = text.substr(start, end - start);
        const std::wstring_view line = Trimmed(whole.substr(0, whole.find(L';')));
        start = end + 1;
        ++number;
        if (const wchar_t* why = line.empty() ? nullptr : TakeAlias(line, result.names))
            result.faults.push_back({number, why});
    }
    return result;
}

void LoadAliasFiles()
{
    g_aliases.clear();
    for (const std::wstring& path : StartupFiles(L"kxcad.pgp")) {
        int error = 0;
        const std::string bytes = ReadWholeFile(HostPath(path), error);
        if (error != 0) {
            Ui().Complain(path + L": " + SystemErrorText(error));
            continue;
        }
        const AliasLines lines = ReadAliases(ScriptText(bytes));
        for (const auto& [alias, command] : lines.names)
            g_aliases[alias] = command;
        for (const AliasLines::Fault& fault : lines.faults)
            Ui().Complain(path + Format(L", line %d: ", fault.line) + fault.why);
    }
}

void ForgetAliases()
{
    g_aliases.clear();
}

std::wstring UserAlias(const std::wstring& alias)
{
    const auto found = g_aliases.find(alias);
    return found == g_aliases.end() ? std::wstring() : found->second;
}

}   // namespace KxPlat
