#include "PutGroups.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbLayerTableRecord.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/GroupResbuf.h"
#include "../../db/core/ObjectAccess.h"
#include "../../db/core/ObjectReader.h"
#include "../../rx/acutads.h"
#include "../../rx/ResBufs.h"
#include "../../win/CodePage.h"
#include "EntityGroups.h"
#include <algorithm>
#include <numbers>
#include <set>

namespace KxPlat {

namespace {

constexpr int kSelf = -1, kXDataMark = -3, kUnused = -2;

// Of code, code + 10, code + 20 the last: what a flat point has no place for.
bool IsThirdCoordinate(const GroupList& groups, size_t at)
{
    return at >= 2 && groups[at].code - 20 == groups[at - 2].code && groups[at].code - 10 == groups[at - 1].code &&
           IsPointGroup(groups[at - 2].code);
}

// The values of a list of groups, one after another, as an object reader takes them.
class ListSource {
public:
    explicit ListSource(const GroupList& groups) : m_groups(groups) {}

    void Stand(size_t at)
    {
        m_at = at;
        if (code() == 100 || code() == 102)
            m_raw = ToUtf8(std::wstring_view(Text()));
    }
    int code() const { return m_groups[m_at].code; }
    double Real() const { return m_groups[m_at].real(); }
    int64_t Integer() const { return m_groups[m_at].integer(); }
    CString Text() const { return m_groups[m_at].text(); }
    std::string_view Raw() const { return m_raw; }
    uint64_t Handle() const
    {
        const GroupValue& group = m_groups[m_at];
        return std::holds_alternative<CString>(group.value) ? uint64_t(AcDbHandle(group.text()))
                                                            : uint64_t(group.id().handle());
    }
    KxPlat::Bytes Binary() const
    {
        const auto* bytes = std::get_if<KxPlat::Bytes>(&m_groups[m_at].value);
        return bytes == nullptr ? nullptr : *bytes;
    }
    AcDbStub* Record(TableKind table, DbCore& core) const { return core.RecordNamed(table, Text()); }

private:
    const GroupList& m_groups;
    size_t m_at = 0;
    std::string m_raw;
};

// Braces hold reactors and dictionaries, which programs do not change this way.
GroupList WithoutBraces(const GroupList& groups)
{
    GroupList kept;
    bool isInside = false;
    for (const GroupValue& group : groups) {
        if (group.code == 102)
            isInside = group.text() != L"}";
        else if (!isInside && group.code != 5 && group.code != 105)
            kept.push_back(group);
    }
    return kept;
}

Acad::ErrorStatus MakeLayer(AcDbDatabase& database, const CString& name)
{
    AcDbLayerTable* layers = nullptr;
    Acad::ErrorStatus status = database.getSymbolTable(layers, AcDb::kForWrite);
    if (status != Acad::eOk)
        return status;
    auto* layer = new AcDbLayerTableRecord;
    status = layer->setName(name);
    if (status == Acad::eOk)
        status = layers->add(layer);
    if (status == Acad::eOk)
        layer->close();
    else
        delete layer;
    layers->close();
    return status;
}

bool IsImplied(TableKind table, const CString& name)
{
    return name.IsEmpty() || (table == TableKind::Linetype &&
                              (name.CompareNoCase(L"BYLAYER") == 0 || name.CompareNoCase(L"BYBLOCK") == 0));
}

class Filler {
public:
    Filler(AcDbObject& object, AcDbDatabase& database, const GroupList& groups)
        : m_object(object), m_database(database), m_core(CoreOf(database)), m_groups(groups), m_source(groups)
    {
    }

    // Each group with the step of the object's shape that it takes; false when `visit` refuses one.
    template <class Visit>
    bool Walk(Visit&& visit)
    {
        const ClassSchema& schema = m_object.fields();
        uint32_t node = m_core.shapes.RootOf(schema);
        for (size_t i = 0; i < m_groups.size(); ++i) {
            m_source.Stand(i);
            const uint32_t next = m_core.shapes.Step(schema, node, m_source.code(), [&] { return m_source.Raw(); });
            const ShapeNode step = m_core.shapes[next];
            if (step.op == Op::Other && IsThirdCoordinate(m_groups, i))
                continue;
            node = next;
            if (!visit(step))
                return false;
        }
        return true;
    }

    Acad::ErrorStatus CheckNames()
    {
        Acad::ErrorStatus status = Acad::eOk;
        Walk([&](const ShapeNode& step) {
            TableKind table = step.op == Op::Name ? step.table : TableKind::Count;
            if (step.op == Op::List)
                table = m_object.fields().sections()[step.section].fields[step.field].list->NameTable(m_source.code());
            if (table == TableKind::Count)
                return true;
            const CString name = m_source.Text();
            if (IsImplied(table, name) || m_core.Table(table)->find(std::wstring_view(name)) != nullptr)
                return true;
            status = table == TableKind::Layer ? MakeLayer(m_database, name) : Acad::eKeyNotFound;
            return status == Acad::eOk;
        });
        return status;
    }

    void Fill()
    {
        ObjectReader<ListSource> reader(m_core);
        reader.Begin(m_object);
        Walk([&](const ShapeNode& step) {
            if (step.op == Op::List)
                ClearOnce(step);
            if (step.op == Op::Other)
                DropOthers(m_source.code());
            reader.Put(m_source);
            return true;
        });
    }

private:
    void ClearOnce(const ShapeNode& step)
    {
        if (m_cleared.insert({step.section, step.field}).second)
            m_object.fields().sections()[step.section].fields[step.field].list->Clear(m_object);
    }
    void DropOthers(int code)
    {
        if (ObjectAccess::Find(m_object) != nullptr && m_dropped.insert(code).second)
            std::erase_if(ObjectAccess::Make(m_object).others,
                          [&](const GroupValue& group) { return group.code == code; });
    }

    AcDbObject& m_object;
    AcDbDatabase& m_database;
    DbCore& m_core;
    const GroupList& m_groups;
    ListSource m_source;
    std::set<std::pair<int, int>> m_cleared;
    std::set<int> m_dropped;
};

}   // namespace

bool ObjectGroups::Read(const resbuf* chain, AcDbDatabase* database)
{
    for (const resbuf* at = chain; at != nullptr; at = at->rbnext) {
        if (at->restype == kXDataMark) {
            hasXData = true;
            xData = at->rbnext;
            break;
        }
        if (at->restype == kSelf) {
            self.setFromOldId(at->resval.rlname[0]);
            continue;
        }
        if (at->restype == 0 || at->restype == RTDXF0) {
            dxfName = at->resval.rstring;
            continue;
        }
        if (at->restype == kUnused)
            continue;
        resbuf one = *at;
        one.rbnext = nullptr;
        if (GroupsOf(&one, database, groups) != Acad::eOk)
            return false;
    }
    return true;
}

const GroupValue* ObjectGroups::Find(int code) const
{
    for (const GroupValue& group : groups)
        if (group.code == code)
            return &group;
    return nullptr;
}

Acad::ErrorStatus PutGroups(AcDbObject& object, AcDbDatabase& database, const ObjectGroups& from)
{
    GroupList groups = WithoutBraces(from.groups);
    for (GroupValue& group : groups) {
        if (IsAngle(object, group.code))
            group.value = group.real() * 180 / std::numbers::pi;
    }
    Filler filler(object, database, groups);
    Acad::ErrorStatus status = filler.CheckNames();
    if (status != Acad::eOk)
        return status;
    status = object.assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    filler.Fill();
    // An object that is being made has no database of its own yet.
    return from.hasXData && from.xData != nullptr
               ? ReplaceXData(ObjectAccess::Make(object).xData, from.xData, &database)
               : Acad::eOk;
}

}   // namespace KxPlat
