#include "LayoutProgram.h"
#include "LayoutScanner.h"
#include "SpecialItems.h"
#include <algorithm>

namespace KxPlat {

namespace {

int ComponentsOf(const Field& field)
{
    return field.type == FieldType::Point3 ? 3 : field.type == FieldType::Point2 ? 2 : 1;
}

Place InList(const Field& field, int code, size_t section)
{
    Place place;
    place.keep = Keep::List;
    place.list = field.list;
    place.code = int16_t(code);
    place.section = uint8_t(section);
    place.group = KindOfGroup(code);
    return place;
}

Place InMember(const Field& field, int code, size_t section)
{
    Place place;
    const int component = (code - field.code) / 10;
    place.keep = field.isCount ? Keep::Nowhere : Keep::Member;
    place.isCount = field.isCount;
    place.type = field.type;
    place.code = int16_t(code);
    place.section = uint8_t(section);
    place.offset = field.offset + uint32_t(component) * uint32_t(sizeof(double));
    place.group = KindOfGroup(code);
    for (int i = 0; i + component < 3; ++i)
        place.defaultReal[i] = field.defaultReal[i + component];
    place.defaultInteger = field.defaultInteger;
    return place;
}

}   // namespace

Place FindPlace(const ClassSchema* schema, bool isEntity, const PlaceWanted& wanted)
{
    Place place;
    place.keep = Keep::Other;
    place.code = int16_t(wanted.code);
    place.group = KindOfGroup(wanted.code);
    if (schema == nullptr) {
        place.section = isEntity ? 1 : 0;
        return place;
    }
    const auto& sections = schema->sections();
    const size_t first = wanted.section >= 0 ? size_t(wanted.section) : isEntity ? 2 : 1;
    const size_t end = wanted.section >= 0 ? std::min(first + 1, sections.size()) : sections.size();
    place.section = uint8_t(wanted.section >= 0 ? size_t(wanted.section) : sections.size() - 1);
    int which = wanted.which;
    const auto inMembers = [&] {
        for (size_t s = first; s < end; ++s)
            for (const Field& field : sections[s].fields) {
                const int distance = wanted.code - field.code;
                if (field.list == nullptr && distance >= 0 && distance % 10 == 0 &&
                    distance / 10 < ComponentsOf(field) && --which == 0) {
                    place = InMember(field, wanted.code, s);
                    return true;
                }
            }
        return false;
    };
    const auto inLists = [&](bool starts) {
        for (size_t s = first; s < end; ++s)
            for (const Field& field : sections[s].fields)
                if (field.list != nullptr && !field.list->TakesAll() && wanted.which == 1 &&
                    (starts ? field.list->Starts(wanted.code) : field.list->Continues(wanted.code))) {
                    place = InList(field, wanted.code, s);
                    return true;
                }
        return false;
    };
    if (wanted.isRepeated) {
        for (size_t s = first; s < end; ++s)
            for (const Field& field : sections[s].fields)
                if (field.list != nullptr && field.list == wanted.list && field.list->Continues(wanted.code))
                    return InList(field, wanted.code, s);
        if (inLists(true) || inLists(false))
            return place;
    }
    if (inMembers() || inLists(true) || inLists(false))
        return place;
    return place;
}

namespace {

struct BitName {
    std::string_view name;
    Bits bits;
    int components;
};

constexpr BitName kBitNames[] = {
    {"B", Bits::B, 1},       {"BB", Bits::BB, 1},       {"3B", Bits::B3, 1},  {"4B", Bits::B4, 1},
    {"RC", Bits::RC, 1},     {"RS", Bits::RS, 1},       {"RL", Bits::RL, 1},  {"BS", Bits::BS, 1},
    {"BL", Bits::BL, 1},     {"BLL", Bits::BLL, 1},     {"RD", Bits::RD, 1},  {"2RD", Bits::RD, 2},
    {"3RD", Bits::RD, 3},    {"BD", Bits::BD, 1},       {"2BD", Bits::BD, 2}, {"3BD", Bits::BD, 3},
    {"DD", Bits::DD, 1},     {"2DD", Bits::DD, 2},      {"3DD", Bits::DD, 3}, {"BT", Bits::BT, 1},
    {"BE", Bits::BE, 3},     {"CMC", Bits::Color, 1},   {"T", Bits::Text, 1}, {"H", Bits::Handle, 1},
    {"Hd", Bits::InData, 1}, {"BYTES", Bits::Bytes, 1},
};

class Compiler {
public:
    Compiler(LayoutProgram& program, const ClassSchema* schema, DwgVersion version)
        : m_program(program), m_schema(schema), m_version(version)
    {
    }
    void Run(std::string_view text) { Block(text, {}); }

private:
    void Block(std::string_view text, std::string_view argument)
    {
        LayoutScanner in(text, argument);
        while (!in.AtEnd())
            Statement(in);
    }
    void Statement(LayoutScanner& in);
    void If(LayoutScanner& in);
    void For(LayoutScanner& in);
    void Item(LayoutScanner& in, std::string_view word);
    void Const(LayoutScanner& in);
    void Or(LayoutScanner& in);
    void Target(LayoutScanner& in, Step& step);
    void Modifiers(LayoutScanner& in, Step& step);
    void Pairs(LayoutScanner& in, Step& step);
    Place Find(LayoutScanner& in, int code, bool isRepeated);
    void Repeat(LayoutScanner& in, Step& step);
    bool IsVersion(LayoutScanner& in) const;
    int Variable(std::string_view name);
    void MarkCounter(int variable, uint32_t anchor);
    void Add(Step step) { m_program.steps.push_back(std::move(step)); }
    uint32_t Next() const { return uint32_t(m_program.steps.size()); }

    LayoutProgram& m_program;
    const ClassSchema* m_schema;
    DwgVersion m_version;
    std::vector<std::string> m_variables;
    const ListField* m_rowList = nullptr;
    int m_depth = 0;   // of loops
};

int Compiler::Variable(std::string_view name)
{
    if (name == "_")
        return -1;
    const auto place = std::find(m_variables.begin(), m_variables.end(), name);
    if (place != m_variables.end())
        return int(place - m_variables.begin());
    m_variables.emplace_back(name);
    return int(m_variables.size()) - 1;
}

// "v>=2007" and the like, with the years of releases, or 13 and 14.
bool Compiler::IsVersion(LayoutScanner& in) const
{
    static const std::pair<int, DwgVersion> years[] = {{13, kR13},     {14, kR14},     {2000, kR2000}, {2004, kR2004},
                                                       {2007, kR2007}, {2010, kR2010}, {2013, kR2013}, {2018, kR2018}};
    const std::string_view sign = in.Sign();
    const int year = in.Number();
    DwgVersion wanted = kR13;
    for (const auto& row : years)
        if (row.first == year)
            wanted = row.second;
    return sign == ">="   ? m_version >= wanted
           : sign == "<=" ? m_version <= wanted
           : sign == "<"  ? m_version < wanted
           : sign == ">"  ? m_version > wanted
                          : m_version == wanted;
}

void Compiler::If(LayoutScanner& in)
{
    const bool isNot = in.Take('!');
    const std::string_view name = in.Word();
    if (name == "v") {
        const bool holds = IsVersion(in);
        const std::string_view yes = in.Braces();
        const std::string_view no = in.TakeWord("else") ? in.Braces() : std::string_view();
        return Block(holds ? yes : no, in.argument());
    }
    Step test;
    test.kind = Step::If;
    test.variable = int16_t(Variable(name));
    test.test = isNot ? Step::None : Step::Any;
    test.mask = -1;
    if (in.Take('&'))
        test.mask = in.Number();
    else if (!in.Is('{')) {
        const std::string_view sign = in.Sign();
        test.test = sign == ">" ? Step::More : Step::Equal;
        test.operand = in.Number();
    }
    const uint32_t at = Next();
    Add(test);
    Block(in.Braces(), in.argument());
    if (in.TakeWord("else")) {
        const uint32_t jump = Next();
        Step over;
        over.kind = Step::Jump;
        Add(over);
        m_program.steps[at].jump = Next();
        Block(in.Braces(), in.argument());
        m_program.steps[jump].jump = Next();
        return;
    }
    m_program.steps[at].jump = Next();
}

// The counter itself was read before: it learns what its rows begin with.
void Compiler::MarkCounter(int variable, uint32_t anchor)
{
    for (size_t i = m_program.steps.size(); i-- > 0;) {
        Step& step = m_program.steps[i];
        if (step.kind == Step::Value && step.variable == variable && variable >= 0) {
            if (!step.isCounter)
                step.anchor = anchor;
            step.isCounter = true;
            return;
        }
    }
}

void Compiler::For(LayoutScanner& in)
{
    Step loop;
    loop.kind = Step::For;
    loop.countBy = int16_t(Variable(in.Word()));
    const uint32_t at = Next();
    Add(loop);
    const ListField* outer = m_rowList;
    ++m_depth;
    Block(in.Braces(), in.argument());
    --m_depth;
    m_rowList = outer;
    Step end;
    end.kind = Step::EndFor;
    end.jump = at;
    Add(end);
    Step& begun = m_program.steps[at];
    begun.jump = Next();
    begun.anchor = at + 1;
    for (uint32_t i = at + 1; i < Next(); ++i)
        if (m_program.steps[i].place.keep != Keep::Nowhere) {
            begun.anchor = i;
            break;
        }
    MarkCounter(begun.countBy, begun.anchor);
}

Place Compiler::Find(LayoutScanner& in, int code, bool isRepeated)
{
    PlaceWanted wanted;
    wanted.code = code;
    wanted.isRepeated = isRepeated || m_depth > 0;
    wanted.list = m_rowList;
    if (in.Take('#'))
        wanted.section = in.Number();
    if (in.Take('^'))
        wanted.which = in.Number();
    const Place place = FindPlace(m_schema, m_program.layout->isEntity, wanted);
    if (m_depth > 0 && m_rowList == nullptr && place.keep == Keep::List)
        m_rowList = place.list;
    return place;
}

void Compiler::Pairs(LayoutScanner& in, Step& step)
{
    in.Take('(');
    do {
        BitPair pair;
        pair.bit = in.Number();
        in.Take('=');
        const Place place = Find(in, in.Number(), false);
        in.Take('&');
        pair.isOpposite = in.Take('!');
        pair.memberBit = in.Number();
        pair.offset = place.keep == Keep::Member ? place.offset : 0;
        pair.code = place.code;
        if (place.keep == Keep::Other)
            step.basePlace = place;
        step.pairs.push_back(pair);
    } while (in.Take(','));
    in.Take(')');
}

void Compiler::Modifiers(LayoutScanner& in, Step& step)
{
    for (;;) {
        const bool isLeftOut = in.Take('~');
        if (isLeftOut || in.Take('=')) {
            step.hasDefault = isLeftOut;
            int count = 0;
            while (count < 3 && in.IsNumber()) {
                step.place.defaultReal[count++] = in.Real();
                in.Take(',');
            }
            step.place.defaultInteger = int64_t(step.place.defaultReal[0]);
        } else if (in.TakeWord("auto"))
            step.isAuto = true;
        else if (in.TakeWord("map"))
            Pairs(in, step);
        else if (in.TakeWord("calc")) {
            in.Take('(');
            step.calculated = FindCalculated(in.Word());
            in.Take(')');
        } else if (in.TakeWord("base")) {
            in.Take('(');
            step.basePlace = Find(in, in.Number(), false);
            in.Take(',');
            step.base = in.Number();
            in.Take(')');
        } else
            return;
    }
}

void Compiler::Target(LayoutScanner& in, Step& step)
{
    if (in.IsWord()) {
        step.variable = int16_t(Variable(in.Word()));
        if (!in.Take(':'))
            return Modifiers(in, step);
    }
    if (!in.IsNumber())
        return Modifiers(in, step);
    const bool isRepeated = step.countBy >= 0 || step.fixedCount != 1;
    const int code = in.Number();
    const bool isAngle = in.Take('a');
    step.place = Find(in, code, isRepeated);
    step.isAngle = isAngle;
    if (in.Take('&')) {
        step.isOpposite = in.Take('!');
        step.mask = in.Number();
    }
    if (in.Take('(')) {
        step.reference = Find(in, in.Number(), false).offset;
        in.Take(')');
    }
    while (in.Take(','))
        step.also.push_back(Find(in, in.Number(), false).offset);
    Modifiers(in, step);
}

void Compiler::Repeat(LayoutScanner& in, Step& step)
{
    if (!in.Take('['))
        return;
    if (in.IsNumber())
        step.fixedCount = in.Number();
    else
        step.countBy = int16_t(Variable(in.Word()));
    in.Take(']');
}

void Compiler::Item(LayoutScanner& in, std::string_view word)
{
    Step step;
    int handleCode = 0;
    if (word.size() == 2 && word[0] == 'H' && word[1] >= '2' && word[1] <= '5') {
        handleCode = word[1] - '0';
        word = "H";
    }
    const auto name = std::find_if(std::begin(kBitNames), std::end(kBitNames),
                                   [word](const BitName& row) { return row.name == word; });
    if (name == std::end(kBitNames)) {
        step.kind = Step::Special;
        step.special = FindSpecial(word);
    } else {
        step.bits = name->bits;
        step.components = uint8_t(name->components);
    }
    // Thickness and direction had no short forms at first.
    if (m_version <= kR14 && (step.bits == Bits::BT || step.bits == Bits::BE))
        step.bits = Bits::BD;
    if (handleCode != 0)
        step.handleCode = uint8_t(handleCode);
    Repeat(in, step);
    Target(in, step);
    const bool isCounted = step.countBy >= 0;
    Add(step);
    if (isCounted)
        MarkCounter(step.countBy, Next() - 1);
}

void Compiler::Const(LayoutScanner& in)
{
    Step step;
    step.kind = Step::Const;
    step.place = Find(in, in.Number(), false);
    in.Take('=');
    step.operand = in.Number();
    Add(step);
}

void Compiler::Or(LayoutScanner& in)
{
    Step step;
    step.kind = Step::Or;
    step.variable = int16_t(Variable(in.Word()));
    step.countBy = int16_t(Variable(in.Word()));
    Add(step);
}

void Compiler::Statement(LayoutScanner& in)
{
    const std::string_view word = in.Word();
    if (word == "if")
        return If(in);
    if (word == "for")
        return For(in);
    if (word == "use") {
        const std::string_view name = in.Word();
        std::string_view argument;
        if (in.Take('(')) {
            argument = in.Word();
            in.Take(')');
        }
        in.Take(';');
        return Block(SharedLayout(name), argument);
    }
    if (word == "CONST")
        Const(in);
    else if (word == "OR")
        Or(in);
    else if (word == "EAT") {
        Step step;
        step.kind = Step::Eat;
        step.place = Find(in, in.Number(), true);
        Add(step);
    } else
        Item(in, word);
    in.Take(';');
}

void TakeOrder(LayoutProgram& program)
{
    LayoutScanner in(program.layout->order, {});
    program.markers.reserve(8);   // rows point into it
    while (!in.AtEnd()) {
        LayoutProgram::Ordered row;
        if (in.Take('@')) {
            program.markers.emplace_back(in.Word());
            row.marker = program.markers.back().c_str();
        } else {
            row.code = in.Number();
            row.isAnywhere = in.Take('+');
        }
        program.order.push_back(row);
    }
}

}   // namespace

std::unique_ptr<LayoutProgram> CompileLayout(const Layout& layout, const ClassSchema* schema, DwgVersion version)
{
    auto program = std::make_unique<LayoutProgram>();
    program->layout = &layout;
    Compiler(*program, schema, version).Run(layout.text);
    if (schema == nullptr)
        TakeOrder(*program);
    return program;
}

}   // namespace KxPlat
