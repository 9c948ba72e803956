// Which programs may be loaded. SECURELOAD: 0 any, 1 others than trusted ones after a question, 2 trusted ones only.
// Trusted are the program's own folder, the user's configuration folder, the folders in TRUSTEDPATHS and in the
// environment's KX_TRUSTED_PATHS and KX_SUPPORT_PATH, and for the session those of scripts that the user named when he
// started the program.
#pragma once
#include <string>

namespace KxPlat {

bool IsTrusted(const std::wstring& path);
// Asks where a user sits in front of the command line; a script is refused. `why` then tells the reason.
bool MayLoad(const std::wstring& path, std::wstring& why);

// The folder of the user's own kxcad.lsp, with its separator; empty where the user has no home.
std::wstring ConfigurationFolder();

}   // namespace KxPlat
