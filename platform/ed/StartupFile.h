// The files that sessions and documents start with.
#pragma once
#include <string>
#include <vector>

class AcApDocument;

namespace KxPlat {

// The files of this name in the trusted folders of the support path and then the user's own. A drawing's folder is not
// looked into.
std::vector<std::wstring> StartupFiles(const wchar_t* name);
// kxcad.lsp from there; S::STARTUP where they define it.
void LoadStartupFiles(AcApDocument& document);

}   // namespace KxPlat
