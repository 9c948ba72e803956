// Up to AC1015 the parts of a drawing stand side by side in the file, and a few locators behind its first bytes say
// where. A second header near the end repeats them, and most parts begin with a mark of their own.
#include "BitReader.h"
#include "ByteWalk.h"
#include "Checksums.h"
#include "Container.h"
#include "DwgVersion.h"
#include "Sentinels.h"
#include <iterator>

namespace KxPlat {

namespace {

constexpr uint64_t kLocatorsAt = 0x15;
constexpr uint32_t kMostLocators = 64;

struct Locator {
    uint64_t address = 0, size = 0;
};

struct PartRow {
    std::string_view section;
    const Sentinel* mark;   // of the part; null where it has none
};

// By the number in the locator.
const PartRow kParts[] = {
    {kHeaderSection, &kHeaderMark}, {kClassesSection, &kClassesMark}, {kHandlesSection, nullptr},
    {kFreeSpaceSection, nullptr},   {kTemplateSection, nullptr},      {kAuxHeaderSection, nullptr},
};
constexpr size_t kPartCount = std::size(kParts);
constexpr size_t kHandlesPart = 2;

class FlatReader {
public:
    FlatReader(std::string_view file, DwgSections& sections, DwgReport& report)
        : m_file(file), m_sections(sections), m_report(report)
    {
    }
    bool Read();

private:
    bool ReadLocators(Locator (&parts)[kPartCount]);
    bool ReadSecondHeader(Locator (&parts)[kPartCount]);
    bool Holds(const Locator& part) const
    {
        return part.size != 0 && part.address < m_file.size() && part.size <= m_file.size() - part.address;
    }
    bool HoldsPart(size_t number, const Locator& part) const
    {
        const Sentinel* mark = kParts[number].mark;
        return Holds(part) && (mark == nullptr || m_file.substr(part.address).starts_with(BeginMark(*mark)));
    }
    Locator FindMarked(const Sentinel& mark) const;
    void AddPreview();

    std::string_view m_file;
    DwgSections& m_sections;
    DwgReport& m_report;
};

bool FlatReader::ReadLocators(Locator (&parts)[kPartCount])
{
    ByteWalk in(m_file, kLocatorsAt);
    const uint32_t count = in.Long();
    if (count > kMostLocators)
        return false;
    for (uint32_t i = 0; i < count; ++i) {
        const uint8_t number = in.Byte();
        const Locator part = {in.Long(), in.Long()};
        if (number < kPartCount)
            parts[number] = part;
    }
    const uint64_t end = in.at();
    const uint16_t sum = in.Short();
    return !in.isBroken() && sum == Crc16(m_file.substr(0, end));
}

bool FlatReader::ReadSecondHeader(Locator (&parts)[kPartCount])
{
    const size_t at = m_file.rfind(BeginMark(kSecondHeaderMark));
    if (at == m_file.npos)
        return false;
    BitReader in(m_file.substr(at + sizeof(Sentinel)));
    in.RL();   // size
    in.BL();   // address
    in.Skip(size_t(8) * (11 + 2));
    in.BS();   // program
    in.RS();   // code page
    const unsigned count = in.BS();
    for (unsigned i = 0; i < count && !in.isBroken(); ++i) {
        const uint8_t number = in.RC();
        const uint32_t address = in.BL(), size = in.BL();
        if (number < kPartCount && !HoldsPart(number, parts[number]))
            parts[number] = {address, size};
    }
    return !in.isBroken();
}

// From the mark up to its end, or to the end of the file.
Locator FlatReader::FindMarked(const Sentinel& mark) const
{
    const size_t at = m_file.find(BeginMark(mark));
    if (at == m_file.npos)
        return {};
    const size_t end = m_file.find(EndMark(mark), at);
    return {at, end == m_file.npos ? m_file.size() - at : end + sizeof(Sentinel) - at};
}

void FlatReader::AddPreview()
{
    const uint64_t at = ByteWalk(m_file, 0x0D).Long();
    const std::string begin = BeginMark(kPreviewMark);
    if (at == 0 || at >= m_file.size() || !m_file.substr(at).starts_with(begin))
        return;
    const uint64_t size = ByteWalk(m_file, at + begin.size()).Long() + 4 + 2 * begin.size();
    if (size <= m_file.size() - at)
        m_sections.all.emplace_back(kPreviewSection, m_file.substr(at, size));
}

bool FlatReader::Read()
{
    Locator parts[kPartCount];
    if (!ReadLocators(parts))
        m_report.Mend("the table of the file's parts is damaged");
    bool isWhole = true;
    for (size_t i = 0; i <= kHandlesPart; ++i)
        isWhole = isWhole && HoldsPart(i, parts[i]);
    if (!isWhole)
        ReadSecondHeader(parts);
    for (size_t i = 0; i < kPartCount; ++i) {
        if (i <= kHandlesPart && !HoldsPart(i, parts[i])) {
            if (kParts[i].mark != nullptr)
                parts[i] = FindMarked(*kParts[i].mark);
            m_report.Mend(std::string(kParts[i].section) + (Holds(parts[i]) ? " is not in its place" : " is missing"));
        }
        if (Holds(parts[i]))
            m_sections.all.emplace_back(kParts[i].section, m_file.substr(parts[i].address, parts[i].size));
    }
    AddPreview();
    m_sections.all.emplace_back(kObjectsSection, m_file);
    return true;
}

}   // namespace

bool ReadFlatContainer(std::string_view file, DwgSections& sections, DwgReport& report)
{
    return FlatReader(file, sections, report).Read();
}

}   // namespace KxPlat
