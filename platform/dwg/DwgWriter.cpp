#include "DwgWriter.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbDictionary.h"
#include "../db/core/DbCore.h"
#include "../win/AtomicFile.h"
#include "ClassTable.h"
#include "ContainerOut.h"
#include "DwgCodePages.h"
#include "HeaderSection.h"
#include "ObjectsOut.h"
#include "SmallSections.h"
#include "SummaryInfo.h"
#include <cmath>

namespace KxPlat {

namespace {

// Programs that wrote the format when it was new, by their numbers, since readers judge a file by them.
constexpr uint8_t kProgram2000 = 0x17, kProgram2010 = 0x1D;
constexpr uint8_t kMaintenance = 6;

DwgTime TimeOf(const DbCore& core, std::string_view variable)
{
    const double time = core.header.Real(variable);
    if (!(time >= 0 && time < 4294967295.0))
        return {};
    return {uint32_t(time), uint32_t(std::floor((time - std::floor(time)) * 86400000.0))};
}

class DwgWriter {
public:
    DwgWriter(const DbCore& core, AtomicFile& file, AcDb::AcDbDwgVersion version);
    uint64_t Write();

private:
    std::string Kept(std::string_view name) const;
    std::string Summary() const;
    DwgSections Early() const;
    DwgSections Late(const ObjectsWritten& objects) const;
    uint64_t DictionaryHandle(const wchar_t* name) const;
    std::vector<uint64_t> SecondHeaderHandles(const ObjectsWritten& objects) const;

    const DbCore& m_core;
    AtomicFile& m_file;
    DwgSections m_kind;
    SectionForm m_form;
};

DwgWriter::DwgWriter(const DbCore& core, AtomicFile& file, AcDb::AcDbDwgVersion version) : m_core(core), m_file(file)
{
    const DwgCodePage& page =
        CodePageNamed(std::wstring_view(core.form.codePage, size_t(core.form.codePage.GetLength())));
    m_kind.version = version;
    m_kind.maintenance = m_kind.programMaintenance = kMaintenance;
    m_kind.program = version < kR2004 ? kProgram2000 : kProgram2010;
    m_kind.codePage = page.number;
    m_form = {version, kMaintenance, TextCodec(page.windows)};
}

std::string DwgWriter::Kept(std::string_view name) const
{
    for (const KeptBytes& section : m_core.form.dwgSections)
        if (section.name == name)
            return *section.bytes;
    return {};
}

std::string DwgWriter::Summary() const
{
    SummaryInfo summary;
    if (const std::string kept = Kept(kSummarySection); !kept.empty())
        summary = ReadSummary(kept, true, TextCodec());
    const CString savedBy = m_core.header.Text("$LASTSAVEDBY");
    if (!savedBy.IsEmpty())
        summary.texts[SummaryInfo::kSavedBy] = std::wstring(savedBy, size_t(savedBy.GetLength()));
    return WriteSummary(summary);
}

DwgSections DwgWriter::Early() const
{
    DwgSections sections;
    const auto add = [&](std::string_view name, std::string bytes) {
        if (!bytes.empty())
            sections.all.emplace_back(name, std::move(bytes));
    };
    std::string preview = Kept(kPreviewSection);
    if (preview.empty())
        preview = EmptyPreviewBytes();
    if (m_kind.version < kR2004) {
        add(kPreviewSection, std::move(preview));
        return sections;
    }
    add(kSummarySection, Summary());
    add(kPreviewSection, std::move(preview));
    const std::string appInfo = Kept(kAppInfoSection);
    add(kAppInfoSection, appInfo.empty() ? AppInfoBytes() : appInfo);
    add(kAppHistorySection, Kept(kAppHistorySection));
    add(kFileListSection, Kept(kFileListSection));
    add(kRevHistorySection, RevHistoryBytes());
    return sections;
}

DwgSections DwgWriter::Late(const ObjectsWritten& objects) const
{
    DwgSections sections;
    const DwgTime created = TimeOf(m_core, "$TDCREATE"), updated = TimeOf(m_core, "$TDUPDATE");
    const auto add = [&](std::string_view name, std::string bytes) {
        sections.all.emplace_back(name, std::move(bytes));
    };
    if (m_kind.version >= kR2004)
        add(kFreeSpaceSection, FreeSpaceBytes(m_kind, objects.count, updated));
    add(kTemplateSection, TemplateBytes(m_kind, m_core.header.Integer("$MEASUREMENT") != 0));
    add(kClassesSection, WriteClasses(objects.classes, m_form));
    add(kAuxHeaderSection, AuxHeaderBytes(m_kind, created, updated, objects.nextHandle));
    add(kHeaderSection, WriteHeader(m_core, m_form, objects.roots, objects.nextHandle));
    return sections;
}

uint64_t DwgWriter::DictionaryHandle(const wchar_t* name) const
{
    const AcDbStub* root = m_core.namedObjects;
    const AcDbDictionary* all = root == nullptr ? nullptr : AcDbDictionary::cast(root->object);
    AcDbObjectId id;
    if (all == nullptr || all->getAt(name, id) != Acad::eOk)
        return 0;
    const AcDbStub* stub = id;
    return stub->handle;
}

std::vector<uint64_t> DwgWriter::SecondHeaderHandles(const ObjectsWritten& objects) const
{
    std::vector<uint64_t> handles = {objects.nextHandle};
    for (const TableKind kind :
         {TableKind::Block, TableKind::Layer, TableKind::TextStyle, TableKind::Linetype, TableKind::View,
          TableKind::Ucs, TableKind::Viewport, TableKind::RegApp, TableKind::DimStyle})
        handles.push_back(objects.roots.tables[size_t(kind)]);
    handles.push_back(objects.roots.viewportHeaders);
    handles.push_back(objects.roots.namedObjects);
    handles.push_back(DictionaryHandle(L"ACAD_MLINESTYLE"));
    handles.push_back(DictionaryHandle(L"ACAD_GROUP"));
    return handles;
}

uint64_t DwgWriter::Write()
{
    const std::unique_ptr<ContainerWriter> container = NewContainerWriter(m_file, m_kind);
    container->Begin(Early());
    const ObjectsWritten objects =
        WriteObjects(*m_core.database, {m_kind.version, m_form.codec.codePage()}, *container);
    container->Finish(Late(objects), SecondHeaderHandles(objects));
    return objects.dropped;
}

}   // namespace

AcDb::AcDbDwgVersion WritableDwgVersion(AcDb::AcDbDwgVersion wanted)
{
    return wanted < kR2004 && wanted != AcDb::kDHL_CURRENT ? kR2000 : kR2010;
}

DwgWritten WriteDwg(const AcDbDatabase& database, const std::string& hostPath, AcDb::AcDbDwgVersion version)
{
    DwgWritten written;
    AtomicFile file;
    written.error = file.Open(hostPath);
    if (written.error != 0)
        return written;
    written.dropped = DwgWriter(CoreOf(database), file, WritableDwgVersion(version)).Write();
    written.error = file.Commit();
    return written;
}

}   // namespace KxPlat
