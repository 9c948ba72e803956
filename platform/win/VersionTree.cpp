#include "VersionTree.h"
#include "CharTables.h"
#include "CodePage.h"
#include <algorithm>
#include <cstring>

namespace KxPlat {
namespace {

constexpr int kDeepest = 8;   // a sound resource has four levels

size_t Aligned(size_t offset)
{
    return (offset + 3) & ~size_t(3);
}

uint16_t Word(std::string_view bytes, size_t at)
{
    if (at + 2 > bytes.size())
        return 0;
    return static_cast<uint16_t>(static_cast<unsigned char>(bytes[at]) | static_cast<unsigned char>(bytes[at + 1])
                                                                             << 8);
}

// UTF-16 up to a zero or the end.
std::u16string Units(std::string_view bytes)
{
    std::u16string units;
    for (size_t at = 0; at + 1 < bytes.size() && Word(bytes, at) != 0; at += 2)
        units += static_cast<char16_t>(Word(bytes, at));
    return units;
}

// `bytes` start at the node, and `padding` is taken from the start of the resource, which nodes are aligned to.
std::optional<VersionNode> ParseNode(std::string_view bytes, int depth)
{
    const size_t length = Word(bytes, 0);
    const size_t valueLength = Word(bytes, 2);
    if (depth > kDeepest || length < 8 || length > bytes.size())
        return std::nullopt;
    bytes = bytes.substr(0, length);
    VersionNode node;
    node.isText = Word(bytes, 4) == 1;
    const std::u16string key = Units(bytes.substr(6));
    node.key = FromUtf16(key);
    size_t at = std::min(Aligned(6 + (key.size() + 1) * 2), length);
    // The length of a text counts characters, but some tools count bytes: its zero ends it in either case.
    const size_t valueBytes = std::min(node.isText ? valueLength * 2 : valueLength, length - at);
    if (!node.isText && valueBytes < valueLength)
        return std::nullopt;
    if (node.isText)
        node.text = FromUtf16(Units(bytes.substr(at, valueBytes)));
    else
        node.binary = bytes.substr(at, valueBytes);
    for (at = Aligned(at + valueBytes); at + 8 <= length;) {
        std::optional<VersionNode> child = ParseNode(bytes.substr(at), depth + 1);
        if (!child)
            return std::nullopt;
        node.children.push_back(std::move(*child));
        at = Aligned(at + Word(bytes, at));
    }
    return node;
}

// A node of the block: this head, the key with its zero, the value, the children, each part aligned to four bytes.
struct BlockHead {
    uint32_t size;          // of the whole node
    uint32_t keyLength;     // characters without the zero
    uint32_t valueSize;     // bytes
    uint32_t valueLength;   // as a query answers it
};

template <class Value>
Value ReadAt(const char* at)
{
    Value value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

void AppendNode(const VersionNode& node, std::string& out)
{
    const size_t start = out.size();
    const auto append = [&out](const void* data, size_t size) {
        out.append(static_cast<const char*>(data), size);
        out.resize(Aligned(out.size()));
    };
    BlockHead head = {};
    head.keyLength = static_cast<uint32_t>(node.key.size());
    const bool hasText = node.isText && node.children.empty();
    head.valueLength = static_cast<uint32_t>(hasText ? node.text.size() + 1 : node.binary.size());
    head.valueSize = static_cast<uint32_t>(hasText ? head.valueLength * sizeof(wchar_t) : node.binary.size());
    append(&head, sizeof head);
    append(node.key.c_str(), (node.key.size() + 1) * sizeof(wchar_t));
    append(hasText ? static_cast<const void*>(node.text.c_str()) : node.binary.data(), head.valueSize);
    for (const VersionNode& child : node.children)
        AppendNode(child, out);
    head.size = static_cast<uint32_t>(out.size() - start);
    std::memcpy(out.data() + start, &head, sizeof head);
}

// One node of a block that MakeVersionBlock wrote.
struct BlockNode {
    const char* at;
    BlockHead head = ReadAt<BlockHead>(at);

    std::wstring_view Key() const
    {
        return std::wstring_view(reinterpret_cast<const wchar_t*>(at + sizeof(BlockHead)), head.keyLength);
    }
    const char* Value() const { return at + sizeof(BlockHead) + (head.keyLength + 1) * sizeof(wchar_t); }
    const char* FirstChild() const { return Value() + Aligned(head.valueSize); }
    const char* End() const { return at + head.size; }
};

const char* ChildNamed(const BlockNode& node, std::wstring_view name)
{
    for (const char* at = node.FirstChild(); at < node.End(); at += BlockNode{at}.head.size) {
        if (EqualNoCase(BlockNode{at}.Key(), name))
            return at;
    }
    return nullptr;
}

}   // namespace

std::optional<VersionNode> ParseVersionResource(std::string_view bytes)
{
    std::optional<VersionNode> root = ParseNode(bytes, 0);
    return root && EqualNoCase(root->key, L"VS_VERSION_INFO") ? root : std::nullopt;
}

std::string MakeVersionBlock(const VersionNode& root)
{
    std::string block;
    AppendNode(root, block);
    return block;
}

std::optional<VersionValue> QueryVersionBlock(const void* block, std::wstring_view path)
{
    BlockNode node = {static_cast<const char*>(block)};
    for (size_t at = 0; at < path.size();) {
        const size_t end = std::min(path.find(L'\\', at), path.size());
        if (end > at) {
            const char* child = ChildNamed(node, path.substr(at, end - at));
            if (child == nullptr)
                return std::nullopt;
            node = BlockNode{child};
        }
        at = end + 1;
    }
    return VersionValue{node.Value(), node.head.valueLength};
}

}   // namespace KxPlat
