// Short names for commands that the user gives in his own "kxcad.pgp".
#pragma once
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

struct AliasLines {
    std::map<std::wstring, std::wstring> names;   // alias to command, both in capitals
    struct Fault {
        int line = 0;   // from 1
        std::wstring why;
    };
    std::vector<Fault> faults;
};

// Lines "ALIAS, *COMMAND"; ";" begins a comment. Of two lines for one alias the later holds.
AliasLines ReadAliases(std::wstring_view text);

// Those of the trusted folders on the support path, then the user's own, which win. Bad lines are complained of.
void LoadAliasFiles();
void ForgetAliases();
// The command's name in capitals; empty when the files do not have the alias.
std::wstring UserAlias(const std::wstring& alias);

}   // namespace KxPlat
