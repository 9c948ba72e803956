// What an HKEY stands for.
#pragma once
#include "RegistryTree.h"

namespace KxPlat {

struct OpenKey {
    RegistryPath path;
    REGSAM access = 0;
};

// A root key or an open one; null for anything else.
const OpenKey* OpenKeyOf(HKEY key);
HKEY NewKeyHandle(OpenKey key);
bool CloseKeyHandle(HKEY key);   // closing a root key does nothing

// Handles of keys that this process removes stay known, but lead nowhere even when such a key is made again.
void ForgetKeysBelow(const RegistryPath& path);
// False for a handle whose key was removed.
bool Leads(HKEY key);

}   // namespace KxPlat
