#include "SectionBits.h"
#include "../win/CodePage.h"
#include "ByteWalk.h"
#include "Checksums.h"

namespace KxPlat {

namespace {

constexpr size_t kMarkSize = sizeof(Sentinel);
constexpr size_t kSizeAt = kMarkSize;

// The maintenance number that decides whether a size has a high half.
constexpr int kLongSizesSince = 3;

bool HasLongSize(const SectionForm& form)
{
    return form.version >= kR2018 || (form.version >= kR2010 && form.maintenance > kLongSizesSince);
}

// Where the data begins and ends when sizes are written so; the end is 0 when the checksum says otherwise.
struct Extent {
    size_t start = 0, end = 0;
};

Extent ExtentOf(std::string_view section, bool isLong)
{
    ByteWalk in(section, kSizeAt);
    const uint32_t size = in.Long();
    if (isLong)
        in.Skip(4);
    const size_t start = in.at();
    if (size > in.left() || in.left() - size < 2)
        return {start, 0};
    in.Skip(size);
    const uint16_t sum = in.Short();
    return {start, Crc16(section.substr(kSizeAt, start + size - kSizeAt)) == sum ? start + size : 0};
}

}   // namespace

std::wstring ReadByteText(BitReader& in, const TextCodec& codec)
{
    std::string room;
    std::string_view bytes = in.View(in.BS(), room);
    if (in.isBroken())
        return {};
    bytes = bytes.substr(0, bytes.find('\0'));
    const CString text = codec.Decode(bytes);
    return std::wstring(text, size_t(text.GetLength()));
}

std::wstring ReadWideText(BitReader& in)
{
    const size_t count = in.BS();
    if (count > in.Left() / 16) {
        in.Break();
        return {};
    }
    std::u16string units(count, u'\0');
    for (char16_t& unit : units)
        unit = in.RS();
    return FromUtf16(units);
}

void WriteByteText(BitWriter& out, std::wstring_view text, const TextCodec& codec)
{
    if (text.empty())
        return out.BS(0);
    const std::string_view bytes = codec.Encode(CString(text.data(), int(text.size()))).substr(0, 0xFFFE);
    out.BS(int(bytes.size() + 1));
    out.Bytes(bytes);
    out.RC(0);
}

void WriteWideText(BitWriter& out, std::wstring_view text)
{
    const std::u16string units = ToUtf16(text).substr(0, 0xFFFF);
    out.BS(int(units.size()));
    for (const char16_t unit : units)
        out.RS(unit);
}

SectionIn::SectionIn(std::string_view section, const Sentinel& mark, const SectionForm& form, const char* name,
                     DwgReport& report)
    : m_form(form)
{
    if (!section.starts_with(BeginMark(mark)))
        report.Mend(std::string("the ") + name + " do not begin with their mark");
    bool isLong = HasLongSize(form);
    Extent extent = ExtentOf(section, isLong);
    if (extent.end == 0 && form.version >= kR2010) {
        const Extent other = ExtentOf(section, !isLong);
        if (other.end != 0)
            extent = other;
    }
    if (extent.end == 0) {
        report.Mend(std::string("the checksum of the ") + name + " is wrong");
        extent.end = section.size() < extent.start ? extent.start : section.size();
    }
    if (HasStringStream(form.version))
        SplitStreams(section, extent.start * 8, extent.end * 8);
    else
        m_data = BitReader(section, extent.start * 8, extent.end * 8);
}

// Before the references stand one bit, and where it is set the length of the texts, which stand before that.
void SectionIn::SplitStreams(std::string_view bytes, size_t start, size_t end)
{
    const uint32_t size = BitReader(bytes, start, end).RL();
    const size_t split = start + size;
    const size_t data = start + 32;
    if (size < 33 || split > end) {
        m_data = BitReader(bytes, data, end);
        return;
    }
    m_handles = BitReader(bytes, split, end);
    size_t texts = split - 1;
    if (BitReader(bytes, split - 1, split).B() && size >= 32 + 17) {
        size_t last = split - 17;
        uint64_t length = BitReader(bytes, last, end).RS();
        if ((length & 0x8000) != 0 && size >= 32 + 33) {
            last -= 16;
            length = (length & 0x7FFF) | uint64_t(BitReader(bytes, last, end).RS()) << 15;
        }
        if (length <= last - data) {
            texts = last - length;
            m_texts = BitReader(bytes, texts, last);
        }
    }
    m_data = BitReader(bytes, data, texts);
}

std::wstring SectionIn::Text()
{
    return HasStringStream(m_form.version) ? ReadWideText(m_texts) : ReadByteText(m_data, m_form.codec);
}

void SectionOut::Text(std::wstring_view text)
{
    if (HasStringStream(m_form.version))
        WriteWideText(m_texts, text);
    else
        WriteByteText(m_data, text, m_form.codec);
}

std::string SectionOut::Close(const Sentinel& mark)
{
    BitWriter body;
    if (HasStringStream(m_form.version)) {
        const size_t length = m_texts.Position();
        const bool isLong = length >= 0x8000;
        body.RL(uint32_t(32 + m_data.Position() + length + (length == 0 ? 0 : isLong ? 32 : 16) + 1));
        body.Append(m_data);
        body.Append(m_texts);
        if (isLong)
            body.RS(int(length >> 15));
        if (length != 0)
            body.RS(int(isLong ? (length & 0x7FFF) | 0x8000 : length));
        body.B(length != 0);
        body.Append(m_handles);
    } else {
        body.Append(m_data);
    }
    body.FillByte();
    std::string section = BeginMark(mark);
    AppendLong(section, body.bytes().size());
    if (HasLongSize(m_form))
        AppendLong(section, 0);
    section += body.bytes();
    AppendShort(section, Crc16(std::string_view(section).substr(kSizeAt)));
    return section + EndMark(mark);
}

}   // namespace KxPlat
