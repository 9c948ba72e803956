// Hands out an object's groups: as its file had them, or in the order of its field list.
#include "DbCore.h"
#include "Fields.h"
#include "ObjectAccess.h"
#include "Shape.h"

namespace KxPlat {

namespace {

bool IsR12(AcDb::AcDbDwgVersion version)
{
    return version < AcDb::kDHL_1012;
}

ShapeNode MakeStep(Op op, int code, int section, size_t field = 0)
{
    ShapeNode step;
    step.op = op;
    step.code = int16_t(code);
    step.section = uint8_t(section);
    step.field = uint16_t(field);
    return step;
}

Op OpOfField(const Field& field)
{
    static const Op ops[] = {Op::Int16, Op::Int32, Op::Int64, Op::Real,  Op::Real, Op::Real,
                             Op::Text,  Op::Id,    Op::Name,  Op::Bytes, Op::List};
    return field.isCount ? Op::Count : ops[size_t(field.type)];
}

class Walk {
public:
    Walk(const AcDbObject& object, GroupSink& sink, const GroupForm& form)
        : m_object(object), m_schema(object.fields()), m_sink(sink), m_form(form), m_annex(ObjectAccess::Find(object))
    {
    }

    void Run();

private:
    void Canonical(std::vector<ShapeNode>& steps, bool isMarked) const;
    void AddField(std::vector<ShapeNode>& steps, size_t section, size_t field) const;
    std::vector<ShapeNode> Merged(const std::vector<ShapeNode>& read) const;
    bool HasOthersIn(size_t section) const;
    void Emit(const ShapeNode& step);
    void EmitField(const ShapeNode& step);
    void EmitOthers(size_t section, bool wholeSection);
    const char* BraceText(const ShapeNode& step) const;

    const AcDbObject& m_object;
    const ClassSchema& m_schema;
    GroupSink& m_sink;
    GroupForm m_form;
    const Annex* m_annex;
    ShapeTable* m_shapes = nullptr;
    bool m_isAsRead = false;
    size_t m_nextOther = 0;
    std::vector<std::pair<uint8_t, uint16_t>> m_doneLists;
    bool m_isXDataDone = false;
};

bool Walk::HasOthersIn(size_t section) const
{
    if (m_annex != nullptr)
        for (const GroupValue& group : m_annex->others)
            if (group.section == section)
                return true;
    return false;
}

void Walk::AddField(std::vector<ShapeNode>& steps, size_t section, size_t index) const
{
    const Field& field = m_schema.sections()[section].fields[index];
    if (m_form.version < field.sinceVersion || (IsR12(m_form.version) && !field.isR12))
        return;
    if (!field.isAlways && (field.isCount || IsDefault(m_object, field)))
        return;
    const int components = field.type == FieldType::Point3 ? 3 : field.type == FieldType::Point2 ? 2 : 1;
    for (int i = 0; i < components; ++i) {
        ShapeNode step = MakeStep(OpOfField(field), field.code + 10 * i, int(section), index);
        step.component = uint8_t(i);
        step.offset = field.offset + uint32_t(i) * uint32_t(sizeof(double));
        step.table = field.table;
        steps.push_back(step);
    }
}

void Walk::Canonical(std::vector<ShapeNode>& steps, bool isMarked) const
{
    steps.push_back(MakeStep(Op::Handle, m_schema.handleCode(), 0));
    if (isMarked) {
        if (m_annex != nullptr && !m_annex->reactors.empty()) {
            steps.push_back(MakeStep(Op::GroupOpen, 102, 0, 1));
            steps.push_back(MakeStep(Op::Reactor, 330, 0));
            steps.push_back(MakeStep(Op::GroupClose, 102, 0, 1));
        }
        if (m_annex != nullptr && !m_annex->extensionDictionary.isNull()) {
            steps.push_back(MakeStep(Op::GroupOpen, 102, 0, 2));
            steps.push_back(MakeStep(Op::Dictionary, 360, 0));
            steps.push_back(MakeStep(Op::GroupClose, 102, 0, 2));
        }
        steps.push_back(MakeStep(Op::Owner, 330, 0));
    }
    for (size_t section = 0; section < m_schema.sections().size(); ++section) {
        if (section > 0 && isMarked)
            steps.push_back(MakeStep(Op::Marker, 100, int(section)));
        for (size_t i = 0; i < m_schema.sections()[section].fields.size(); ++i)
            AddField(steps, section, i);
        if (isMarked && HasOthersIn(section))
            steps.push_back(MakeStep(Op::Other, 0, int(section)));
    }
    steps.push_back(MakeStep(Op::XData, 1001, 0));
}

bool IsSame(const ShapeNode& a, const ShapeNode& b)
{
    if (a.op != b.op)
        return false;
    switch (a.op) {
    case Op::Handle:
    case Op::Owner:
    case Op::XData:
    case Op::Reactor:
    case Op::Dictionary:
        return true;
    case Op::Marker:
        return a.section == b.section;
    default:
        return a.section == b.section && a.field == b.field && a.component == b.component;
    }
}

// The steps of the file, with those put in at their canonical place that the object needs besides.
std::vector<ShapeNode> Walk::Merged(const std::vector<ShapeNode>& read) const
{
    bool isMarked = false;
    bool hasReactors = false, hasDictionary = false;
    for (const ShapeNode& step : read) {
        isMarked = isMarked || step.op == Op::Marker;
        hasReactors = hasReactors || step.op == Op::Reactor;
        hasDictionary = hasDictionary || step.op == Op::Dictionary;
    }
    std::vector<ShapeNode> wanted, result;
    Canonical(wanted, isMarked);
    for (const ShapeNode& step : read) {
        if (step.op != Op::Other && step.op < Op::Int16)
            result.push_back(step);
        else if (step.op >= Op::Int16 && step.op <= Op::List) {
            const Field& field = m_schema.sections()[step.section].fields[step.field];
            if (m_form.version >= field.sinceVersion)
                result.push_back(step);
        } else
            result.push_back(step);
    }
    size_t place = 0;   // behind the last wanted step that is there
    for (const ShapeNode& step : wanted) {
        size_t found = result.size();
        for (size_t i = 0; i < result.size() && found == result.size(); ++i)
            if (IsSame(result[i], step))
                found = i;
        if (found < result.size()) {
            if (step.op != Op::XData)
                place = std::max(place, found + 1);
            continue;
        }
        const bool isOfReactors =
            step.op == Op::Reactor || (step.op >= Op::GroupOpen && step.op <= Op::GroupClose && step.field == 1);
        const bool isOfDictionary =
            step.op == Op::Dictionary || (step.op >= Op::GroupOpen && step.op <= Op::GroupClose && step.field == 2);
        if ((isOfReactors && hasReactors) || (isOfDictionary && hasDictionary) || step.op == Op::Other ||
            step.op == Op::Handle || step.op == Op::Owner)
            continue;
        if (step.op == Op::XData)
            place = result.size();
        result.insert(result.begin() + std::ptrdiff_t(place), step);
        ++place;
    }
    return result;
}

const char* Walk::BraceText(const ShapeNode& step) const
{
    if (step.text != 0)
        return m_shapes->TextOf(step).c_str();
    if (step.op == Op::GroupClose)
        return "}";
    return step.field == 1 ? "{ACAD_REACTORS" : "{ACAD_XDICTIONARY";
}

// In file order one run at a time; in canonical order all runs of a section at its end.
void Walk::EmitOthers(size_t section, bool wholeSection)
{
    if (m_annex == nullptr)
        return;
    const GroupList& others = m_annex->others;
    if (wholeSection) {
        for (const GroupValue& group : others)
            if (group.section == section)
                m_sink.Value(group);
        return;
    }
    for (bool isFirst = true; m_nextOther < others.size() && (isFirst || !others[m_nextOther].startsRun);
         isFirst = false)
        m_sink.Value(others[m_nextOther++]);
}

void Walk::EmitField(const ShapeNode& step)
{
    const Field& field = m_schema.sections()[step.section].fields[step.field];
    const char* at = reinterpret_cast<const char*>(&m_object) + step.offset;
    switch (step.op) {
    case Op::Int16:
        m_sink.Integer(step.code, *reinterpret_cast<const int16_t*>(at));
        break;
    case Op::Int32:
        m_sink.Integer(step.code, *reinterpret_cast<const int32_t*>(at));
        break;
    case Op::Int64:
        m_sink.Integer(step.code, *reinterpret_cast<const int64_t*>(at));
        break;
    case Op::Real:
        m_sink.Real(step.code, *reinterpret_cast<const double*>(at));
        break;
    case Op::Text:
        m_sink.Text(step.code, *reinterpret_cast<const CString*>(at));
        break;
    case Op::Id:
        m_sink.Id(step.code, *reinterpret_cast<const AcDbObjectId*>(at));
        break;
    case Op::Name:
        m_sink.Name(step.code, *reinterpret_cast<const AcDbObjectId*>(at), step.table);
        break;
    case Op::Bytes:
        m_sink.Binary(step.code, *reinterpret_cast<const Bytes*>(at));
        break;
    case Op::Count:
        m_sink.Integer(step.code, field.count(m_object));
        break;
    case Op::List:
        for (const auto& done : m_doneLists)
            if (done.first == step.section && done.second == step.field)
                return;
        m_doneLists.emplace_back(step.section, step.field);
        field.list->Get(m_object, m_sink, m_form.version);
        break;
    default:
        break;
    }
}

void Walk::Emit(const ShapeNode& step)
{
    switch (step.op) {
    case Op::Root:
        break;
    case Op::Handle:
        m_sink.Id(step.code, m_object.objectId());
        break;
    case Op::Owner:
        m_sink.Id(step.code, m_object.ownerId());
        break;
    case Op::Marker:
        m_sink.Marker(100, m_schema.sections()[step.section].marker);
        break;
    case Op::GroupOpen:
    case Op::GroupClose:
        m_sink.Marker(102, BraceText(step));
        break;
    case Op::Reactor:
        if (m_annex != nullptr)
            for (AcDbObjectId reactor : m_annex->reactors)
                m_sink.Id(330, reactor);
        break;
    case Op::Dictionary:
        if (m_annex != nullptr)
            m_sink.Id(step.code, m_annex->extensionDictionary);
        break;
    case Op::Other:
        EmitOthers(step.section, !m_isAsRead);
        break;
    case Op::XData:
        if (m_annex != nullptr && !m_isXDataDone)
            for (const GroupValue& group : m_annex->xData)
                m_sink.Value(group);
        m_isXDataDone = true;
        break;
    default:
        EmitField(step);
        break;
    }
}

void Walk::Run()
{
    const uint32_t shape = ObjectAccess::Shape(m_object);
    if (m_form.asRead && shape != 0 && m_object.database() != nullptr) {
        DbCore& core = CoreOf(*m_object.database());
        m_shapes = &core.shapes;
        m_isAsRead = true;
        const std::vector<uint32_t>& path = m_shapes->PathOf(shape);
        const bool isChanged = (ObjectAccess::State(m_object) & kChangedSinceRead) != 0;
        if (!isChanged && m_form.version == core.form.version) {
            for (uint32_t node : path)
                Emit((*m_shapes)[node]);
            return;
        }
        if (IsR12(m_form.version) == IsR12(core.form.version)) {
            std::vector<ShapeNode> read;
            for (uint32_t node : path)
                read.push_back((*m_shapes)[node]);
            for (const ShapeNode& step : Merged(read))
                Emit(step);
            return;
        }
        m_isAsRead = false;
    }
    std::vector<ShapeNode> steps;
    Canonical(steps, !IsR12(m_form.version));
    for (const ShapeNode& step : steps)
        Emit(step);
}

}   // namespace

void GetGroups(const AcDbObject& object, GroupSink& sink, const GroupForm& form)
{
    Walk(object, sink, form).Run();
}

}   // namespace KxPlat
