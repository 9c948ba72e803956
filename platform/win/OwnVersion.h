// The version resource of our own programs: a text block in a section of the file, found again by the version calls.
// A program writes KX_OWN_VERSION once, in one of its sources:
//     KX_OWN_VERSION("ProductName=kxcad\n" "FileVersion=1.0.0.0\n" "ProductVersion=18.1.0.0\n")
// Any name of a version resource may stand there; FileVersion and ProductVersion give the fixed numbers, too.
#pragma once
#include <string>

#define KX_OWN_VERSION(text) __attribute__((section(".kxversion"), used)) static const char kxOwnVersion[] = text;

namespace KxPlat {

// The product version ("18.2") that this program presents from now on, whatever its file says.
void SetOwnProductVersion(const std::wstring& version);
const std::wstring& OwnProductVersion();   // empty when never set

}   // namespace KxPlat
