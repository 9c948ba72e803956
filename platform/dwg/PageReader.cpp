// AC1018 and all from AC1024 on: a map of pages, a map of sections, and the sections cut into coded pages. Where a map
// is damaged, the pages are looked for in the whole file, as each says what it belongs to.
#include "Checksums.h"
#include "Container.h"
#include "PageCoding.h"
#include "PageLayout.h"
#include "Sentinels.h"
#include <algorithm>
#include <map>
#include <unordered_map>

namespace KxPlat {

namespace {

constexpr uint64_t kMostMapBytes = uint64_t(1) << 26;
constexpr uint64_t kMostPageSize = uint64_t(1) << 24;

struct PageOfSection {
    uint32_t number = 0;
    uint32_t storedSize = 0;
    uint64_t offset = 0;
};

struct SectionRow {
    std::string name;
    uint32_t id = 0;
    uint64_t size = 0;
    uint64_t pageSize = 0;
    bool isCoded = false;
    bool isEncrypted = false;
    std::vector<PageOfSection> pages;
};

class PageReader {
public:
    PageReader(std::string_view file, DwgSections& sections, DwgReport& report)
        : m_file(file), m_sections(sections), m_report(report), m_left(SectionLimit(file.size()))
    {
    }
    bool Read();

private:
    bool ReadHead(FileHead& head);
    bool ReadSystemPage(uint64_t address, uint32_t type, std::string& content);
    void ReadPageMap(std::string_view map);
    void ReadSectionMap(std::string_view map);
    bool FindSystemPage(uint32_t type, std::string& content);
    void FindDataPages();
    std::string_view NameByContents(const SectionRow& row);
    bool MakeRowsOfPages();
    bool IsPageOf(const SectionRow& row, const PageOfSection& page, uint64_t address) const;
    uint64_t AddressOf(const SectionRow& row, const PageOfSection& page);
    std::string_view StoredBytes(const DataHead& head, uint64_t address) const;
    bool AppendPage(const SectionRow& row, const PageOfSection& page, std::string& out);
    void ReadSection(const SectionRow& row);

    std::string_view m_file;
    DwgSections& m_sections;
    DwgReport& m_report;
    uint64_t m_left;                                      // what sections may still take
    std::unordered_map<uint32_t, uint64_t> m_addresses;   // by page number
    std::vector<SectionRow> m_rows;
    bool m_isSearched = false;
    std::map<std::pair<uint32_t, uint64_t>, uint64_t> m_found;   // address by section id and offset
};

bool PageReader::ReadHead(FileHead& head)
{
    bool isSumRight = false;
    if (m_file.size() > kFileHeadAt && ReadFileHead(m_file.substr(kFileHeadAt), head, isSumRight) && isSumRight)
        return true;
    m_report.Mend("the file's header is damaged");
    FileHead copy;
    if (m_file.size() > kFileHeadSize && ReadFileHead(m_file.substr(m_file.size() - kFileHeadSize), copy, isSumRight) &&
        isSumRight) {
        head = copy;
        return true;
    }
    return false;
}

bool PageReader::ReadSystemPage(uint64_t address, uint32_t type, std::string& content)
{
    if (address > m_file.size() || m_file.size() - address < kSystemHeadSize)
        return false;
    ByteWalk in(m_file, address);
    const uint32_t found = in.Long(), size = in.Long(), coded = in.Long();
    in.Skip(4);
    const uint32_t sum = in.Long();
    if (found != type || size > kMostMapBytes || coded > in.left())
        return false;
    const std::string_view stored = in.Take(coded);
    std::string head(m_file.substr(address, kSystemHeadSize));
    PutNumber(head, 16, 0, 4);
    content.clear();
    return PageSum(stored, PageSum(head)) == sum && DecodePage(stored, size, content) && content.size() == size;
}

// The last one that is whole: a file that was saved in parts may hold older ones.
bool PageReader::FindSystemPage(uint32_t type, std::string& content)
{
    std::string type4;
    AppendLong(type4, type);
    std::string tried;
    bool isFound = false;
    for (size_t at = m_file.find(type4, kFirstPageAt); at != m_file.npos; at = m_file.find(type4, at + 4))
        if (at % kPageStep == 0 && ReadSystemPage(at, type, tried)) {
            content.swap(tried);
            isFound = true;
        }
    return isFound;
}

void PageReader::ReadPageMap(std::string_view map)
{
    ByteWalk in(map);
    uint64_t address = kFirstPageAt;
    while (in.left() >= 8) {
        const int32_t number = int32_t(in.Long());
        const uint32_t size = in.Long();
        if (number < 0)
            in.Skip(16);
        else
            m_addresses[uint32_t(number)] = address;
        address += size;
    }
}

void PageReader::ReadSectionMap(std::string_view map)
{
    ByteWalk in(map);
    const uint32_t count = in.Long();
    in.Skip(16);
    for (uint32_t i = 0; i < count && in.left() >= 96; ++i) {
        SectionRow row;
        row.size = in.Long64();
        const uint32_t pages = in.Long();
        row.pageSize = in.Long();
        in.Skip(4);
        row.isCoded = in.Long() == 2;
        row.id = in.Long();
        row.isEncrypted = in.Long() == 1;
        const std::string_view name = in.Take(64);
        row.name = name.substr(0, name.find('\0'));
        for (uint32_t page = 0; page < pages && in.left() >= 16; ++page) {
            PageOfSection& next = row.pages.emplace_back();
            next.number = in.Long();
            next.storedSize = in.Long();
            next.offset = in.Long64();
        }
        m_rows.push_back(std::move(row));
    }
}

void PageReader::FindDataPages()
{
    m_isSearched = true;
    for (uint64_t at = kFirstPageAt; at + kDataHeadSize <= m_file.size(); at += kPageStep) {
        const DataHead head = ReadDataHead(m_file, at);
        if (head.type == kDataPageType && head.headSum == DataHeadSum(head))
            m_found[{head.section, head.offset}] = at;
    }
}

bool PageReader::IsPageOf(const SectionRow& row, const PageOfSection& page, uint64_t address) const
{
    if (address > m_file.size() || m_file.size() - address < kDataHeadSize)
        return false;
    const DataHead head = ReadDataHead(m_file, address);
    return head.type == kDataPageType && head.section == row.id && head.offset == uint32_t(page.offset);
}

// 0 when there is none.
uint64_t PageReader::AddressOf(const SectionRow& row, const PageOfSection& page)
{
    const auto place = m_addresses.find(page.number);
    if (place != m_addresses.end() && IsPageOf(row, page, place->second))
        return place->second;
    if (!m_isSearched)
        FindDataPages();
    const auto found = m_found.find({row.id, page.offset});
    return found == m_found.end() ? 0 : found->second;
}

std::string_view PageReader::StoredBytes(const DataHead& head, uint64_t address) const
{
    const uint64_t begin = std::min<uint64_t>(address + kDataHeadSize, m_file.size());
    return m_file.substr(begin, head.storedSize);
}

bool PageReader::AppendPage(const SectionRow& row, const PageOfSection& page, std::string& out)
{
    const uint64_t address = AddressOf(row, page);
    if (address == 0)
        return false;
    const DataHead head = ReadDataHead(m_file, address);
    const std::string_view stored = StoredBytes(head, address);
    const bool isWhole = stored.size() == head.storedSize && PageSum(stored) == head.dataSum;
    const uint64_t room = std::min({row.pageSize, row.size - page.offset, m_left});
    const size_t before = out.size();
    bool isRead = isWhole;
    if (row.isCoded) {
        // A page is filled up with zeros before it is coded, so it may be longer than what the section needs.
        isRead = DecodePage(stored, std::min(row.pageSize, kMostPageSize), out) && isWhole;
        out.resize(std::min<size_t>(out.size(), before + room));
    } else {
        out += stored.substr(0, room);
    }
    m_left -= out.size() - before;
    return isRead;
}

// Sections that begin with a mark of their own.
std::string_view PageReader::NameByContents(const SectionRow& row)
{
    std::string start;
    const uint64_t left = m_left;
    AppendPage(row, row.pages[0], start);
    m_left = left;
    if (start.starts_with(BeginMark(kHeaderMark)))
        return kHeaderSection;
    if (start.starts_with(BeginMark(kClassesMark)))
        return kClassesSection;
    return ByteWalk(start).Long() == kObjectsMark ? kObjectsSection : std::string_view();
}

// The maps stand at the end of the file, which is the first to go when it is cut. The pages themselves tell which of
// them belong together.
bool PageReader::MakeRowsOfPages()
{
    FindDataPages();
    for (const auto& [key, address] : m_found) {
        const auto& [id, offset] = key;
        if (m_rows.empty() || m_rows.back().id != id) {
            m_rows.emplace_back();
            m_rows.back().id = id;
            m_rows.back().pageSize = kUsualPageSize;
            m_rows.back().isCoded = true;
        }
        m_rows.back().pages.push_back({0, ReadDataHead(m_file, address).storedSize, offset});
        m_rows.back().size = offset + kUsualPageSize;
    }
    bool hasObjects = false;
    for (SectionRow& row : m_rows) {
        row.name = NameByContents(row);
        hasObjects = hasObjects || row.name == kObjectsSection;
    }
    return hasObjects;
}

void PageReader::ReadSection(const SectionRow& row)
{
    if (row.isEncrypted) {
        m_report.Mend(row.name + " is encrypted");
        return;
    }
    std::string bytes;
    for (const PageOfSection& page : row.pages) {
        if (page.offset >= row.size)
            continue;
        if (page.offset > bytes.size()) {   // what was not stored is zeros
            const uint64_t gap = std::min(page.offset - bytes.size(), m_left);
            bytes.append(gap, '\0');
            m_left -= gap;
        }
        bytes.resize(std::min<uint64_t>(bytes.size(), page.offset));
        if (bytes.size() < page.offset || !AppendPage(row, page, bytes))
            m_report.Mend("page " + std::to_string(page.number) + " of " + row.name + " is damaged");
    }
    const uint64_t rest =
        row.pages.empty() ? 0 : std::min(row.size - std::min<uint64_t>(bytes.size(), row.size), m_left);
    if (rest != 0 && rest <= kMostPageSize) {
        bytes.append(rest, '\0');
        m_left -= rest;
    }
    if (!bytes.empty())
        m_sections.all.emplace_back(row.name, std::move(bytes));
}

bool PageReader::Read()
{
    FileHead head;
    const bool hasHead = ReadHead(head);
    std::string map;
    const bool hasPageMap = hasHead && ReadSystemPage(head.pageMapAt + kFirstPageAt, kPageMapType, map);
    if (hasPageMap || FindSystemPage(kPageMapType, map))
        ReadPageMap(map);
    if (!hasPageMap)
        m_report.Mend("the map of pages is not in its place");
    const auto place = m_addresses.find(head.sectionMapPage);
    if (place != m_addresses.end() && ReadSystemPage(place->second, kSectionMapType, map)) {
        ReadSectionMap(map);
    } else if (FindSystemPage(kSectionMapType, map)) {
        m_report.Mend("the map of sections is not in its place");
        ReadSectionMap(map);
    } else {
        m_report.Mend("the map of sections is lost");
        if (!MakeRowsOfPages()) {
            m_report.Fail("the map of sections is lost, and so are the objects");
            return false;
        }
    }
    for (const SectionRow& row : m_rows)
        if (!row.name.empty())
            ReadSection(row);
    return true;
}

}   // namespace

bool ReadPageContainer(std::string_view file, DwgSections& sections, DwgReport& report)
{
    return PageReader(file, sections, report).Read();
}

}   // namespace KxPlat
