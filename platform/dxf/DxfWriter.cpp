#include "DxfWriter.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbSymbolTable.h"
#include "../win/AtomicFile.h"
#include "DxfNames.h"
#include "DxfSink.h"
#include "DxfVersion.h"
#include <unordered_set>

namespace KxPlat {

namespace {

bool IsLive(const AcDbStub* stub)
{
    return stub != nullptr && stub->object != nullptr && !stub->erased;
}

template <class Writer>
class DxfWriter {
public:
    DxfWriter(DbCore& core, Writer& writer, const TextCodec& codec, AcDb::AcDbDwgVersion version)
        : m_core(core), m_writer(writer), m_codec(codec),
          m_sink(writer, codec, core, core.form.isDxf && version == core.form.version), m_version(version)
    {
        m_form.version = version;
        m_form.asRead = true;
    }
    void Write();

private:
    using SectionWriter = void (DxfWriter::*)();
    struct SectionRow {
        const char* name;
        SectionWriter write;
        AcDb::AcDbDwgVersion since;
    };
    static const SectionRow kSections[];

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
    Writer& m_writer;
    const TextCodec& m_codec;
    DxfSink<Writer> m_sink;
    AcDb::AcDbDwgVersion m_version;
    GroupForm m_form;
};

template <class Writer>
const typename DxfWriter<Writer>::SectionRow DxfWriter<Writer>::kSections[] = {
    {"HEADER", &DxfWriter::Header, AcDb::kDHL_1009},     {"CLASSES", &DxfWriter::Classes, AcDb::kDHL_1012},
    {"TABLES", &DxfWriter::Tables, AcDb::kDHL_1009},     {"BLOCKS", &DxfWriter::Blocks, AcDb::kDHL_1009},
    {"ENTITIES", &DxfWriter::Entities, AcDb::kDHL_1009}, {"OBJECTS", &DxfWriter::Objects, AcDb::kDHL_1012},
};

template <class Writer>
void DxfWriter<Writer>::Write()
{
    for (const std::string& comment : m_core.form.comments)
        m_writer.Text(999, comment);
    for (const SectionRow& row : kSections)
        if (m_version >= row.since)
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
    for (const HeaderVar& variable : m_core.header.All()) {
        if (!IsHeaderVarOf(variable.name, m_version, m_core.form.version))
            continue;
        m_writer.Text(9, variable.name);
        if (variable.name == "$ACADVER" && m_version != m_core.form.version)
            m_writer.Text(1, NameOfVersion(m_version));
        else if (variable.name == "$HANDSEED" && m_core.form.hasHandles)
            m_writer.Handle(5, m_core.handles.NextHandle());
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
            if (name == row.name && done.insert(row.name).second)
                Table(row);
    for (const DxfTableName& row : kDxfTables)
        if (done.count(row.name) == 0)
            Table(row);
}

template <class Writer>
void DxfWriter<Writer>::Table(const DxfTableName& row)
{
    if (IsR12() && row.kind == TableKind::Block)
        return;
    const AcDbSymbolTable& table = *m_core.Table(row.kind);
    m_writer.Text(0, "TABLE");
    m_writer.Text(2, row.name);
    m_sink.Groups(table, m_form);
    for (const AcDbStub* record : table.records())
        if (IsLive(record))
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
        if (IsLive(stub))
            Block(static_cast<AcDbBlockTableRecord&>(*stub->object));
}

template <class Writer>
void DxfWriter<Writer>::Block(AcDbBlockTableRecord& block)
{
    // Old files have no need of blocks for the spaces, unless they came with them.
    const bool isSpace = IsSpace(block);
    if (IsR12() && (isSpace || block.isPaperSpace()) &&
        (block.beginStub() == nullptr || ObjectAccess::Shape(*block.beginStub()->object) == 0))
        return;
    block.completeBlock();
    m_sink.Write("BLOCK", *block.beginStub()->object, m_form);
    if (!isSpace)
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
    const AcDbEntity& entity = static_cast<const AcDbEntity&>(*stub->object);
    m_sink.Write(DxfNameOf(entity), entity, m_form);
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
        if (IsLive(stub) && !AcDbObjectId(const_cast<AcDbStub*>(stub)).isEffectivelyErased())
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

int WriteDxf(AcDbDatabase& database, const std::string& hostPath, const DxfOutput& output)
{
    AtomicFile file;
    if (const int error = file.Open(hostPath))
        return error;
    DbCore& core = CoreOf(database);
    OutBuffer out([&file](std::string_view bytes) {
        file.Write(bytes);
        return true;
    });
    const TextCodec names(core.form.version, "ASCII");
    const TextCodec codec(output.version, names.Encode(core.form.codePage));
    if (output.isBinary)
        WriteAll(core, BinaryTagWriter(out, output.version < AcDb::kDHL_1012), codec, output.version);
    else
        WriteAll(core, AsciiTagWriter(out, {core.form.hasCrLf, core.form.isPadded}), codec, output.version);
    out.Empty();
    return file.Commit();
}

}   // namespace KxPlat
