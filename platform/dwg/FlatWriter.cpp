// AC1015: locators, auxiliary header, preview, header variables, classes; objects; object map, second header, template.
#include "BitWriter.h"
#include "ByteWalk.h"
#include "Checksums.h"
#include "Container.h"
#include "ContainerOut.h"
#include "ObjectMap.h"
#include "Sentinels.h"

namespace KxPlat {

namespace {

constexpr size_t kPartCount = 6;
constexpr size_t kTemplatePart = 4;
// In the order of the locators' numbers.
constexpr std::string_view kPartNames[kPartCount] = {kHeaderSection,    kClassesSection,  kHandlesSection,
                                                     kFreeSpaceSection, kTemplateSection, kAuxHeaderSection};
constexpr uint64_t kHeadSize = 0x61;
// Kept free before the objects for the variables, and for the classes that the objects turn out to need.
constexpr size_t kRoomForHeader = 0x2000;

struct Locator {
    uint64_t address = 0, size = 0;
};

class FlatWriter : public ContainerWriter {
public:
    FlatWriter(AtomicFile& file, const DwgSections& kind) : m_file(file), m_kind(kind) {}

    void Begin(const DwgSections& early) override;
    void Add(uint64_t handle, std::string_view frame) override;
    void Finish(const DwgSections& late, const std::vector<uint64_t>& handles) override;

private:
    void Append(std::string_view bytes)
    {
        m_file.Write(bytes);
        m_at += bytes.size();
    }
    Locator PlaceEarly(std::string_view bytes);
    std::string SecondHeader(const std::vector<uint64_t>& handles) const;
    std::string Head(uint64_t previewAddress) const;

    AtomicFile& m_file;
    DwgSections m_kind;
    std::string m_preview;
    uint64_t m_at = 0;
    uint64_t m_earlyAt = kHeadSize, m_earlyEnd = 0;   // room that is left before the objects
    std::vector<ObjectPlace> m_places;
    Locator m_parts[kPartCount];
};

void FlatWriter::Begin(const DwgSections& early)
{
    m_preview = early.BytesOf(kPreviewSection);
    Append(std::string(kHeadSize + m_preview.size() + kRoomForHeader, '\0'));
    m_earlyEnd = m_at;
    std::string mark;
    AppendLong(mark, kObjectsMark);
    Append(mark);
}

void FlatWriter::Add(uint64_t handle, std::string_view frame)
{
    m_places.push_back({handle, m_at});
    Append(frame);
}

// Before the objects as long as there is room, else behind them.
Locator FlatWriter::PlaceEarly(std::string_view bytes)
{
    Locator place = {m_earlyAt, bytes.size()};
    if (bytes.size() <= m_earlyEnd - m_earlyAt) {
        m_file.WriteAt(m_earlyAt, bytes);
        m_earlyAt += bytes.size();
        return place;
    }
    place.address = m_at;
    Append(bytes);
    return place;
}

std::string FlatWriter::SecondHeader(const std::vector<uint64_t>& handles) const
{
    constexpr size_t kTail = 8;   // bytes of no meaning
    BitWriter out;
    out.BL(uint32_t(m_at));
    out.Bytes(NameOfDwgVersion(m_kind.version));
    out.Bytes(std::string(5, '\0'));
    out.RC(m_kind.maintenance);
    out.RC(1);
    out.BS(m_kind.programMaintenance << 8 | m_kind.program);
    out.RS(m_kind.codePage);
    out.BS(kPartCount);
    for (size_t i = 0; i < kPartCount; ++i) {
        const Locator part = i == kTemplatePart ? Locator() : m_parts[i];
        out.RC(int(i));
        out.BL(uint32_t(part.address));
        out.BL(uint32_t(part.size));
    }
    out.BS(int(handles.size()));
    for (size_t i = 0; i < handles.size(); ++i) {
        const int bytes = (std::bit_width(handles[i]) + 7) / 8;
        out.RC(bytes);
        out.RC(int(i));
        for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
            out.RC(int(handles[i] >> shift & 0xFF));
    }
    out.FillByte();
    std::string body;
    AppendLong(body, 4 + out.bytes().size() + 2 + kTail);
    body += out.bytes();
    AppendShort(body, Crc16(body));
    return BeginMark(kSecondHeaderMark) + body + std::string(kTail, '\0') + EndMark(kSecondHeaderMark);
}

std::string FlatWriter::Head(uint64_t previewAddress) const
{
    std::string head = FirstBytes(m_kind, previewAddress);
    AppendLong(head, kPartCount);
    for (size_t i = 0; i < kPartCount; ++i) {
        head += char(i);
        AppendLong(head, m_parts[i].address);
        AppendLong(head, m_parts[i].size);
    }
    AppendShort(head, Crc16(head));
    return head + BeginMark(kLocatorsMark);
}

void FlatWriter::Finish(const DwgSections& late, const std::vector<uint64_t>& handles)
{
    const auto place = [&](size_t part) { m_parts[part] = PlaceEarly(late.BytesOf(kPartNames[part])); };
    place(5);
    const uint64_t previewAddress = m_preview.empty() ? 0 : m_earlyAt;
    if (!m_preview.empty())
        PlaceEarly(MovedPreview(m_preview, int64_t(previewAddress)));
    place(0);
    place(1);
    const std::string map = WriteObjectMap(m_places);
    m_parts[2] = {m_at, map.size()};
    Append(map);
    const std::string_view settings = late.BytesOf(kTemplateSection);
    const std::string second = SecondHeader(handles);
    Append(second);
    m_parts[kTemplatePart] = {m_at, settings.size()};
    Append(settings);
    m_file.WriteAt(0, Head(previewAddress));
}

}   // namespace

std::unique_ptr<ContainerWriter> NewFlatWriter(AtomicFile& file, const DwgSections& kind)
{
    return std::make_unique<FlatWriter>(file, kind);
}

}   // namespace KxPlat
