// The registry of this user: a text file, read when it has changed and written whole at each change.
// Its place is KX_REGISTRY, else kxcad/registry.reg in the user's configuration folder. Comments in it are not kept.
#pragma once
#include "RegistryText.h"
#include <functional>
#include <string>

namespace KxPlat {

// The tree as the file has it now. It is valid until the next call. A missing file is an empty tree.
RegistryKey& RegistryRoot();
// Runs `change` on the newest tree while other processes wait, and writes the file when it answers 0.
// Answers a Windows error: that of `change`, or the one that kept the file from being written, which then is the old
// one. A file that is no registry is left alone (1009); one with lines that cannot be understood is kept beside, once.
DWORD ChangeRegistry(const std::function<DWORD(RegistryKey& root)>& change);
std::string RegistryFile();   // its real path

}   // namespace KxPlat
