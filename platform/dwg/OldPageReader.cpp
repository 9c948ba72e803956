// AC1021: the page container in a form of its own, with repair bytes in between and UTF-16 names.
#include "ByteWalk.h"
#include "Container.h"
#include "OldPageCoding.h"
#include <algorithm>
#include <unordered_map>

namespace KxPlat {

namespace {

constexpr uint64_t kHeadAt = 0x80, kHeadSize = 0x3D8, kHeadDecoded = 0x110;
constexpr uint64_t kPagesAt = 0x480;
constexpr uint64_t kWord = 255, kSystemData = 239, kPageData = 251;
constexpr uint64_t kMostMapBytes = uint64_t(1) << 26;

enum class Encoding { Plain = 1, WithRepairBytes = 4 };

// Where the file's header keeps what the reader needs: numbers of 64-bit words.
enum HeadWord {
    kMapRepeat = 3,
    kMapOffset = 7,
    kMapCoded = 10,
    kMapDecoded = 11,
    kSectionsCoded = 22,
    kSectionsPage = 24,
    kSectionsDecoded = 25,
    kSectionsRepeat = 27
};

struct Page {
    uint64_t address = 0, size = 0;
};

struct PageOfSection {
    uint64_t offset = 0, id = 0, decoded = 0, coded = 0;
};

struct SectionRow {
    std::string name;
    uint64_t size = 0;
    uint64_t encoding = 0;
    std::vector<PageOfSection> pages;
};

class OldPageReader {
public:
    OldPageReader(std::string_view file, DwgSections& sections, DwgReport& report)
        : m_file(file), m_sections(sections), m_report(report), m_left(SectionLimit(file.size()))
    {
    }
    bool Read();

private:
    bool ReadHead();
    uint64_t Word(int number) const { return ByteWalk(m_head, uint64_t(number) * 8).Long64(); }
    bool Decode(std::string_view coded, uint64_t size, std::string& out);
    bool ReadSystemPage(uint64_t address, uint64_t coded, uint64_t decoded, uint64_t repeat, std::string& out);
    void ReadPageMap(std::string_view map);
    std::vector<SectionRow> SectionsOf(std::string_view map) const;
    bool AppendPage(const SectionRow& row, const PageOfSection& page, std::string& out);
    void ReadSection(const SectionRow& row);

    std::string_view m_file;
    DwgSections& m_sections;
    DwgReport& m_report;
    uint64_t m_left;   // what sections may still take
    std::string m_head;
    std::unordered_map<uint64_t, Page> m_pages;   // by id
};

bool OldPageReader::ReadHead()
{
    if (m_file.size() < kHeadAt + kHeadSize)
        return false;
    const std::string plain = Deinterleave(m_file.substr(kHeadAt, kHeadSize), 3, kSystemData);
    ByteWalk in(plain, 24);
    const int32_t coded = int32_t(in.Long());
    in.Skip(4);
    if (coded > 0)
        return DecodeOldPage(in.Take(uint32_t(coded)), kHeadDecoded, m_head) && m_head.size() == kHeadDecoded;
    m_head = in.Take(kHeadDecoded);
    return m_head.size() == kHeadDecoded;
}

// Bytes that no coding made shorter are stored as they are.
bool OldPageReader::Decode(std::string_view coded, uint64_t size, std::string& out)
{
    const size_t before = out.size();
    if (coded.size() < size)
        return DecodeOldPage(coded, size, out) && out.size() - before == size;
    out += coded.substr(0, size);
    return true;
}

bool OldPageReader::ReadSystemPage(uint64_t address, uint64_t coded, uint64_t decoded, uint64_t repeat,
                                   std::string& out)
{
    if (coded == 0 || decoded > kMostMapBytes || coded > m_file.size() || repeat > m_file.size() ||
        address >= m_file.size())
        return false;
    const uint64_t words = (RoundUp(coded, 8) * repeat + kSystemData - 1) / kSystemData;
    if (words > m_file.size())
        return false;
    const std::string plain = Deinterleave(m_file.substr(address, RoundUp(words * kWord, 8)), words, kSystemData);
    out.clear();
    return plain.size() >= coded && Decode(std::string_view(plain).substr(0, coded), decoded, out);
}

void OldPageReader::ReadPageMap(std::string_view map)
{
    ByteWalk in(map);
    uint64_t address = kPagesAt;
    while (in.left() >= 16) {
        const uint64_t size = in.Long64();
        const int64_t id = int64_t(in.Long64());
        if (id > 0)
            m_pages[uint64_t(id)] = {address, size};
        address += size;
    }
}

std::vector<SectionRow> OldPageReader::SectionsOf(std::string_view map) const
{
    std::vector<SectionRow> rows;
    ByteWalk in(map);
    while (in.left() >= 64) {
        SectionRow row;
        row.size = in.Long64();
        in.Skip(24);   // page size, encryption, hash of the name
        const uint64_t nameSize = in.Long64();
        in.Skip(8);
        row.encoding = in.Long64();
        const uint64_t pages = in.Long64();
        ByteWalk name(in.Take(nameSize));
        while (name.left() >= 2)
            if (const uint16_t letter = name.Short(); letter != 0)
                row.name += char(letter);
        for (uint64_t i = 0; i < pages && in.left() >= 56; ++i) {
            PageOfSection& page = row.pages.emplace_back();
            page.offset = in.Long64();
            in.Skip(8);
            page.id = in.Long64();
            page.decoded = in.Long64();
            page.coded = in.Long64();
            in.Skip(16);   // checksums
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

bool OldPageReader::AppendPage(const SectionRow& row, const PageOfSection& page, std::string& out)
{
    const auto place = m_pages.find(page.id);
    if (place == m_pages.end() || place->second.address >= m_file.size() || page.coded > m_file.size() ||
        page.decoded > m_left)
        return false;
    const std::string_view bytes = m_file.substr(place->second.address, place->second.size);
    const size_t before = out.size();
    bool isRead = false;
    if (row.encoding == uint64_t(Encoding::WithRepairBytes)) {
        const std::string plain = Deinterleave(bytes, (RoundUp(page.coded, 8) + kPageData - 1) / kPageData, kPageData);
        isRead = plain.size() >= page.coded && Decode(std::string_view(plain).substr(0, page.coded), page.decoded, out);
    } else {
        isRead = bytes.size() >= page.coded && Decode(bytes.substr(0, page.coded), page.decoded, out);
    }
    m_left -= std::min<uint64_t>(m_left, out.size() - before);
    return isRead;
}

void OldPageReader::ReadSection(const SectionRow& row)
{
    std::string bytes;
    for (const PageOfSection& page : row.pages) {
        if (page.offset > row.size)
            continue;
        if (page.offset > bytes.size()) {   // what was not stored is zeros
            const uint64_t gap = std::min(page.offset - bytes.size(), m_left);
            bytes.append(gap, '\0');
            m_left -= gap;
        }
        bytes.resize(std::min<uint64_t>(bytes.size(), page.offset));
        if (bytes.size() < page.offset || !AppendPage(row, page, bytes))
            m_report.Mend("page " + std::to_string(page.id) + " of " + row.name + " is damaged");
    }
    bytes.resize(std::min<uint64_t>(bytes.size(), row.size));
    if (!bytes.empty())
        m_sections.all.emplace_back(row.name, std::move(bytes));
}

bool OldPageReader::Read()
{
    if (!ReadHead()) {
        m_report.Fail("the file's header is damaged");
        return false;
    }
    std::string map;
    if (!ReadSystemPage(kPagesAt + Word(kMapOffset), Word(kMapCoded), Word(kMapDecoded), Word(kMapRepeat), map)) {
        m_report.Fail("the map of pages is damaged");
        return false;
    }
    ReadPageMap(map);
    const auto place = m_pages.find(Word(kSectionsPage));
    if (place == m_pages.end() || !ReadSystemPage(place->second.address, Word(kSectionsCoded), Word(kSectionsDecoded),
                                                  Word(kSectionsRepeat), map)) {
        m_report.Fail("the map of sections is damaged");
        return false;
    }
    for (const SectionRow& row : SectionsOf(map))
        if (!row.name.empty())
            ReadSection(row);
    return true;
}

}   // namespace

bool ReadOldPageContainer(std::string_view file, DwgSections& sections, DwgReport& report)
{
    return OldPageReader(file, sections, report).Read();
}

}   // namespace KxPlat
