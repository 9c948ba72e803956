// AC1024: sections cut into coded pages, a map of sections, a map of pages, and the header once more at the end.
#include "ContainerOut.h"
#include "ObjectMap.h"
#include "PageCoding.h"
#include "PageLayout.h"

namespace KxPlat {

namespace {

// Behind the header that is hidden: the rest of the same stream over zeros.
constexpr unsigned char kBehindHead[20] = {0xF8, 0x46, 0x6A, 0x04, 0x96, 0x73, 0x0E, 0xD9, 0x16, 0x2F,
                                           0x67, 0x68, 0xD4, 0xF7, 0x4A, 0x4A, 0xD0, 0x57, 0x68, 0x76};
constexpr size_t kNameSize = 64;

struct KindRow {
    std::string_view name;
    uint32_t id;
    bool isCoded;
    uint32_t encryption;
};

// Sections that stand as they are fill one page, whose size is rounded up.
constexpr KindRow kKinds[] = {
    {kHeaderSection, 1, true, 0},     {kAuxHeaderSection, 2, true, 0},  {kClassesSection, 3, true, 0},
    {kHandlesSection, 4, true, 0},    {kTemplateSection, 5, true, 0},   {kFreeSpaceSection, 6, true, 0},
    {kObjectsSection, 7, true, 0},    {kRevHistorySection, 8, true, 0}, {kSummarySection, 9, false, 0},
    {kPreviewSection, 10, false, 0},  {kAppInfoSection, 11, false, 0},  {kAppHistorySection, 12, false, 0},
    {kFileListSection, 13, false, 2},
};
constexpr uint32_t kPlainStep = 0x80;

struct PageRow {
    uint32_t number = 0, storedSize = 0;
    uint64_t offset = 0, address = 0;
};

struct SectionRow {
    const KindRow* kind = nullptr;
    uint64_t size = 0;
    uint32_t pageSize = kUsualPageSize;
    std::vector<PageRow> pages;
};

class PageWriter : public ContainerWriter {
public:
    PageWriter(AtomicFile& file, const DwgSections& kind) : m_file(file), m_kind(kind) {}

    void Begin(const DwgSections& early) override;
    void Add(uint64_t handle, std::string_view frame) override;
    void Finish(const DwgSections& late, const std::vector<uint64_t>& handles) override;

private:
    void Append(std::string_view bytes)
    {
        m_file.Write(bytes);
        m_at += bytes.size();
    }
    void Pad() { Append(std::string(RoundUp(m_at, kPageStep) - m_at, '\0')); }
    void AppendPage(SectionRow& section, std::string_view data);
    void AddSections(const DwgSections& sections);
    void AddSection(const KindRow& kind, std::string_view bytes);
    void FlushObjects(size_t keep);
    std::string SectionMap() const;
    FileHead AppendMaps();
    uint64_t DataAddress(std::string_view section) const;

    AtomicFile& m_file;
    DwgSections m_kind;
    PageCoder m_coder;
    uint64_t m_at = 0;
    std::vector<uint64_t> m_pageSizes;   // in the file, by number less 1
    std::vector<SectionRow> m_sections;
    SectionRow m_objects;
    std::string m_waiting;   // objects that fill no page yet
    std::vector<ObjectPlace> m_places;
};

void PageWriter::AppendPage(SectionRow& section, std::string_view data)
{
    std::string filled(data);
    filled.resize(section.pageSize, '\0');
    std::string coded;
    if (section.kind->isCoded)
        m_coder.Encode(filled, coded);
    const std::string& stored = section.kind->isCoded ? coded : filled;
    const uint64_t offset = section.pages.empty() ? 0 : section.pages.back().offset + section.pageSize;
    const uint64_t size = kDataHeadSize + RoundUp(stored.size(), kPageStep);
    DataHead head;
    head.section = section.kind->id;
    head.storedSize = uint32_t(stored.size());
    head.pageSize = uint32_t(size);
    head.offset = uint32_t(offset);
    m_pageSizes.push_back(size);
    section.pages.push_back({uint32_t(m_pageSizes.size()), uint32_t(stored.size()), offset, m_at});
    Append(DataHeadBytes(head, stored, m_at));
    Append(stored);
    Pad();
}

void PageWriter::AddSection(const KindRow& kind, std::string_view bytes)
{
    SectionRow section;
    section.kind = &kind;
    section.size = bytes.size();
    if (!kind.isCoded)
        section.pageSize = uint32_t(RoundUp(bytes.size(), kPlainStep));
    // The addresses in a preview are those in the file.
    std::string moved;
    if (kind.name == kPreviewSection) {
        moved = MovedPreview(bytes, int64_t(m_at + kDataHeadSize));
        bytes = moved;
    }
    for (size_t at = 0; at < bytes.size(); at += section.pageSize)
        AppendPage(section, bytes.substr(at, section.pageSize));
    m_sections.push_back(std::move(section));
}

void PageWriter::AddSections(const DwgSections& sections)
{
    for (const DwgSection& section : sections.all)
        for (const KindRow& kind : kKinds)
            if (kind.name == section.name() && !section.bytes().empty())
                AddSection(kind, section.bytes());
}

void PageWriter::Begin(const DwgSections& early)
{
    Append(std::string(kFirstPageAt, '\0'));
    AddSections(early);
    for (const KindRow& kind : kKinds)
        if (kind.name == kObjectsSection)
            m_objects.kind = &kind;
    AppendLong(m_waiting, kObjectsMark);
    m_objects.size = m_waiting.size();
}

void PageWriter::Add(uint64_t handle, std::string_view frame)
{
    m_places.push_back({handle, m_objects.size});
    m_objects.size += frame.size();
    m_waiting += frame;
    if (m_waiting.size() >= 4 * kUsualPageSize)
        FlushObjects(kUsualPageSize);
}

// Writes pages until at most `keep` bytes wait.
void PageWriter::FlushObjects(size_t keep)
{
    std::string_view left = m_waiting;
    while (left.size() > keep) {
        AppendPage(m_objects, left.substr(0, kUsualPageSize));
        left.remove_prefix(left.size() < kUsualPageSize ? left.size() : kUsualPageSize);
    }
    m_waiting.erase(0, m_waiting.size() - left.size());
}

std::string PageWriter::SectionMap() const
{
    std::string map;
    const uint64_t count = m_sections.size() + 1;
    for (const uint64_t word : {count, uint64_t(2), uint64_t(kUsualPageSize), uint64_t(0), count})
        AppendLong(map, word);
    const auto describe = [&map](uint64_t size, uint64_t pages, uint64_t pageSize, const KindRow& kind) {
        AppendLong64(map, size);
        for (const uint64_t word : {pages, pageSize, uint64_t(1), uint64_t(kind.isCoded ? 2 : 1), uint64_t(kind.id),
                                    uint64_t(kind.encryption)})
            AppendLong(map, word);
        map += kind.name;
        map.append(kNameSize - kind.name.size(), '\0');
    };
    describe(0, 0, kUsualPageSize, {"", 0, true, 0});
    for (uint32_t id = uint32_t(std::size(kKinds)); id > 0; --id)
        for (const SectionRow& section : m_sections) {
            if (section.kind->id != id)
                continue;
            describe(section.size, section.pages.size(), section.pageSize, *section.kind);
            for (const PageRow& page : section.pages) {
                AppendLong(map, page.number);
                AppendLong(map, page.storedSize);
                AppendLong64(map, page.offset);
            }
        }
    return map;
}

FileHead PageWriter::AppendMaps()
{
    FileHead head;
    head.sectionMapPage = uint32_t(m_pageSizes.size() + 1);
    head.pageMapPage = head.sectionMapPage + 1;
    head.lastPage = head.pageCount = head.pageMapPage;
    const uint64_t before = m_at;
    Append(SystemPageBytes(kSectionMapType, SectionMap()));
    Pad();
    m_pageSizes.push_back(m_at - before);
    head.pageMapAt = m_at - kFirstPageAt;
    // The map of pages tells its own size, which depends on that.
    std::string page;
    for (uint64_t size = kPageStep;; size = RoundUp(page.size(), kPageStep)) {
        std::string map;
        for (size_t i = 0; i <= m_pageSizes.size(); ++i) {
            AppendLong(map, i + 1);
            AppendLong(map, i < m_pageSizes.size() ? m_pageSizes[i] : size);
        }
        page = SystemPageBytes(kPageMapType, map);
        if (page.size() <= size) {
            page.resize(size, '\0');
            break;
        }
    }
    Append(page);
    head.pagesEnd = m_at - kFirstPageAt;
    head.copyAt = m_at;
    return head;
}

// 0 when there is no such section.
uint64_t PageWriter::DataAddress(std::string_view section) const
{
    for (const SectionRow& row : m_sections)
        if (row.kind->name == section && !row.pages.empty())
            return row.pages[0].address + kDataHeadSize;
    return 0;
}

void PageWriter::Finish(const DwgSections& late, const std::vector<uint64_t>&)
{
    FlushObjects(0);
    m_sections.push_back(std::move(m_objects));
    DwgSections map;
    map.all.emplace_back(kHandlesSection, WriteObjectMap(m_places));
    AddSections(map);
    AddSections(late);
    const std::string hidden = FileHeadBytes(AppendMaps());
    Append(hidden);
    std::string head = FirstBytes(m_kind, DataAddress(kPreviewSection));
    head += '\0';
    head += char(m_kind.program);
    head += char(m_kind.programMaintenance);
    for (const uint64_t word : {uint64_t(0), uint64_t(0), DataAddress(kSummarySection), uint64_t(0), kFileHeadAt,
                                DataAddress(kAppInfoSection), DataAddress(kAppHistorySection)})
        AppendLong(head, word);
    head.resize(kFileHeadAt, '\0');
    head += hidden;
    head.append(reinterpret_cast<const char*>(kBehindHead), sizeof kBehindHead);
    m_file.WriteAt(0, head);
}

}   // namespace

std::unique_ptr<ContainerWriter> NewPageWriter(AtomicFile& file, const DwgSections& kind)
{
    return std::make_unique<PageWriter>(file, kind);
}

}   // namespace KxPlat
