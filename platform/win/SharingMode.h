// What open files let others do with the same file. Each handle marks by locks far behind any content what it does and
// what it forbids, so that programs of this system respect each other; other programs see nothing of it.
#pragma once
#include "FileHandles.h"

namespace KxPlat {

// The part of a file that locks of programs may cover.
constexpr int64_t kEndOfLocks = INT64_MAX - 16;

// Marks what the open file `file` does. False, and the file is to be closed, when another handle forbids that or does
// what this one forbids. A system without such locks lets everything pass.
bool TakeShare(int file, DWORD access, DWORD share);
// True when a handle is open that does not share removal.
bool IsRemovalForbidden(const char* path);

}   // namespace KxPlat
