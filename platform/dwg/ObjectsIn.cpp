#include "ObjectsIn.h"
#include "../db/AcDbDictionary.h"
#include "../db/AcDbEntity.h"
#include "../db/AcDbProxyEntity.h"
#include "../db/AcDbProxyObject.h"
#include "../db/AcDbSymbolTable.h"
#include "../db/core/DefaultDrawing.h"
#include "../db/core/OldViews.h"
#include "../db/core/RecordNames.h"
#include "../rx/AcRxClass.h"
#include "../ui/Progress.h"
#include "BlockAssembly.h"
#include "Checksums.h"
#include "ObjectHead.h"
#include "ObjectTypes.h"
#include "SpecialPairs.h"
#include <algorithm>
#include <deque>

namespace KxPlat {

AcDbObject* DwgInput::Need(uint64_t handle)
{
    const std::vector<ObjectPlace>& places = *file.places;
    const auto at = std::lower_bound(places.begin(), places.end(), handle,
                                     [](const ObjectPlace& place, uint64_t wanted) { return place.handle < wanted; });
    if (at == places.end() || at->handle != handle)
        return nullptr;
    if (m_depth < kDeepest) {
        ++m_depth;
        ReadOnce(size_t(at - places.begin()));
        --m_depth;
    }
    return StubOf(handle)->object;
}

CString DwgInput::NameOf(uint64_t handle)
{
    const AcDbObject* object = handle == 0 ? nullptr : Need(handle);
    if (object == nullptr)
        return CString();
    if (const AcDbSymbolTableRecord* record = AcDbSymbolTableRecord::cast(object))
        return record->nameText();
    PlaceWanted name;
    name.code = 2;
    const Place place = FindPlace(&object->fields(), false, name);
    if (place.keep == Keep::Member && place.type == FieldType::Text)
        return *reinterpret_cast<const CString*>(reinterpret_cast<const char*>(object) + place.offset);
    if (const Annex* annex = ObjectAccess::Find(*object))
        for (const GroupValue& group : annex->others)
            if (group.code == 2)
                return group.text();
    return CString();
}

namespace {

constexpr size_t kPlacesBetweenTellings = 4096;

// Types of the tenth table, which old files have and nobody needs.
constexpr int kOldViewportTable = 70, kOldViewport = 71;

class ObjectsReader final : public DwgInput {
public:
    ObjectsReader(DbCore& core, const ObjectsToRead& input, DwgReport& report)
        : DwgInput(core, input, report), m_types(input.version, *input.classes)
    {
    }
    ObjectsRead Run();

protected:
    void ReadAt(size_t place) override;

private:
    // An object's frame: where its body lies, and what stands before the values that all objects share.
    struct Frame {
        uint64_t handle = 0;
        size_t body = 0, bodyEnd = 0;   // bits
        int type = 0;
        BitReader data;       // behind the type
        size_t dataEnd = 0;   // 0: told later
    };
    const char* Open(size_t place, Frame& frame);
    AcDbObject* Make(const ObjectType& type, uint64_t handle);
    // False when not even the common part can be read.
    bool Decode(ObjectDecoder& in, const Frame& frame, const ObjectType& type, bool isKept);
    void Keep(const ObjectDecoder& in, const ObjectType& type, const ObjectHead& head, int number);
    void Settle(const ObjectDecoder& in, const ObjectType& type, const ObjectHead& head);
    void MakeTables();
    void NameRoots();

    ObjectTypes m_types;
    std::deque<ObjectDecoder> m_decoders;   // one for each object that waits for another
    size_t m_inUse = 0;
    std::vector<PlacedEntity> m_entities;
    std::vector<AcDbStub*> m_objects, m_records;
    ObjectsRead m_result;
};

// What is wrong with it, or null.
const char* ObjectsReader::Open(size_t place, Frame& frame)
{
    const ObjectPlace& at = (*file.places)[place];
    const std::string_view objects = file.objects;
    frame.handle = at.handle;
    if (at.address >= objects.size())
        return "its place lies outside of the file";
    BitReader in(objects, at.address * 8, objects.size() * 8);
    const size_t size = in.MS();
    const size_t references = version >= kR2010 ? size_t(in.UnsignedMC()) : 0;
    constexpr size_t kChecksum = 16;
    if (in.isBroken() || in.Left() < kChecksum || size > (in.Left() - kChecksum) / 8 || references > size * 8)
        return "it does not fit into the file";
    frame.body = in.Position();
    frame.bodyEnd = frame.body + size * 8;
    const size_t bytes = frame.bodyEnd / 8 - at.address;
    if (Crc16(objects.substr(at.address, bytes)) != BitReader(objects, frame.bodyEnd, frame.bodyEnd + kChecksum).RS())
        report.Mend("an object's checksum is wrong");
    frame.data = BitReader(objects, frame.body, frame.bodyEnd);
    frame.type = version >= kR2010 ? frame.data.OT() : frame.data.BS();
    if (version >= kR2010)
        frame.dataEnd = frame.bodyEnd - references;
    else if (version >= kR2000)
        frame.dataEnd = frame.body + frame.data.RL();
    const uint64_t own = frame.data.H().value;
    if (frame.data.isBroken() || own != at.handle)
        return "another object stands in its place";
    return nullptr;
}

AcDbObject* ObjectsReader::Make(const ObjectType& type, uint64_t handle)
{
    if (type.table != TableKind::Count) {
        AcDbStub* stub = core.tables[size_t(type.table)];
        if (stub->handle == 0 && StubOf(handle)->object == nullptr)
            core.handles.SetHandle(stub, handle);
        return stub->handle == handle ? stub->object : nullptr;
    }
    AcDbObject* made = type.aClass == nullptr ? nullptr : static_cast<AcDbObject*>(type.aClass->create());
    if (made != nullptr)
        return made;
    if (type.isEntity) {
        AcDbProxyEntity* proxy = new AcDbProxyEntity;
        proxy->setDxfName(type.dxfName);
        return proxy;
    }
    AcDbProxyObject* proxy = new AcDbProxyObject;
    proxy->setDxfName(type.dxfName);
    return proxy;
}

void ObjectsReader::Keep(const ObjectDecoder& in, const ObjectType& type, const ObjectHead& head, int number)
{
    auto kept = std::make_shared<KeptBits>();
    kept->version = version;
    kept->type = type.layout == nullptr || number >= 500 ? 0 : number;
    kept->dxfName = type.dxfName;
    kept->isEntity = type.isEntity;
    kept->hasBinaryData = head.hasBinaryData;
    BitWriter bits;
    bits.Append(in.data);
    kept->dataBits = bits.Position();
    bits.FillByte();
    kept->data = bits.Take();
    bits.Clear();
    bits.Append(in.texts);
    kept->textBits = bits.Position();
    bits.FillByte();
    kept->texts = bits.Take();
    BitReader references = in.handles;
    while (references.Left() >= 8) {
        const HandleRef reference = references.H();
        if (references.isBroken())
            break;
        // Relative ones are soft pointers.
        const uint8_t code = reference.code >= 2 && reference.code <= 5 ? reference.code : uint8_t(4);
        kept->references.push_back({code, StubOf(reference.From(in.handle))});
    }
    ObjectAccess::Make(*in.object).bits = std::move(kept);
}

bool ObjectsReader::Decode(ObjectDecoder& in, const Frame& frame, const ObjectType& type, bool isKept)
{
    in.data = frame.data;
    in.handle = frame.handle;
    in.isEntity = type.isEntity;
    in.isRest = in.isForeign = false;
    in.texts = in.handles = BitReader();
    if (version >= kR2000)
        SplitStreams(in, file.objects, frame.dataEnd, frame.bodyEnd);
    AcDbStub* stub = StubOf(frame.handle);
    stub->object = in.object;
    ObjectAccess::Stub(*in.object) = stub;
    ObjectAccess::State(*in.object) &= ~uint32_t(kNewObject);
    HeadReader reader(in, frame.body);
    reader.XData();
    type.isEntity ? reader.Entity() : reader.Object();
    if (in.data.isBroken() || in.handles.isBroken())
        return false;
    if (type.table == TableKind::Count)
        ObjectAccess::Owner(*in.object) = StubOf(reader.head.owner);
    if (isKept || type.layout == nullptr || type.layout->isKept)
        Keep(in, type, reader.head, frame.type);
    if (!isKept && type.program != nullptr) {
        in.Run(*type.program);
        if (in.isRest)
            in.handles.Seek(in.handles.End());
        if (in.isForeign || !in.IsExact())
            return true;
    } else {
        ReadRest(in, Step());
        in.handles.Seek(in.handles.End());
    }
    Settle(in, type, reader.head);
    return true;
}

void ObjectsReader::Settle(const ObjectDecoder& in, const ObjectType& type, const ObjectHead& head)
{
    AcDbStub* stub = StubOf(in.handle);
    if (!type.isEntity) {
        if (type.table == TableKind::Count)
            (in.object->isKindOf(AcDbSymbolTableRecord::desc()) ? m_records : m_objects).push_back(stub);
        return;
    }
    const uint64_t owner = head.mode == 2 ? file.roots.modelSpace : head.mode == 1 ? file.roots.paperSpace : head.owner;
    m_entities.push_back({stub, StubOf(owner)});
    if (head.isChained)
        links.push_back({in.handle, head.next});
}

void ObjectsReader::ReadAt(size_t place)
{
    Frame frame;
    if (const char* fault = Open(place, frame))
        return report.Lose((*file.places)[place].handle, fault);
    ++m_result.count;
    if (frame.type == kOldViewportTable || frame.type == kOldViewport)
        return;
    const ObjectType& type = m_types[frame.type];
    if (!type.isKnown)
        return report.Lose(frame.handle, "its class is not in the file");
    const AcDbStub* taken = StubOf(frame.handle);
    if (taken->object != nullptr &&
        (type.table == TableKind::Count || core.tables[size_t(type.table)] != taken))   // the tables are there already
        return report.Lose(frame.handle, "it has the handle of a table");
    if (m_inUse == m_decoders.size())
        m_decoders.emplace_back(*this);
    ObjectDecoder& in = m_decoders[m_inUse++];
    const size_t blockCount = blocks.size(), chainCount = chains.size();
    in.object = Make(type, frame.handle);
    bool isRead = in.object != nullptr && Decode(in, frame, type, false);
    if (isRead && (in.isForeign || !in.IsExact()) && type.table == TableKind::Count) {
        // Half an object is worse than its bits.
        blocks.resize(std::min(blocks.size(), blockCount));
        chains.resize(std::min(chains.size(), chainCount));
        if (!in.isForeign) {
            ++m_result.unused;
            report.Mend("a " + type.dxfName + " is kept by its bits: it is longer or shorter than such objects are");
        }
        delete in.object;
        ObjectType asBits;
        asBits.layout = type.layout;
        asBits.dxfName = type.dxfName;
        asBits.isEntity = type.isEntity;
        in.object = Make(asBits, frame.handle);
        isRead = Decode(in, frame, asBits, true);
    }
    --m_inUse;
    if (!isRead) {
        StubOf(frame.handle)->object = nullptr;
        if (type.table == TableKind::Count)
            delete in.object;
        else if (core.tables[size_t(type.table)]->handle == frame.handle)
            core.tables[size_t(type.table)]->object = in.object;
        return report.Lose(frame.handle, "what all objects have in common cannot be read");
    }
    if (type.layout == nullptr || type.layout->isKept)
        ++m_result.opaque;
}

// All nine, whether the file has them or not.
void ObjectsReader::MakeTables()
{
    for (size_t kind = 0; kind < kTableCount; ++kind) {
        const uint64_t handle = file.roots.tables[kind];
        AcDbStub* stub = handle == 0 ? nullptr : StubOf(handle);
        if (stub == nullptr || stub->object != nullptr)
            stub = core.handles.NewUnnamed();
        stub->object = NewTable(TableKind(kind));
        ObjectAccess::Stub(*stub->object) = stub;
        ObjectAccess::State(*stub->object) &= ~uint32_t(kNewObject);
        core.tables[kind] = stub;
    }
}

void ObjectsReader::NameRoots()
{
    AcDbStub* root = StubOf(file.roots.namedObjects);
    if (root != nullptr && root->object != nullptr && root->object->isKindOf(AcDbDictionary::desc()))
        core.namedObjects = root;
    // The first object of all is the root of the others.
    const auto place = std::find(m_objects.begin(), m_objects.end(), core.namedObjects);
    if (place != m_objects.end())
        std::rotate(m_objects.begin(), place, place + 1);
    core.form.objectOrder = std::move(m_objects);
    core.form.classNumbers.clear();
    for (const DwgClass& row : *file.classes)
        core.form.classNumbers.push_back(row.number);
}

ObjectsRead ObjectsReader::Run()
{
    MakeTables();
    // Names first: texts of extended data are names of records, and styles are.
    static const TableKind order[] = {TableKind::RegApp, TableKind::Linetype, TableKind::Layer};
    for (TableKind kind : order)
        Need(file.roots.tables[size_t(kind)]);
    const uint64_t last = file.places->empty() ? 0 : file.places->back().handle;
    Progress progress(L"Reading", file.places->size());
    m_entities.reserve(file.places->size());
    for (size_t place = 0; place < file.places->size(); ++place) {
        ReadOnce(place);
        if (place % kPlacesBetweenTellings == 0 && file.passed)
            file.passed((*file.places)[place].address);
        progress.At(place);
    }
    for (AcDbStub* stub : core.tables)
        if (stub->handle == 0)
            core.handles.SetHandle(stub, std::max(core.handles.NextHandle(), last + 1));
    core.handles.RaiseNextHandle(last + 1);
    AttachRecordsLeftOver(*this, m_records);
    AssembleBlocks(*this, m_entities);
    NameRoots();
    if (version < kR2000)
        TakeOldViews(core);
    return m_result;
}

}   // namespace

ObjectsRead ReadObjects(AcDbDatabase& database, const ObjectsToRead& input, DwgReport& report)
{
    return ObjectsReader(CoreOf(database), input, report).Run();
}

}   // namespace KxPlat
