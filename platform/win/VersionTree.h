// A version resource as a tree, and the two forms of it: bytes of a file, and the block that the version calls hand
// out.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

struct VersionNode {
    std::wstring key;
    bool isText = false;
    std::wstring text;    // without terminator
    std::string binary;   // of a node that is no text
    std::vector<VersionNode> children;
};

// Nothing for damaged bytes: each length is checked against what holds it.
std::optional<VersionNode> ParseVersionResource(std::string_view bytes);

// The block holds texts in this system's wide characters, so that a query can hand out pointers into it.
std::string MakeVersionBlock(const VersionNode& root);

struct VersionValue {
    const void* data = nullptr;   // into the block
    uint32_t length = 0;          // characters with the terminator for a text, else bytes
};
// `path` like "\StringFileInfo\080404b0\FileVersion", without regard to case. Nothing when no node has that path.
std::optional<VersionValue> QueryVersionBlock(const void* block, std::wstring_view path);

}   // namespace KxPlat
