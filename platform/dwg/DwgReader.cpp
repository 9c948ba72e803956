#include "DwgReader.h"
#include "../db/AcDbDatabase.h"
#include "../db/core/DbCore.h"
#include "../win/MappedFile.h"
#include "ByteWalk.h"
#include "ClassTable.h"
#include "Container.h"
#include "ContainerOut.h"
#include "DwgCodePages.h"
#include "HeaderSection.h"
#include "ObjectMap.h"
#include "ObjectScan.h"
#include "SmallSections.h"
#include "SummaryInfo.h"
#include <algorithm>

namespace KxPlat {

namespace {

class DwgReader {
public:
    DwgReader(DbCore& core, DwgReport& report, MappedFile* mapped) : m_core(core), m_report(report), m_mapped(mapped) {}
    bool Read(std::string_view file, ObjectsRead& read);

private:
    void TakeForm();
    std::vector<ObjectPlace> Places(std::string_view objects, DwgRoots& roots);
    void TakeSections();
    void Keep(std::string_view name, std::string bytes);
    void GiveBack(std::string_view file, ObjectsToRead& input);

    DbCore& m_core;
    DwgReport& m_report;
    MappedFile* m_mapped;
    DwgSections m_sections;
    SectionForm m_form;
};

void DwgReader::TakeForm()
{
    const DwgCodePage& page = CodePageOfNumber(m_sections.codePage);
    m_form = {m_sections.version, m_sections.maintenance, TextCodec(page.windows)};
    m_core.form = FileForm();
    m_core.form.version = m_sections.version;
    m_core.form.codePage = page.name;
    m_core.form.codePageNumber = m_sections.version >= kR2007 ? 65001 : int(page.windows);
}

// A damaged map is made up for by a search for objects, and roots that the header does not tell by a look at all of
// them.
std::vector<ObjectPlace> DwgReader::Places(std::string_view objects, DwgRoots& roots)
{
    const uint64_t before = m_report.mendedCount();
    std::vector<ObjectPlace> places;
    if (m_sections.Find(kHandlesSection) != nullptr)
        places = ReadObjectMap(m_sections.BytesOf(kHandlesSection), m_report);
    if (m_report.mendedCount() != before || places.empty())
        AddLostObjects(objects, m_sections.version, places);
    const bool hasTables = std::find(std::begin(roots.tables), std::end(roots.tables), 0u) == std::end(roots.tables);
    if (!hasTables || roots.namedObjects == 0)
        FindRoots(objects, m_sections.version, places, roots);
    return places;
}

void DwgReader::Keep(std::string_view name, std::string bytes)
{
    if (!bytes.empty())
        m_core.form.dwgSections.push_back({std::string(name), std::make_shared<const std::string>(std::move(bytes))});
}

// What the next file gets as it is. A preview's addresses are made to count from its own beginning.
void DwgReader::TakeSections()
{
    constexpr size_t kCountAt = 20, kRowSize = 9;
    const std::string_view preview = m_sections.BytesOf(kPreviewSection);
    if (preview.size() > kCountAt + kRowSize && preview[kCountAt] != 0) {
        const size_t count = uint8_t(preview[kCountAt]);
        const uint64_t first = ByteWalk(preview, kCountAt + 2).Long();
        Keep(kPreviewSection, MovedPreview(preview, int64_t(kCountAt + 1 + count * kRowSize) - int64_t(first)));
    }
    if (m_sections.version < kR2004)
        return;
    for (const std::string_view name : {kAppInfoSection, kAppHistorySection, kFileListSection})
        Keep(name, std::string(m_sections.BytesOf(name)));
}

// Of a file whose objects have been unpacked, all of it; else what lies behind the reader.
void DwgReader::GiveBack(std::string_view file, ObjectsToRead& input)
{
    if (m_mapped == nullptr)
        return;
    const bool isPartOfFile = input.objects.data() >= file.data() && input.objects.data() < file.data() + file.size();
    if (!isPartOfFile)
        return m_mapped->Drop(file.size());
    const uint64_t start = uint64_t(input.objects.data() - file.data());
    input.passed = [this, start](uint64_t address) { m_mapped->Drop(start + address); };
}

bool DwgReader::Read(std::string_view file, ObjectsRead& read)
{
    if (!ReadContainer(file, m_sections, m_report))
        return false;
    TakeForm();
    const std::string_view objects = m_sections.BytesOf(kObjectsSection);
    if (objects.empty()) {
        m_report.Fail("the objects of the drawing are lost");
        return false;
    }
    HeaderContents header = ReadHeader(m_sections.BytesOf(kHeaderSection), m_form, m_report);
    const std::vector<DwgClass> classes = ReadClasses(m_sections.BytesOf(kClassesSection), m_form, m_report);
    const std::vector<ObjectPlace> places = Places(objects, header.roots);
    if (const HeaderValue* seed = header.Find("HANDSEED"); seed != nullptr && seed->handle >> 48 == 0)
        m_core.handles.RaiseNextHandle(seed->handle);
    ObjectsToRead input;
    input.version = m_sections.version;
    input.codePage = m_form.codec.codePage();
    input.classes = &classes;
    input.places = &places;
    input.objects = objects;
    input.roots = header.roots;
    GiveBack(file, input);
    read = ReadObjects(*m_core.database, input, m_report);
    if (read.count == 0) {
        m_report.Fail("no object of the drawing can be read");
        return false;
    }
    TakeClasses(m_core, classes, m_sections.version);
    TakeSections();
    header.codePageName = m_core.form.codePage;
    header.measurement = IsMetric(m_sections.BytesOf(kTemplateSection), m_sections.version);
    if (const std::string_view summary = m_sections.BytesOf(kSummarySection); !summary.empty()) {
        const SummaryInfo info = ReadSummary(summary, m_sections.version >= kR2007, m_form.codec);
        header.savedBy = info.texts[SummaryInfo::kSavedBy];
        Keep(kSummarySection, WriteSummary(info));
    }
    TakeHeader(m_core, header);
    m_core.form.repairs += m_report.mendedCount();
    return true;
}

}   // namespace

bool ReadDwg(AcDbDatabase& database, std::string_view file, DwgReport& report, ObjectsRead* read, MappedFile* mapped)
{
    ObjectsRead found;
    const bool isRead = DwgReader(CoreOf(database), report, mapped).Read(file, found);
    if (read != nullptr)
        *read = found;
    return isRead;
}

}   // namespace KxPlat
