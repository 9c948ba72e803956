#include "DxfWriter.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbDimStyleTableRecord.h"
#include "../db/AcDbSymbolTable.h"
#include "../db/core/OldViews.h"
#include "../ui/Progress.h"
#include "../win/AtomicFile.h"
#include "DxfClassRows.h"
#include "DxfNames.h"
#include "DxfSink.h"
#include "DxfVersion.h"
#include "HiddenBits.h"
#include "TagNumbers.h"
#include <algorithm>
#include <unordered_set>

namespace KxPlat {

namespace {

// Handles from here on leave no room for the next one.
constexpr uint64_t kLastHandle = ~uint64_t(0) - 1;

// There, and to be saved: the contents of xrefs are read anew from their own files.
bool IsLive(const AcDbStub* stub)
{
    return stub != nullptr && stub->object != nullptr && !stub->erased && !stub->fromXref;
}

template <class Writer>
class DxfWriter {
public:
    DxfWriter(DbCore& core, Writer& writer, const TextCodec& codec, AcDb::AcDbDwgVersion version)
        : m_core(core),
          m_writer(writer),
          m_codec(codec),
          m_version(version),
          m_isSameForm(core.form.isDxf && version == core.form.version),
          m_hasHandles(version >= AcDb::kDHL_1012 || core.form.hasHandles),
          m_sink(writer, codec, core, version, m_isSameForm, m_hasHandles)
    {
        m_form.version = version;
        m_form.asRead = true;
    }
    void Write();

private:
    using SectionWriter = void (DxfWriter::*)();
    using SectionTest = bool (DxfWriter::*)() const;
    struct SectionRow {
        const char* name;
        SectionWriter write;
        SectionTest hasContent;
        AcDb::AcDbDwgVersion since;
    };
    static const SectionRow kSections[];
    bool HasHeader() const { return !m_core.header.All().empty(); }
    bool HasClasses() const { return !m_core.form.classes.empty(); }
    bool HasTables() const;
    bool HasBlocks() const;
    bool HasEntities() const { return true; }
    bool HasObjects() const;
    bool IsWanted(const SectionRow& row) const;
    bool IsWanted(TableKind kind) const;
    bool IsWanted(const AcDbStub* stub) const { return IsLive(stub) && !IsLeftOut(*stub); }
    bool IsLeftOut(const AcDbStub& stub) const;
    bool IsBlockWanted(const AcDbStub* stub) const;
    bool IsHandleUnwritten(const AcDbStub& stub) const;
    uint64_t HandleSeed() const;

    bool IsR12() const { return m_version < AcDb::kDHL_1012; }
    void Section(const SectionRow& row);
    void Header();
    void Classes();
    void Tables();
    void Table(const DxfTableName& row);
    void Blocks();
    void Block(AcDbBlockTableRecord& block);
    void Entities();
    void AllEntities(const AcDbBlockTableRecord& block);
    void Entity(const AcDbStub* stub);
    void Objects();
    void Loose();
    void Records(const std::vector<LooseRecord>& records);
    bool IsSpace(const AcDbBlockTableRecord& block) const;

    DbCore& m_core;
    uint64_t m_count = 0;   // of entities
    Progress m_progress{L"Writing", m_core.handles.Size()};
    Writer& m_writer;
    const TextCodec& m_codec;
    AcDb::AcDbDwgVersion m_version;
    bool m_isSameForm;   // the file is of the form in which the drawing came
    bool m_hasHandles;
    DxfSink<Writer> m_sink;
    GroupForm m_form;
};

template <class Writer>
const typename DxfWriter<Writer>::SectionRow DxfWriter<Writer>::kSections[] = {
    {"HEADER", &DxfWriter::Header, &DxfWriter::HasHeader, AcDb::kDHL_1009},
    {"CLASSES", &DxfWriter::Classes, &DxfWriter::HasClasses, AcDb::kDHL_1012},
    {"TABLES", &DxfWriter::Tables, &DxfWriter::HasTables, AcDb::kDHL_1009},
    {"BLOCKS", &DxfWriter::Blocks, &DxfWriter::HasBlocks, AcDb::kDHL_1009},
    {"ENTITIES", &DxfWriter::Entities, &DxfWriter::HasEntities, AcDb::kDHL_1009},
    {"OBJECTS", &DxfWriter::Objects, &DxfWriter::HasObjects, AcDb::kDHL_1012},
};

// What the file did without, it goes on without, as long as nobody changed it. From AC1015 on other objects may refer
// to such a record by its handle; dimension styles are referred to by name only.
template <class Writer>
bool DxfWriter<Writer>::IsLeftOut(const AcDbStub& stub) const
{
    return m_isSameForm && stub.handle >= m_core.form.impliedFrom && stub.handle < m_core.form.impliedTo &&
           (ObjectAccess::State(*stub.object) & kChangedSinceRead) == 0 &&
           (m_version < AcDb::kDHL_1015 || stub.object->isKindOf(AcDbDimStyleTableRecord::desc()));
}

template <class Writer>
bool DxfWriter<Writer>::IsWanted(const SectionRow& row) const
{
    if (m_version < row.since)
        return false;
    const std::vector<std::string>& read = m_core.form.sectionOrder;
    return !m_isSameForm || std::find(read.begin(), read.end(), row.name) != read.end() || (this->*row.hasContent)();
}

template <class Writer>
bool DxfWriter<Writer>::IsWanted(TableKind kind) const
{
    if (IsR12() && kind == TableKind::Block)
        return false;
    const std::vector<AcDbStub*>& records = m_core.Table(kind)->records();
    return !m_isSameForm || m_version >= AcDb::kDHL_1015 ||
           std::any_of(records.begin(), records.end(), [this](const AcDbStub* stub) { return IsWanted(stub); });
}

template <class Writer>
bool DxfWriter<Writer>::HasTables() const
{
    return std::any_of(std::begin(kDxfTables), std::end(kDxfTables),
                       [this](const DxfTableName& row) { return IsWanted(row.kind); });
}

template <class Writer>
bool DxfWriter<Writer>::HasBlocks() const
{
    const std::vector<AcDbStub*>& blocks = m_core.Table(TableKind::Block)->records();
    return std::any_of(blocks.begin(), blocks.end(), [this](const AcDbStub* stub) { return IsBlockWanted(stub); });
}

template <class Writer>
bool DxfWriter<Writer>::HasObjects() const
{
    bool has = false;
    m_core.handles.ForEach(
        [&](const AcDbStub& stub) { has = has || (IsWanted(&stub) && IsPlainObject(*stub.object)); });
    return has;
}

template <class Writer>
bool DxfWriter<Writer>::IsHandleUnwritten(const AcDbStub& stub) const
{
    if (!m_isSameForm || stub.handle < m_core.form.numberedFrom || stub.handle >= m_core.form.impliedTo)
        return false;
    const bool isChanged = (ObjectAccess::State(*stub.object) & kChangedSinceRead) != 0;
    return IsLeftOut(stub) || (IsR12() && !isChanged) || ObjectAccess::Shape(*stub.object) != 0;
}

// The first handle above all that are written, unless the drawing's own is higher.
template <class Writer>
uint64_t DxfWriter<Writer>::HandleSeed() const
{
    uint64_t seed = 1;
    if (const HeaderVar* read = m_core.header.Find("$HANDSEED"))
        if (!read->groups.empty())
            seed = ParseHandle(TextCodec().Encode(read->groups[0].text())).value_or(1);
    if (seed >> 48 != 0)
        seed = 1;
    m_core.handles.ForEach([&](const AcDbStub& stub) {
        if (stub.handle >= seed && stub.handle < kLastHandle && stub.object != nullptr && !stub.fromXref &&
            !IsHandleUnwritten(stub))
            seed = stub.handle + 1;
    });
    return seed;
}

template <class Writer>
void DxfWriter<Writer>::Write()
{
    for (const std::string& comment : m_core.form.comments)
        m_writer.Text(999, comment);
    for (const SectionRow& row : kSections)
        if (IsWanted(row))
            Section(row);
    Loose();
    m_writer.Text(0, "EOF");
}

template <class Writer>
void DxfWriter<Writer>::Section(const SectionRow& row)
{
    m_writer.Text(0, "SECTION");
    m_writer.Text(2, row.name);
    (this->*row.write)();
    m_writer.Text(0, "ENDSEC");
}

template <class Writer>
void DxfWriter<Writer>::Header()
{
    if (!m_isSameForm && m_core.header.Find("$ACADVER") == nullptr) {
        m_writer.Text(9, "$ACADVER");
        m_writer.Text(1, NameOfVersion(m_version));
    }
    if (!m_isSameForm && m_hasHandles && m_core.header.Find("$HANDSEED") == nullptr) {
        m_writer.Text(9, "$HANDSEED");
        m_writer.Handle(5, HandleSeed());
    }
    for (const HeaderVar& variable : m_core.header.All()) {
        // What other file formats keep besides has a name without the sign.
        if (!variable.name.starts_with('$') || !IsHeaderVarOf(variable.name, m_version, m_core.form.version))
            continue;
        m_writer.Text(9, variable.name);
        if (variable.name == "$ACADVER" && m_version != m_core.form.version)
            m_writer.Text(1, NameOfVersion(m_version));
        else if (variable.name == "$HANDSEED" && m_hasHandles)
            m_writer.Handle(5, HandleSeed());
        else
            m_sink.Groups(variable.groups);
    }
}

template <class Writer>
void DxfWriter<Writer>::Records(const std::vector<LooseRecord>& records)
{
    for (const LooseRecord& record : records) {
        m_sink.Text(0, record.name);
        m_sink.Groups(record.groups);
    }
}

template <class Writer>
void DxfWriter<Writer>::Classes()
{
    Records(m_core.form.classes);
    for (const DxfClassRow* row : ClassRowsFor(m_core, m_version, m_isSameForm)) {
        m_writer.Text(0, "CLASS");
        m_writer.Text(1, row->dxfName);
        m_sink.Text(2, row->className);
        m_sink.Text(3, row->application);
        m_writer.Integer(90, row->proxyFlags);
        if (m_version >= AcDb::kDHL_1018)
            m_writer.Integer(91, 1);
        m_writer.Integer(280, 0);
        m_writer.Integer(281, row->isEntity);
    }
}

template <class Writer>
void DxfWriter<Writer>::Loose()
{
    for (const LooseSection& section : m_core.form.sections) {
        if (!IsSectionOf(section.name, m_version))
            continue;
        m_writer.Text(0, "SECTION");
        if (!section.name.empty())
            m_writer.Text(2, section.name);
        m_sink.Groups(section.head);
        Records(section.records);
        m_writer.Text(0, "ENDSEC");
    }
}

// In the order of the file; then what it did not have.
template <class Writer>
void DxfWriter<Writer>::Tables()
{
    std::unordered_set<std::string_view> done;
    for (const std::string& name : m_core.form.tableOrder)
        for (const DxfTableName& row : kDxfTables)
            if (name == row.name && (m_isSameForm || IsWanted(row.kind)) && done.insert(row.name).second)
                Table(row);
    for (const DxfTableName& row : kDxfTables)
        if (done.count(row.name) == 0 && IsWanted(row.kind))
            Table(row);
}

template <class Writer>
void DxfWriter<Writer>::Table(const DxfTableName& row)
{
    const AcDbSymbolTable& table = *m_core.Table(row.kind);
    m_writer.Text(0, "TABLE");
    m_writer.Text(2, row.name);
    m_sink.Groups(table, m_form);
    for (const AcDbStub* record : table.records())
        if (IsWanted(record))
            m_sink.Write(row.name, *record->object, m_form);
    m_writer.Text(0, "ENDTAB");
}

// The model space and the active layout: their entities stand in the section of their own.
template <class Writer>
bool DxfWriter<Writer>::IsSpace(const AcDbBlockTableRecord& block) const
{
    return block.isModelSpace() || (block.isPaperSpace() && block.nameText().GetLength() == 12);
}

template <class Writer>
void DxfWriter<Writer>::Blocks()
{
    for (AcDbStub* stub : m_core.Table(TableKind::Block)->records())
        if (IsBlockWanted(stub))
            Block(static_cast<AcDbBlockTableRecord&>(*stub->object));
}

// The oldest files have no need of blocks for the spaces, unless they came with them.
template <class Writer>
bool DxfWriter<Writer>::IsBlockWanted(const AcDbStub* stub) const
{
    if (!IsLive(stub))
        return false;
    const AcDbBlockTableRecord& block = static_cast<const AcDbBlockTableRecord&>(*stub->object);
    if (block.beginStub() != nullptr && ObjectAccess::Shape(*block.beginStub()->object) != 0)
        return true;
    return !IsLeftOut(*stub) && !(IsR12() && (block.isModelSpace() || block.isPaperSpace()));
}

template <class Writer>
void DxfWriter<Writer>::Block(AcDbBlockTableRecord& block)
{
    block.completeBlock();
    m_sink.Write("BLOCK", *block.beginStub()->object, m_form);
    if (!IsSpace(block))
        AllEntities(block);
    m_sink.Write("ENDBLK", *block.endStub()->object, m_form);
}

template <class Writer>
void DxfWriter<Writer>::Entities()
{
    for (const bool isPaper : {false, true})
        for (const AcDbStub* stub : m_core.Table(TableKind::Block)->records()) {
            const AcDbBlockTableRecord& block = static_cast<const AcDbBlockTableRecord&>(*stub->object);
            if (IsLive(stub) && IsSpace(block) && block.isPaperSpace() == isPaper)
                AllEntities(block);
        }
}

template <class Writer>
void DxfWriter<Writer>::AllEntities(const AcDbBlockTableRecord& block)
{
    for (const AcDbStub* stub : block.entities())
        if (IsLive(stub))
            Entity(stub);
}

template <class Writer>
void DxfWriter<Writer>::Entity(const AcDbStub* stub)
{
    m_progress.At(++m_count);
    const AcDbEntity& entity = static_cast<const AcDbEntity&>(*stub->object);
    const bool isFromFile = m_isSameForm && ObjectAccess::Shape(entity) != 0;
    if (IsR12() && !isFromFile && WriteOldForm(entity, m_sink))
        return;
    if (WriteTableAsInsert(entity, m_sink))
        return;
    m_sink.Write(DxfNameOf(entity), entity, m_form);
    if (m_version < AcDb::kDHL_1015 && !m_isSameForm)
        WriteOldView(entity, m_sink);
    const std::vector<AcDbStub*>* parts = entity.parts();
    if (parts == nullptr)
        return;
    for (const AcDbStub* part : *parts)
        if (IsLive(part))
            Entity(part);
}

// In the order of the file; then those that came later, in the order of their making.
template <class Writer>
void DxfWriter<Writer>::Objects()
{
    const auto write = [this](const AcDbStub* stub) {
        if (IsWanted(stub) && !AcDbObjectId(const_cast<AcDbStub*>(stub)).isEffectivelyErased())
            m_sink.Write(DxfNameOf(*stub->object), *stub->object, m_form);
    };
    if (m_core.form.objectOrder.empty())
        write(m_core.namedObjects);
    std::unordered_set<const AcDbStub*> done(m_core.form.objectOrder.begin(), m_core.form.objectOrder.end());
    done.insert(m_core.namedObjects);
    for (const AcDbStub* stub : m_core.form.objectOrder)
        write(stub);
    m_core.handles.ForEach([&](const AcDbStub& stub) {
        if (stub.object != nullptr && done.count(&stub) == 0 && IsPlainObject(*stub.object))
            write(&stub);
    });
}

template <class Writer>
void WriteAll(DbCore& core, Writer writer, const TextCodec& codec, AcDb::AcDbDwgVersion version)
{
    DxfWriter<Writer>(core, writer, codec, version).Write();
}

}   // namespace

int WriteDxf(AcDbDatabase& database, const std::string& hostPath, const DxfOutput& output, uint64_t* dropped)
{
    AtomicFile file;
    if (const int error = file.Open(hostPath))
        return error;
    DbCore& core = CoreOf(database);
    const HiddenBits hidden(core);
    if (dropped != nullptr)
        *dropped = hidden.count();
    OutBuffer out([&file](std::string_view bytes) {
        file.Write(bytes);
        return true;
    });
    const TextCodec names(core.form.version, "ASCII");
    const TextCodec codec(output.version, names.Encode(core.form.codePage));
    if (output.isBinary)
        WriteAll(core, BinaryTagWriter(out, output.version < AcDb::kDHL_1012), codec, output.version);
    else
        WriteAll(core, AsciiTagWriter(out, {core.form.hasCrLf, core.form.isPadded, std::max(output.precision, 0)}),
                 codec, output.version);
    out.Empty();
    return file.Commit();
}

}   // namespace KxPlat
