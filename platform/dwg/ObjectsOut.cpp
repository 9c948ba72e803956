#include "ObjectsOut.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbDictionary.h"
#include "../db/AcDbProxyEntity.h"
#include "../db/AcDbProxyObject.h"
#include "../db/AcDbSequenceEnd.h"
#include "../db/AcDbTable.h"
#include "../rx/AcRxClass.h"
#include "../ui/Progress.h"
#include "../win/CodePage.h"
#include "Checksums.h"
#include "HeadWriter.h"
#include "ObjectClasses.h"
#include "ObjectTypes.h"
#include "SpecialPairs.h"
#include <algorithm>

namespace KxPlat {

namespace {

constexpr std::pair<TableKind, int> kTableTypes[] = {
    {TableKind::Block, 48},    {TableKind::Layer, 50},  {TableKind::TextStyle, 52},
    {TableKind::Linetype, 56}, {TableKind::View, 60},   {TableKind::Ucs, 62},
    {TableKind::Viewport, 64}, {TableKind::RegApp, 66}, {TableKind::DimStyle, 68},
};

constexpr int kOldViewportTable = 70;

// How an object of one class is written.
struct Form {
    const Layout* layout = nullptr;   // null: not at all, unless by its bits
    const LayoutProgram* program = nullptr;
    bool isEntity = false;
    bool isTable = false;
};

class ObjectsWriter {
public:
    ObjectsWriter(DbCore& core, const ObjectsToWrite& wanted, ObjectSink& sink)
        : m_core(core), m_output(core, wanted), m_encoder(m_output), m_classes(core, wanted.version), m_sink(sink)
    {
    }
    ObjectsWritten Run();

private:
    bool IsOfDrawing(const AcDbStub& stub) const;
    void FindRoots();
    void FindDropped();
    void FindBooks(const std::vector<const AcDbStub*>& objects);
    bool CanWrite(const AcDbObject& object);
    const KeptBits* BitsOf(const AcDbObject& object) const;
    const Form& FormOf(const AcDbObject& object);
    const Layout* LayoutFor(const AcDbObject& object) const;

    void Tables();
    void Block(const AcDbBlockTableRecord& block);
    void Entities(const std::vector<AcDbStub*>& list);
    void Write(const AcDbStub* stub, const Neighbours& neighbours = {});
    void WriteBits(const KeptBits& bits);
    void Begin(int type, uint64_t handle);
    void Close(uint64_t handle);
    void OldViewportTable();

    DbCore& m_core;
    uint64_t m_count = 0;
    Progress m_progress{L"Writing", m_core.handles.Size()};
    DwgOutput m_output;
    ObjectEncoder m_encoder;
    ObjectClasses m_classes;
    ObjectSink& m_sink;
    std::unordered_map<std::string, Form> m_proxyForms;
    std::unordered_map<const AcRxClass*, Form> m_forms;
    const AcRxClass* m_lastClass = nullptr;   // of no proxy
    const Form* m_lastForm = nullptr;
    std::vector<std::unique_ptr<LayoutProgram>> m_programs;
    BitWriter m_frame;
    size_t m_sizePlace = 0;   // of the length of the data, in AC1015 files
    ObjectsWritten m_result;
};

bool ObjectsWriter::IsOfDrawing(const AcDbStub& stub) const
{
    return stub.object != nullptr && !stub.erased && !stub.fromXref && stub.handle != 0 &&
           (ObjectAccess::State(*stub.object) & kPlaceholder) == 0;
}

void ObjectsWriter::FindRoots()
{
    DwgRoots& roots = m_output.roots;
    for (size_t kind = 0; kind < kTableCount; ++kind)
        roots.tables[kind] = m_core.tables[kind]->handle;
    const auto handleOf = [this](TableKind kind, const wchar_t* name) {
        return m_output.HandleOf(m_core.Table(kind)->find(name));
    };
    roots.namedObjects = m_output.HandleOf(m_core.namedObjects);
    roots.modelSpace = m_output.HandleOf(m_core.modelSpace);
    roots.paperSpace = handleOf(TableKind::Block, ACDB_PAPER_SPACE);
    if (roots.paperSpace == 0)
        roots.paperSpace = handleOf(TableKind::Block, L"$PAPER_SPACE");
    roots.byLayer = handleOf(TableKind::Linetype, L"ByLayer");
    roots.byBlock = handleOf(TableKind::Linetype, L"ByBlock");
    roots.continuous = handleOf(TableKind::Linetype, L"Continuous");
    m_output.layerZero = handleOf(TableKind::Layer, L"0");
    PlanBlocks(m_output);
}

const Layout* ObjectsWriter::LayoutFor(const AcDbObject& object) const
{
    if (const AcDbProxyEntity* proxy = AcDbProxyEntity::cast(&object))
        return LayoutOfName(proxy->dxfName());
    if (const AcDbProxyObject* proxy = AcDbProxyObject::cast(&object))
        return LayoutOfName(proxy->dxfName());
    // Without its bits a table is the block that shows it.
    if (object.isKindOf(AcDbTable::desc()))
        return LayoutOfClass(L"AcDbBlockReference");
    return LayoutOfClass(object.isA()->name());
}

const Form& ObjectsWriter::FormOf(const AcDbObject& object)
{
    const AcRxClass* aClass = object.isA();
    // Most objects are of the same class as the one before.
    if (aClass == m_lastClass)
        return *m_lastForm;
    const bool isEntity = object.isKindOf(AcDbEntity::desc());
    const bool isProxy = aClass == AcDbProxyEntity::desc() || aClass == AcDbProxyObject::desc();
    Form* form = nullptr;
    if (isProxy) {
        const AcDbProxyEntity* entity = AcDbProxyEntity::cast(&object);
        form = &m_proxyForms[entity != nullptr ? entity->dxfName()
                                               : static_cast<const AcDbProxyObject&>(object).dxfName()];
    } else {
        form = &m_forms[aClass];
        m_lastClass = aClass;
        m_lastForm = form;
    }
    if (form->program != nullptr)
        return *form;
    form->isEntity = isEntity;
    form->isTable = object.isKindOf(AcDbSymbolTable::desc());
    const Layout* layout = LayoutFor(object);
    // A proxy of a built-in class is one that could not be understood.
    const bool fits = layout != nullptr && layout->isEntity == isEntity && !layout->isKept &&
                      (!isProxy || ClassOfLayout(*layout) == nullptr);
    form->layout = fits ? layout : nullptr;
    static const Layout none = {"", 0, false, nullptr, ""};
    m_programs.push_back(CompileLayout(fits ? *layout : none, isProxy ? nullptr : &object.fields(), m_output.version));
    form->program = m_programs.back().get();
    return *form;
}

// Only where they mean the same as when they were read.
const KeptBits* ObjectsWriter::BitsOf(const AcDbObject& object) const
{
    const Annex* annex = ObjectAccess::Find(object);
    return annex != nullptr && annex->bits != nullptr && annex->bits->version == m_output.version ? annex->bits.get()
                                                                                                  : nullptr;
}

// A shape is known by its number; from files that tell its name it is not known.
bool HasShapeNumber(const AcDbObject& object)
{
    if (const Annex* annex = ObjectAccess::Find(object))
        for (const GroupValue& group : annex->others)
            if (group.code == 2)
                return group.text().Find(L'#') == 0;
    return false;
}

bool ObjectsWriter::CanWrite(const AcDbObject& object)
{
    if (const KeptBits* bits = BitsOf(object))
        return bits->type != 0 || m_classes.Knows(bits->dxfName);
    const Form& form = FormOf(object);
    if (form.layout == nullptr)
        return form.isTable;
    constexpr int kShape = 33;
    return form.layout->type != kShape || HasShapeNumber(object);
}

bool IsGoneWithOwner(const AcDbObject& object)
{
    return !object.isKindOf(AcDbSymbolTable::desc()) && !object.isKindOf(AcDbSymbolTableRecord::desc()) &&
           object.objectId().isEffectivelyErased();
}

// The colours of colour books, by their names.
void ObjectsWriter::FindBooks(const std::vector<const AcDbStub*>& objects)
{
    for (const AcDbStub* stub : objects) {
        const AcDbProxyObject* color = AcDbProxyObject::cast(stub->object);
        const Annex* annex = color == nullptr ? nullptr : ObjectAccess::Find(*color);
        if (annex == nullptr || color->dxfName() != "DBCOLOR")
            continue;
        for (const GroupValue& group : annex->others)
            if (group.code == 430)
                m_output.books.emplace(ToUtf8(group.text().GetString()), stub);
    }
}

void ObjectsWriter::FindDropped()
{
    std::vector<const AcDbStub*> owned, absent;
    m_core.handles.ForEach([&](const AcDbStub& stub) {
        if (stub.object != nullptr && (ObjectAccess::State(*stub.object) & kPlaceholder) != 0)
            absent.push_back(&stub);
        if (!IsOfDrawing(stub))
            return;
        if (!CanWrite(*stub.object))
            m_output.dropped.insert(&stub);
        else if (FormOf(*stub.object).isEntity) {
            const AcDbStub* owner = ObjectAccess::Owner(*stub.object);
            if (owner != nullptr && owner->erased)
                absent.push_back(&stub);
        } else if (IsGoneWithOwner(*stub.object))
            absent.push_back(&stub);
        else
            owned.push_back(&stub);
    });
    FindBooks(owned);
    m_result.dropped = m_output.dropped.size();
    // What belongs to them goes with them.
    for (bool isMore = !m_output.dropped.empty(); isMore;) {
        isMore = false;
        for (const AcDbStub* stub : owned)
            if (m_output.dropped.count(ObjectAccess::Owner(*stub->object)) != 0 && m_output.dropped.insert(stub).second)
                isMore = true;
    }
    m_output.dropped.insert(absent.begin(), absent.end());
}

void ObjectsWriter::Begin(int type, uint64_t handle)
{
    BitWriter& data = m_encoder.data;
    m_output.version >= kR2010 ? data.OT(type) : data.BS(type);
    m_sizePlace = data.Position();
    if (m_output.version < kR2010)
        data.RL(0);
    data.H(0, handle);
}

void ObjectsWriter::Close(uint64_t handle)
{
    BitWriter& data = m_encoder.data;
    if (HasStringStream(m_output.version)) {
        const size_t length = m_encoder.texts.Position();
        if (length > 0) {
            data.Append(m_encoder.texts);
            if (length > 0x7FFF) {
                data.RS(int(length >> 15));
                data.RS(int(length & 0x7FFF) | 0x8000);
            } else
                data.RS(int(length));
        }
        data.B(length > 0);
    }
    const size_t bits = data.Position();
    data.Append(m_encoder.handles);
    data.FillByte(true);
    if (m_output.version < kR2010)
        data.PatchRL(m_sizePlace, uint32_t(bits));
    const std::string_view body = data.bytes();
    m_frame.Clear();
    m_frame.MS(uint32_t(body.size()));
    if (m_output.version >= kR2010)
        m_frame.UnsignedMC(body.size() * 8 - bits);
    m_frame.Bytes(body);
    m_frame.RS(Crc16(m_frame.bytes()));
    m_sink.Add(handle, m_frame.bytes());
    ++m_result.count;
}

void ObjectsWriter::WriteBits(const KeptBits& bits)
{
    m_encoder.data.Append(BitReader(bits.data, 0, bits.dataBits));
    m_encoder.texts.Append(BitReader(bits.texts, 0, bits.textBits));
    for (const KeptBits::Referred& referred : bits.references)
        m_encoder.Ref(referred.code, referred.id);
}

void ObjectsWriter::Write(const AcDbStub* stub, const Neighbours& neighbours)
{
    m_progress.At(++m_count);
    const AcDbObject& object = *stub->object;
    const KeptBits* bits = BitsOf(object);
    const Form& form = FormOf(object);
    int type = 0;
    if (bits != nullptr)
        type = bits->type != 0 ? bits->type : m_classes.NumberOf(bits->dxfName, bits->isEntity);
    else if (form.layout != nullptr)
        type = m_classes.NumberOf(*form.layout);
    if (type == 0) {
        ++m_result.dropped;
        return;
    }
    m_encoder.Begin(object, stub->handle);
    Begin(type, stub->handle);
    WriteXData(m_encoder);
    const bool hasBinaryData = bits != nullptr && bits->hasBinaryData;
    if (form.isEntity)
        WriteEntityHead(m_encoder, neighbours, hasBinaryData);
    else
        WriteObjectHead(m_encoder, ObjectAccess::Owner(object), hasBinaryData);
    bits != nullptr ? WriteBits(*bits) : m_encoder.Run(*form.program);
    Close(stub->handle);
}

void ObjectsWriter::Tables()
{
    for (const auto& row : kTableTypes) {
        const AcDbStub* stub = m_core.tables[size_t(row.first)];
        const std::unique_ptr<LayoutProgram> program =
            CompileLayout(*LayoutOfType(row.second), &stub->object->fields(), m_output.version);
        m_encoder.Begin(*stub->object, stub->handle);
        Begin(row.second, stub->handle);
        WriteXData(m_encoder);
        WriteObjectHead(m_encoder, nullptr, false);
        m_encoder.Run(*program);
        Close(stub->handle);
    }
    if (m_output.version <= kR2000)
        OldViewportTable();
}

// Empty, but there.
void ObjectsWriter::OldViewportTable()
{
    const uint64_t handle = m_result.nextHandle++;
    m_output.roots.viewportHeaders = handle;
    m_encoder.Begin(*m_core.tables[0]->object, handle);
    Begin(kOldViewportTable, handle);
    m_encoder.data.BS(0);
    m_encoder.data.BL(0);
    m_encoder.handles.H(4, 0);
    m_encoder.handles.H(3, 0);
    m_encoder.data.BL(0);
    Close(handle);
}

void ObjectsWriter::Entities(const std::vector<AcDbStub*>& list)
{
    std::vector<const AcDbStub*> written;
    written.reserve(list.size());
    for (const AcDbStub* stub : list)
        if (IsOfDrawing(*stub) && m_output.HandleOf(stub) != 0)
            written.push_back(stub);
    const bool hasEnd = !written.empty() && written.back()->object->isKindOf(AcDbSequenceEnd::desc());
    const size_t chained = written.size() - (hasEnd ? 1 : 0);
    for (size_t i = 0; i < written.size(); ++i) {
        Neighbours neighbours;
        if (i < chained)
            neighbours = {i == 0 ? nullptr : written[i - 1], i + 1 == chained ? nullptr : written[i + 1]};
        Write(written[i], neighbours);
        const std::vector<AcDbStub*>* parts = static_cast<const AcDbEntity*>(written[i]->object)->parts();
        if (parts != nullptr && !parts->empty())
            Entities(*parts);
    }
}

void ObjectsWriter::Block(const AcDbBlockTableRecord& block)
{
    for (const AcDbStub* mark : {block.beginStub(), block.endStub()})
        if (mark != nullptr && IsOfDrawing(*mark))
            Write(mark);
    Entities(block.entities());
}

ObjectsWritten ObjectsWriter::Run()
{
    m_result.nextHandle = m_core.handles.NextHandle();
    FindDropped();
    FindRoots();
    Tables();
    std::vector<const AcDbStub*> objects;
    m_core.handles.ForEach([&](const AcDbStub& stub) {
        if (!IsOfDrawing(stub))
            return;
        const Form& form = FormOf(*stub.object);
        if (!form.isEntity && !form.isTable && m_output.HandleOf(&stub) != 0)
            objects.push_back(&stub);
    });
    std::sort(objects.begin(), objects.end(),
              [](const AcDbStub* a, const AcDbStub* b) { return a->handle < b->handle; });
    for (const AcDbStub* stub : objects)
        Write(stub);
    for (const AcDbStub* record : m_core.Table(TableKind::Block)->records())
        if (IsOfDrawing(*record))
            Block(*static_cast<const AcDbBlockTableRecord*>(record->object));
    m_result.roots = m_output.roots;
    m_result.classes = m_classes.Take();
    return std::move(m_result);
}

}   // namespace

ObjectsWritten WriteObjects(const AcDbDatabase& database, const ObjectsToWrite& wanted, ObjectSink& sink)
{
    return ObjectsWriter(CoreOf(database), wanted, sink).Run();
}

}   // namespace KxPlat
