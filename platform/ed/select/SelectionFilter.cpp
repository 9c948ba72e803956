#include "SelectionFilter.h"
#include "../../db/core/Fields.h"
#include "../../db/core/ObjectAccess.h"
#include "../../db/core/RecordNames.h"
#include "../../db/core/Stub.h"
#include "../../db/core/Wildcard.h"
#include "../../dxf/DxfNames.h"
#include "../../rx/ResBufs.h"
#include "../../win/CharTables.h"
#include "../../win/CodePage.h"
#include "EntityGroups.h"
#include <cmath>
#include <optional>
#include <unordered_map>

namespace KxPlat {

namespace {

enum class Relation { Any, Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, BitsSome, BitsAll };

struct RelationName {
    const wchar_t* text;
    Relation relation;
};

const RelationName kRelations[] = {
    {L"*", Relation::Any},          {L"=", Relation::Equal},     {L"!=", Relation::NotEqual},
    {L"/=", Relation::NotEqual},    {L"<>", Relation::NotEqual}, {L"<", Relation::Less},
    {L"<=", Relation::LessOrEqual}, {L">", Relation::Greater},   {L">=", Relation::GreaterOrEqual},
    {L"&", Relation::BitsSome},     {L"&=", Relation::BitsAll},
};

bool Holds(Relation relation, double value, double wanted)
{
    const int64_t bits = std::abs(value) < 9e15 ? int64_t(value) : 0,
                  mask = std::abs(wanted) < 9e15 ? int64_t(wanted) : 0;
    switch (relation) {
    case Relation::Any:
        return true;
    case Relation::Equal:
        return std::abs(value - wanted) <= 1e-9 * std::max(1.0, std::abs(wanted));
    case Relation::NotEqual:
        return !Holds(Relation::Equal, value, wanted);
    case Relation::Less:
        return value < wanted;
    case Relation::LessOrEqual:
        return value <= wanted;
    case Relation::Greater:
        return value > wanted;
    case Relation::GreaterOrEqual:
        return value >= wanted;
    case Relation::BitsSome:
        return (bits & mask) != 0;
    case Relation::BitsAll:
        return (bits & mask) == mask;
    }
    return false;
}

enum class Join { And, Or, Xor, Not };

struct JoinName {
    const wchar_t* open;
    const wchar_t* close;
    Join join;
};

const JoinName kJoins[] = {{L"<AND", L"AND>", Join::And},
                           {L"<OR", L"OR>", Join::Or},
                           {L"<XOR", L"XOR>", Join::Xor},
                           {L"<NOT", L"NOT>", Join::Not}};

// What an entity without the group counts as.
struct DefaultGroup {
    int code;
    double number;
    const wchar_t* text;
};

const DefaultGroup kDefaults[] = {{62, 256, nullptr}, {6, 0, L"ByLayer"}, {60, 0, nullptr},   {67, 0, nullptr},
                                  {48, 1, nullptr},   {39, 0, nullptr},   {370, -1, nullptr}, {66, 0, nullptr}};

// The one member that a group code stands for in a class, where nothing else of the class can have that code.
struct PlainField {
    const Field* field = nullptr;
    bool isAmbiguous = false;
};

PlainField PlainFieldOf(const ClassSchema& schema, int code)
{
    PlainField plain;
    // The space, the owner and the handle are told by more than a member.
    for (const int special : {-1, 5, 67, 330, 410})
        plain.isAmbiguous = plain.isAmbiguous || code == special;
    plain.isAmbiguous = plain.isAmbiguous || (code >= 50 && code <= 58);   // angles are radians for programs
    for (const Section& section : schema.sections())
        for (const Field& field : section.fields) {
            if (field.list != nullptr) {
                plain.isAmbiguous = plain.isAmbiguous || field.list->TakesAll() || field.list->Starts(code) ||
                                    field.list->Continues(code);
            } else if (field.code == code) {
                plain.isAmbiguous = plain.isAmbiguous || plain.field != nullptr || field.isCount;
                plain.field = &field;
            }
        }
    return plain;
}

bool MatchesText(const CString& text, const std::wstring& pattern)
{
    return WildcardMatch(std::wstring_view(text, size_t(text.GetLength())), pattern);
}

}   // namespace

// One entity under test. Its groups are collected when a test first needs more than its class and layer.
class SelectionFilter::Subject {
public:
    explicit Subject(const AcDbEntity& of) : entity(of) {}
    const GroupList& Groups()
    {
        if (!m_groups)
            m_groups = GroupsForPrograms(entity.objectId());
        return *m_groups;
    }
    bool HasXData(const std::wstring& app)
    {
        if (!entity.hasXData())
            return false;
        for (const GroupValue& group : GroupsForPrograms(entity.objectId(), {app}))
            if (group.code == 1001)
                return true;
        return false;
    }
    const AcDbEntity& entity;

private:
    std::optional<GroupList> m_groups;
};

struct SelectionFilter::Node {
    enum class Kind { Joined, Number, Text, Point, Id, App } kind = Kind::Joined;
    Join join = Join::And;
    std::vector<std::unique_ptr<Node>> children;
    int code = 0;
    Relation relations[3] = {Relation::Equal, Relation::Equal, Relation::Equal};   // of a point's coordinates
    double numbers[3] = {0, 0, 0};
    std::wstring text;
    AcDbObjectId id;

    bool Takes(Subject& subject) const
    {
        switch (kind) {
        case Kind::Joined:
            return TakesJoined(subject);
        case Kind::App:
            return subject.HasXData(text);
        case Kind::Text:
            if (code == 0)
                return TakesClass(subject.entity);
            if (code == 8)
                return TakesLayer(subject.entity);
            break;
        default:
            break;
        }
        return TakesGroup(subject);
    }

private:
    bool TakesJoined(Subject& subject) const
    {
        size_t count = 0;
        for (const std::unique_ptr<Node>& child : children) {
            const bool takes = child->Takes(subject);
            if (join == Join::And && !takes)
                return false;
            if (join == Join::Or && takes)
                return true;
            count += takes;
        }
        return join == Join::And || (join == Join::Not && count == 0) || (join == Join::Xor && count == 1);
    }
    bool Text(const CString& value) const
    {
        return MatchesText(value, text) != (relations[0] == Relation::NotEqual) || relations[0] == Relation::Any;
    }
    // Entities share few classes and layers: each is matched once.
    bool TakesClass(const AcDbEntity& entity) const
    {
        const bool isProxy = entity.fields().dxfName() == std::string_view("ACAD_PROXY_ENTITY");
        const auto known = m_known.find(entity.isA());
        if (known != m_known.end() && !isProxy)
            return known->second;
        return m_known[entity.isA()] = Text(CString(FromUtf8(DxfNameOf(entity)).c_str()));
    }
    bool TakesLayer(const AcDbEntity& entity) const
    {
        const AcDbStub* layer = entity.layerId();
        const auto [place, isNew] = m_known.try_emplace(layer, false);
        if (isNew)
            place->second =
                Text(layer == nullptr || layer->object == nullptr ? CString(L"0") : RecordNameOf(*layer->object));
        return place->second;
    }
    bool Fits(const GroupList& groups, size_t at) const
    {
        double point[3];
        switch (kind) {
        case Kind::Text:
            return Text(groups[at].text());
        case Kind::Id:
            return (groups[at].id() == id) == (relations[0] != Relation::NotEqual);
        case Kind::Number:
            return Holds(relations[0], groups[at].real(), numbers[0]);
        case Kind::Point:
            PointAt(groups, at, point);
            return Holds(relations[0], point[0], numbers[0]) && Holds(relations[1], point[1], numbers[1]) &&
                   Holds(relations[2], point[2], numbers[2]);
        default:
            return false;
        }
    }
    // Straight from the member, without collecting the entity's groups; nothing where that could be wrong.
    std::optional<bool> TakesMember(const AcDbEntity& entity) const
    {
        const auto [place, isNew] = m_fields.try_emplace(&entity.fields());
        if (isNew)
            place->second = PlainFieldOf(entity.fields(), code);
        const Annex* annex = ObjectAccess::Find(entity);
        if (place->second.isAmbiguous || place->second.field == nullptr || (annex != nullptr && !annex->others.empty()))
            return std::nullopt;
        const Field& field = *place->second.field;
        if (kind == Kind::Number) {
            switch (field.type) {
            case FieldType::Int16:
                return Holds(relations[0], field.in<int16_t>(entity), numbers[0]);
            case FieldType::Int32:
                return Holds(relations[0], field.in<int32_t>(entity), numbers[0]);
            case FieldType::Real:
                return Holds(relations[0], field.in<double>(entity), numbers[0]);
            default:
                return std::nullopt;
            }
        }
        if (kind == Kind::Text && field.type == FieldType::Text)
            return Text(field.in<CString>(entity));
        return std::nullopt;
    }
    // One of several groups of the same code is enough.
    bool TakesGroup(Subject& subject) const
    {
        if (const std::optional<bool> takes = TakesMember(subject.entity))
            return *takes;
        const GroupList& groups = subject.Groups();
        bool isThere = false;
        for (size_t i = 0; i < groups.size(); ++i)
            if (groups[i].code == code) {
                isThere = true;
                if (Fits(groups, i))
                    return true;
            }
        if (isThere)
            return false;
        for (const DefaultGroup& row : kDefaults)
            if (row.code == code)
                return kind == Kind::Text ? row.text != nullptr && Text(row.text)
                                          : Holds(relations[0], row.number, numbers[0]);
        return false;
    }

    mutable std::unordered_map<const void*, bool> m_known;
    mutable std::unordered_map<const ClassSchema*, PlainField> m_fields;
};

class SelectionFilter::Parser {
public:
    explicit Parser(const resbuf* chain) : m_at(chain) {}

    // Children of `parent` up to its closing operator, or the end of the chain for the outermost.
    bool ReadChildren(Node& parent, const wchar_t* close, int depth)
    {
        constexpr int kMostDepth = 200;
        for (; m_at != nullptr; m_at = m_at->rbnext) {
            if (m_at->restype != -4) {
                if (!ReadTest(parent))
                    return false;
                continue;
            }
            const std::wstring text =
                m_at->resval.rstring == nullptr ? L"" : Upper(std::wstring_view(m_at->resval.rstring));
            if (close != nullptr && text == close)
                return !parent.children.empty();
            if (const JoinName* join = JoinOf(text)) {
                auto node = std::make_unique<Node>();
                node->join = join->join;
                m_at = m_at->rbnext;
                if (depth > kMostDepth || !ReadChildren(*node, join->close, depth + 1))
                    return false;
                parent.children.push_back(std::move(node));
                continue;
            }
            if (!ReadRelations(text))
                return false;
            m_hasRelations = true;
        }
        return close == nullptr && !m_hasRelations;
    }

private:
    static const JoinName* JoinOf(const std::wstring& text)
    {
        for (const JoinName& join : kJoins)
            if (text == join.open)
                return &join;
        return nullptr;
    }
    // "<" or, for points, "<,>=,*".
    bool ReadRelations(const std::wstring& text)
    {
        size_t start = 0;
        for (int i = 0; i < 3; ++i) {
            const size_t comma = text.find(L',', start);
            const std::wstring part = text.substr(start, comma == std::wstring::npos ? comma : comma - start);
            const RelationName* found = nullptr;
            for (const RelationName& row : kRelations)
                if (part == row.text)
                    found = &row;
            if (found == nullptr)
                return false;
            m_relations[i] = found->relation;
            if (comma == std::wstring::npos) {
                for (int rest = i + 1; rest < 3; ++rest)
                    m_relations[rest] = i == 0 ? found->relation : Relation::Any;
                return true;
            }
            start = comma + 1;
        }
        return false;
    }
    bool ReadTest(Node& parent)
    {
        if (m_at->restype == -3)
            return true;   // the applications follow
        auto node = std::make_unique<Node>();
        node->code = m_at->restype;
        if (m_hasRelations)
            std::copy(m_relations, m_relations + 3, node->relations);
        m_hasRelations = false;
        if (!ReadValue(*node))
            return false;
        parent.children.push_back(std::move(node));
        return true;
    }
    bool ReadValue(Node& node)
    {
        const ads_u_val& value = m_at->resval;
        switch (ResKindOf(m_at->restype)) {
        case ResKind::Text:
            node.kind = node.code == 1001 ? Node::Kind::App : Node::Kind::Text;
            node.text = value.rstring == nullptr ? L"" : value.rstring;
            return true;
        case ResKind::Real:
            node.numbers[0] = value.rreal;
            break;
        case ResKind::Short:
            node.numbers[0] = value.rint;
            break;
        case ResKind::Long:
            node.numbers[0] = value.rlong;
            break;
        case ResKind::Int64:
            node.numbers[0] = double(value.mnInt64);
            break;
        case ResKind::Point:
            node.kind = Node::Kind::Point;
            std::copy(value.rpoint, value.rpoint + 3, node.numbers);
            return true;
        case ResKind::EntityName:
            node.kind = Node::Kind::Id;
            node.id.setFromOldId(value.rlname[0]);
            return true;
        default:
            return false;
        }
        node.kind = Node::Kind::Number;
        return true;
    }

    const resbuf* m_at;
    Relation m_relations[3] = {};
    bool m_hasRelations = false;
};

SelectionFilter::SelectionFilter() = default;
SelectionFilter::~SelectionFilter() = default;

bool SelectionFilter::Read(const resbuf* chain)
{
    m_root.reset();
    if (chain == nullptr)
        return true;
    auto root = std::make_unique<Node>();
    if (!Parser(chain).ReadChildren(*root, nullptr, 0))
        return false;
    m_root = std::move(root);
    return true;
}

bool SelectionFilter::Takes(const AcDbEntity& entity) const
{
    if (m_root == nullptr)
        return true;
    Subject subject(entity);
    return m_root->Takes(subject);
}

}   // namespace KxPlat
