#include "Shape.h"

namespace KxPlat {

namespace {

struct Resolved {
    Op op;
    int components;
};

Resolved OpOf(const Field& field)
{
    if (field.isCount)
        return {Op::Count, 1};
    switch (field.type) {
    case FieldType::Int16:
        return {Op::Int16, 1};
    case FieldType::Int32:
        return {Op::Int32, 1};
    case FieldType::Int64:
        return {Op::Int64, 1};
    case FieldType::Real:
        return {Op::Real, 1};
    case FieldType::Point2:
        return {Op::Real, 2};
    case FieldType::Point3:
        return {Op::Real, 3};
    case FieldType::Text:
        return {Op::Text, 1};
    case FieldType::Id:
        return {Op::Id, 1};
    case FieldType::Name:
        return {Op::Name, 1};
    case FieldType::Bytes:
        return {Op::Bytes, 1};
    case FieldType::List:
        return {Op::List, 0};
    }
    return {Op::Other, 0};
}

// Steps that one object may take; what follows is one run of other groups. Real objects stay below a hundred.
constexpr uint16_t kMostSteps = 600;

bool IsRun(Op op)
{
    return op == Op::Other || op == Op::XData || op == Op::Reactor;
}

}   // namespace

uint32_t ShapeTable::RootOf(const ClassSchema& schema)
{
    const size_t number = size_t(schema.number());
    if (m_roots.size() <= number)
        m_roots.resize(number + 1);
    if (m_roots[number] == 0) {
        m_roots[number] = uint32_t(m_nodes.size());
        m_nodes.emplace_back();
    }
    return m_roots[number];
}

uint32_t ShapeTable::TextIndex(std::string_view text)
{
    auto [place, isNew] = m_textIndex.try_emplace(std::string(text), uint32_t(m_texts.size()));
    if (isNew)
        m_texts.emplace_back(text);
    return place->second;
}

uint32_t ShapeTable::SlowStep(const ClassSchema& schema, uint32_t node, int code, std::string_view text)
{
    const ShapeNode& from = m_nodes[node];
    if (from.op == Op::XData && code >= 1000)
        return node;
    if (from.op == Op::List && schema.sections()[from.section].fields[from.field].list->Continues(code))
        return node;
    const bool isMarked = code == 100 || code == 102;
    for (uint32_t child = from.firstChild; child != 0; child = m_nodes[child].nextSibling) {
        const ShapeNode& next = m_nodes[child];
        if (next.code == code && next.op != Op::Other && (!isMarked || m_texts[next.text] == text)) {
            m_nodes[node].predicted = child;
            return child;
        }
    }
    // The braces of an unknown application are one run, whatever stands in them, closing brace left out.
    const bool leavesBraces = from.isInBraces && code == 102 && text == "}";
    if (from.isInBraces && !leavesBraces)
        return node;
    ShapeNode wanted;
    if (leavesBraces) {
        wanted.code = 102;
        wanted.op = Op::Other;
        wanted.section = from.section;
        wanted.isForeign = from.isForeign;
    } else {
        wanted = Resolve(schema, node, code, text);
        wanted.isInBraces = wanted.op == Op::Other && code == 102 && !text.empty() && text[0] == '{';
    }
    if (wanted.op == from.op && wanted.isForeign == from.isForeign && wanted.isInBraces == from.isInBraces &&
        IsRun(wanted.op))
        return node;
    if (from.depth >= kMostSteps) {
        if (from.op == Op::Other)
            return node;
        wanted = ShapeNode();
        wanted.isForeign = m_nodes[node].isForeign;
        wanted.code = int16_t(code);
        wanted.op = Op::Other;
        wanted.section = from.section;
    }
    if (wanted.op == Op::Other)
        for (uint32_t child = from.firstChild; child != 0; child = m_nodes[child].nextSibling)
            if (m_nodes[child].op == Op::Other && m_nodes[child].isForeign == wanted.isForeign &&
                m_nodes[child].isInBraces == wanted.isInBraces)
                return child;
    wanted.parent = node;
    wanted.depth = uint16_t(from.depth + 1);
    wanted.isMarked = from.isMarked || wanted.op == Op::Marker || wanted.isForeign;
    wanted.nextSibling = from.firstChild;
    const uint32_t added = uint32_t(m_nodes.size());
    m_nodes.push_back(wanted);
    m_nodes[node].firstChild = added;
    m_nodes[node].predicted = added;
    return added;
}

// A single member is taken once: a second group with its code belongs to something else.
bool ShapeTable::IsTaken(uint32_t node, const ShapeNode& wanted) const
{
    for (; m_nodes[node].op != Op::Root; node = m_nodes[node].parent) {
        const ShapeNode& step = m_nodes[node];
        if (step.op == wanted.op && step.section == wanted.section && step.field == wanted.field &&
            step.component == wanted.component)
            return true;
    }
    return false;
}

bool ShapeTable::FindField(const ClassSchema& schema, uint32_t node, int section, int code, ShapeNode& found) const
{
    const std::vector<Field>& fields = schema.sections()[size_t(section)].fields;
    for (size_t i = 0; i < fields.size(); ++i) {
        const Field& field = fields[i];
        const Resolved resolved = OpOf(field);
        ShapeNode wanted;
        wanted.code = int16_t(code);
        wanted.op = resolved.op;
        wanted.section = uint8_t(section);
        wanted.field = uint16_t(i);
        wanted.table = field.table;
        wanted.offset = field.offset;
        if (resolved.op == Op::List) {
            if (field.list->Starts(code)) {
                found = wanted;
                return true;
            }
            continue;
        }
        const int distance = code - field.code;
        if (distance < 0 || distance % 10 != 0 || distance / 10 >= resolved.components)
            continue;
        wanted.component = uint8_t(distance / 10);
        wanted.offset += wanted.component * uint32_t(sizeof(double));
        if (IsTaken(node, wanted))
            continue;
        found = wanted;
        return true;
    }
    return false;
}

// Some files leave out the second of two equal markers, or the one between the common groups and the geometry.
bool ShapeTable::FindMisplaced(const ClassSchema& schema, uint32_t node, int code, ShapeNode& found) const
{
    const std::string_view marker = schema.sections()[m_nodes[node].section].marker;
    const bool isGeometry = (code >= 10 && code < 60) || (code >= 210 && code < 240);
    for (int section = m_nodes[node].section + 1; section < int(schema.sections().size()); ++section) {
        const Section& later = schema.sections()[size_t(section)];
        const bool isWhole =
            !later.fields.empty() && later.fields.back().list != nullptr && later.fields.back().list->TakesAll();
        const bool isMeant = marker == later.marker || (marker == "AcDbEntity" && isGeometry && !isWhole);
        if (isMeant && FindField(schema, node, section, code, found))
            return true;
    }
    return false;
}

ShapeNode ShapeTable::Resolve(const ClassSchema& schema, uint32_t node, int code, std::string_view text)
{
    const ShapeNode from = m_nodes[node];
    ShapeNode wanted;
    wanted.code = int16_t(code);
    wanted.section = from.section;
    wanted.op = Op::Other;
    wanted.isForeign = from.isForeign;

    // A list that takes all of its section leaves only the single members before it, straight behind the marker.
    const std::vector<Field>& fields = schema.sections()[from.section].fields;
    for (size_t i = 0; i < fields.size(); ++i)
        if (fields[i].list != nullptr && fields[i].list->TakesAll() && fields[i].list->Continues(code)) {
            if (from.op == Op::Marker && FindField(schema, node, from.section, code, wanted))
                return wanted;
            wanted.op = Op::List;
            wanted.field = uint16_t(i);
            return wanted;
        }
    // Extended data begins with the name of its application; before that such codes belong to the class.
    if (code >= 1000) {
        wanted.op = code == 1001 || from.op == Op::XData ? Op::XData : Op::Other;
        return wanted;
    }
    if (code == 100) {
        int section = schema.SectionOf(text);
        ShapeNode marker = wanted;
        marker.op = Op::Marker;
        marker.isForeign = false;
        wanted.isForeign = section < 0;
        for (marker.section = uint8_t(section); section > 0 && IsTaken(node, marker); marker.section = uint8_t(section))
            section = schema.SectionOf(text, section + 1);
        if (section < 0)
            return wanted;
        marker.text = TextIndex(text);
        return marker;
    }
    // Within braces only what the two known groups hold is ours.
    uint32_t brace = node;
    while (m_nodes[brace].op == Op::Reactor || m_nodes[brace].op == Op::Dictionary)
        brace = m_nodes[brace].parent;
    const bool isInBraces = m_nodes[brace].op == Op::GroupOpen;
    const bool isReactors = isInBraces && TextOf(m_nodes[brace]) == "{ACAD_REACTORS";
    if (code == 102) {
        if (!isInBraces && (text == "{ACAD_REACTORS" || text == "{ACAD_XDICTIONARY"))
            wanted.op = Op::GroupOpen;
        else if (isInBraces && text == "}")
            wanted.op = Op::GroupClose;
        if (wanted.op != Op::Other)
            wanted.text = TextIndex(text);
        return wanted;
    }
    if (isInBraces) {
        if (isReactors && code == 330)
            wanted.op = Op::Reactor;
        else if (!isReactors && (code == 360 || code == 350) && from.op == Op::GroupOpen)
            wanted.op = Op::Dictionary;
        return wanted;
    }
    if (from.isForeign)
        return wanted;
    if (from.section == 0 || !from.isMarked) {
        wanted.section = 0;
        wanted.op = code == schema.handleCode() ? Op::Handle : code == 330 ? Op::Owner : Op::Other;
        if (wanted.op != Op::Other && !IsTaken(node, wanted))
            return wanted;
    }
    wanted.op = Op::Other;
    wanted.section = from.section;
    if (from.isMarked) {
        if (from.section != 0 && !FindField(schema, node, from.section, code, wanted))
            FindMisplaced(schema, node, code, wanted);
        return wanted;
    }
    // Files without subclass markers: a group belongs to the first section that has a member for it.
    for (int section = 1; section < int(schema.sections().size()); ++section)
        if (FindField(schema, node, section, code, wanted))
            break;
    return wanted;
}

const std::vector<uint32_t>& ShapeTable::PathOf(uint32_t shape)
{
    auto [place, isNew] = m_paths.try_emplace(shape);
    if (isNew) {
        for (uint32_t node = shape; m_nodes[node].op != Op::Root; node = m_nodes[node].parent)
            place->second.insert(place->second.begin(), node);
    }
    return place->second;
}

}   // namespace KxPlat
