// The text form of a registry: "Windows Registry Editor Version 5.00", also the older "REGEDIT4".
#pragma once
#include "RegistryTree.h"
#include <string>
#include <string_view>

namespace KxPlat {

enum class RegistryEncoding { Utf8, Utf16 };

struct RegistryReading {
    bool isRegistry = false;   // the first line says so; nothing is read from other texts
    size_t badLine = 0;        // the first line that could not be understood and was passed over; 0 for none
    RegistryEncoding encoding = RegistryEncoding::Utf8;
};

// Adds what `bytes` say to the tree, and takes away what they say to take away ("[-KEY]", "name"=-).
// UTF-16 of either order and UTF-8 are told apart by their marks; without one the text is UTF-8, REGEDIT4 in the ANSI
// code page.
RegistryReading ReadRegistry(std::string_view bytes, RegistryKey& root);
std::string RegistryText(const RegistryKey& root, RegistryEncoding encoding);

}   // namespace KxPlat
