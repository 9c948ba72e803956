// Bytes of a small Windows program with a version resource, for tests of what reads them.
#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace KxTest {

using VersionStrings = std::vector<std::pair<std::u16string, std::u16string>>;

inline void PutWord(std::string& out, unsigned value)
{
    out += static_cast<char>(value & 0xFF);
    out += static_cast<char>(value >> 8 & 0xFF);
}

inline void PutDword(std::string& out, uint32_t value)
{
    PutWord(out, value & 0xFFFF);
    PutWord(out, value >> 16);
}

inline void PutUnits(std::string& out, const std::u16string& text)
{
    for (char16_t unit : text)
        PutWord(out, unit);
    PutWord(out, 0);
}

inline void Pad(std::string& out, size_t unit = 4)
{
    out.resize((out.size() + unit - 1) / unit * unit);
}

// One node of a version resource: its length is set once the children are in.
inline std::string VersionNode(const std::u16string& key, unsigned type, unsigned valueLength, const std::string& value,
                               const std::vector<std::string>& children = {})
{
    std::string out;
    PutWord(out, 0);
    PutWord(out, valueLength);
    PutWord(out, type);
    PutUnits(out, key);
    Pad(out);
    out += value;
    for (const std::string& child : children) {
        Pad(out);
        out += child;
    }
    out[0] = static_cast<char>(out.size() & 0xFF);
    out[1] = static_cast<char>(out.size() >> 8);
    return out;
}

// `version` holds the file's and the product's four numbers.
inline std::string VersionResource(const std::vector<unsigned>& version, unsigned language, unsigned codePage,
                                   const VersionStrings& strings)
{
    std::string fixed;
    for (uint32_t value : {0xFEEF04BDu, 0x00010000u})
        PutDword(fixed, value);
    for (size_t i = 0; i < 8; i += 2)
        PutDword(fixed, version[i] << 16 | version[i + 1]);
    for (uint32_t value : {0x3Fu, 0u, 0x40004u, 2u, 0u, 0u, 0u})
        PutDword(fixed, value);
    std::vector<std::string> values;
    for (const auto& [name, text] : strings) {
        std::string units;
        PutUnits(units, text);
        values.push_back(VersionNode(name, 1, static_cast<unsigned>(text.size() + 1), units));
    }
    static const char16_t digits[] = u"0123456789abcdef";
    std::u16string table;
    for (unsigned part : {language, codePage}) {
        for (int shift = 12; shift >= 0; shift -= 4)
            table += digits[part >> shift & 15];
    }
    std::string translation;
    PutWord(translation, language);
    PutWord(translation, codePage);
    return VersionNode(u"VS_VERSION_INFO", 0, 52, fixed,
                       {VersionNode(u"StringFileInfo", 1, 0, "", {VersionNode(table, 1, 0, "", values)}),
                        VersionNode(u"VarFileInfo", 1, 0, "", {VersionNode(u"Translation", 0, 4, translation)})});
}

// A program with one section that holds `resource` as resource 16 (version) in one language.
inline std::string ProgramFile(const std::string& resource, bool is64Bit)
{
    constexpr uint32_t kAddress = 0x1000, kOffset = 0x200;
    std::string out = "MZ";
    out.resize(0x3C);
    PutDword(out, 0x40);
    out += std::string("PE\0\0", 4);
    PutWord(out, is64Bit ? 0x8664 : 0x14C);
    PutWord(out, 1);   // sections
    out.resize(0x40 + 4 + 16);
    const unsigned optionalSize = is64Bit ? 240 : 224;
    PutWord(out, optionalSize);
    PutWord(out, 0x2022);
    const size_t optional = out.size();
    PutWord(out, is64Bit ? 0x20B : 0x10B);
    out.resize(optional + optionalSize - 16 * 8 - 4);
    PutDword(out, 16);   // data directories; the third is that of the resources
    out.resize(out.size() + 16);
    PutDword(out, kAddress);
    PutDword(out, static_cast<uint32_t>(resource.size() + 88));
    out.resize(optional + optionalSize);
    out += std::string(".rsrc\0\0\0", 8);
    const auto size = static_cast<uint32_t>(resource.size() + 88);
    for (uint32_t value : {size, kAddress, size, kOffset, 0u, 0u, 0u, 0x40000040u})
        PutDword(out, value);
    out.resize(kOffset);
    // Three folders of one entry each, then the data entry at 72.
    for (auto [id, next] : {std::pair(16u, 0x80000018u), std::pair(1u, 0x80000030u), std::pair(0x804u, 0x48u)}) {
        out.append(14, '\0');
        PutWord(out, 1);
        PutDword(out, id);
        PutDword(out, next);
    }
    for (uint32_t value : {kAddress + 88, static_cast<uint32_t>(resource.size()), 0u, 0u})
        PutDword(out, value);
    return out + resource;
}

}   // namespace KxTest
