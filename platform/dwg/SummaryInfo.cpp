#include "SummaryInfo.h"
#include "../win/CodePage.h"
#include "ByteWalk.h"
#include <algorithm>

namespace KxPlat {

namespace {

std::wstring WithoutEnd(std::wstring text)
{
    text.resize(std::min(text.size(), text.find(L'\0')));
    return text;
}

// The length counts the zero at the end.
std::wstring ReadText(ByteWalk& in, bool isWide, const TextCodec& codec)
{
    const size_t length = in.Short();
    if (!isWide) {
        const std::string_view bytes = in.Take(length);
        const CString text = codec.Decode(bytes.substr(0, bytes.find('\0')));
        return std::wstring(text, size_t(text.GetLength()));
    }
    ByteWalk bytes(in.Take(2 * length));
    std::u16string units;
    while (bytes.left() >= 2)
        units += char16_t(bytes.Short());
    return WithoutEnd(FromUtf16(units));
}

void WriteText(std::string& out, const std::wstring& text)
{
    const std::u16string units = ToUtf16(text).substr(0, 0xFFFE);
    AppendShort(out, units.size() + 1);
    for (const char16_t unit : units)
        AppendShort(out, unit);
    AppendShort(out, 0);
}

}   // namespace

SummaryInfo ReadSummary(std::string_view section, bool isWide, const TextCodec& codec)
{
    SummaryInfo summary;
    ByteWalk in(section);
    for (std::wstring& text : summary.texts)
        text = ReadText(in, isWide, codec);
    for (uint32_t& time : summary.times)
        time = in.Long();
    for (unsigned count = in.Short(); count > 0 && !in.isBroken(); --count) {
        std::wstring name = ReadText(in, isWide, codec);
        summary.properties.emplace_back(std::move(name), ReadText(in, isWide, codec));
    }
    return summary;
}

std::string WriteSummary(const SummaryInfo& summary)
{
    std::string section;
    for (const std::wstring& text : summary.texts)
        WriteText(section, text);
    for (const uint32_t time : summary.times)
        AppendLong(section, time);
    AppendShort(section, summary.properties.size());
    for (const auto& [name, value] : summary.properties) {
        WriteText(section, name);
        WriteText(section, value);
    }
    AppendLong64(section, 0);
    return section;
}

}   // namespace KxPlat
