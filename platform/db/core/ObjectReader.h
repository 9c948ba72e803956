// Puts groups into an object, one by one, along the shapes of its database. File readers and entmod share it.
#pragma once
#include "../../rx/acadstrc.h"
#include "DbCore.h"
#include "ObjectAccess.h"

namespace KxPlat {

// `Source` is where the groups' values come from; it stands at one group at a time:
//   int code(); double Real(); int64_t Integer(); CString Text(); std::string_view Raw();
//   uint64_t Handle(); Bytes Binary();
//   AcDbStub* Record(TableKind, DbCore&)   the symbol table record that the text names
// One reader serves one object: Begin, Put for each group, End.
template <class Source>
class ObjectReader {
public:
    explicit ObjectReader(DbCore& core) : m_core(core) {}

    void Begin(AcDbObject& object)
    {
        m_object = &object;
        m_schema = &object.fields();
        m_base = reinterpret_cast<char*>(&object);
        m_node = m_core.shapes.RootOf(*m_schema);
        m_handle = 0;
        m_owner = nullptr;
    }
    void Put(Source& source)
    {
        const uint32_t before = m_node;
        m_node = m_core.shapes.Step(*m_schema, m_node, source.code(), [&] { return source.Raw(); });
        const ShapeNode& step = m_core.shapes[m_node];
        switch (step.op) {
        case Op::Real:
            At<double>(step) = source.Real();
            break;
        case Op::Int16:
            At<int16_t>(step) = int16_t(source.Integer());
            break;
        case Op::Int32:
            At<int32_t>(step) = int32_t(source.Integer());
            break;
        case Op::Int64:
            At<int64_t>(step) = source.Integer();
            break;
        case Op::Text:
            At<CString>(step) = source.Text();
            break;
        case Op::Name:
            At<AcDbObjectId>(step) = source.Record(step.table, m_core);
            break;
        case Op::Id:
            At<AcDbObjectId>(step) = Referred(source.Handle());
            break;
        case Op::Handle:
            m_handle = source.Handle();
            break;
        case Op::Owner:
            m_owner = Referred(source.Handle());
            break;
        case Op::List:
            PutInList(source, step);
            break;
        case Op::Bytes:
            At<Bytes>(step) = source.Binary();
            break;
        case Op::Count:
        case Op::Root:
        case Op::Marker:
        case Op::GroupOpen:
        case Op::GroupClose:
            break;
        case Op::Reactor:
            ObjectAccess::Make(*m_object).reactors.push_back(Referred(source.Handle()));
            break;
        case Op::Dictionary:
            ObjectAccess::Make(*m_object).extensionDictionary = Referred(source.Handle());
            break;
        case Op::Other:
            PutAside(ObjectAccess::Make(*m_object).others, source, step, before != m_node);
            break;
        case Op::XData:
            PutAside(ObjectAccess::Make(*m_object).xData, source, step, false);
            break;
        }
    }
    // The shape stays with the object, so that it is written back in the form that it had.
    void End() { ObjectAccess::Shape(*m_object) = m_node; }

    uint64_t handle() const { return m_handle; }
    AcDbStub* owner() const { return m_owner; }

private:
    template <class T>
    T& At(const ShapeNode& step)
    {
        return *reinterpret_cast<T*>(m_base + step.offset);
    }
    AcDbStub* Referred(uint64_t handle) { return handle == 0 ? nullptr : m_core.handles.Get(handle); }

    GroupValue Value(Source& source)
    {
        GroupValue group;
        group.code = int16_t(source.code());
        switch (KindOfGroup(group.code)) {
        case GroupKind::Real:
            group.value = source.Real();
            break;
        case GroupKind::Int16:
        case GroupKind::Int32:
        case GroupKind::Int64:
        case GroupKind::Bool:
            group.value = source.Integer();
            break;
        case GroupKind::Handle:
            group.value = AcDbObjectId(Referred(source.Handle()));
            break;
        case GroupKind::Binary:
            group.value = source.Binary();
            break;
        case GroupKind::Text:
            group.value = source.Text();
            break;
        }
        return group;
    }
    void PutInList(Source& source, const ShapeNode& step)
    {
        const ListField& list = *m_schema->sections()[step.section].fields[step.field].list;
        if (KindOfGroup(source.code()) == GroupKind::Real && list.PutReal(*m_object, source.code(), source.Real()))
            return;
        GroupValue group;
        const TableKind table = list.NameTable(source.code());
        if (table != TableKind::Count) {
            group.code = int16_t(source.code());
            group.value = AcDbObjectId(source.Record(table, m_core));
        } else {
            group = Value(source);
        }
        list.Put(*m_object, group);
    }
    void PutAside(GroupList& groups, Source& source, const ShapeNode& step, bool startsRun)
    {
        groups.push_back(Value(source));
        groups.back().section = step.section;
        groups.back().startsRun = startsRun;
    }

    DbCore& m_core;
    AcDbObject* m_object = nullptr;
    const ClassSchema* m_schema = nullptr;
    char* m_base = nullptr;
    uint32_t m_node = 0;
    uint64_t m_handle = 0;
    AcDbStub* m_owner = nullptr;
};

}   // namespace KxPlat
