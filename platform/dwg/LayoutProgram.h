// A layout made ready for one version of the format and one class: the conditions on versions are decided, and every
// value knows where it lives in the object.
#pragma once
#include "../db/core/Fields.h"
#include "DwgVersion.h"
#include "Layout.h"
#include <memory>
#include <vector>

namespace KxPlat {

enum class Bits : uint8_t {
    B,
    BB,
    B3,
    B4,
    RC,
    RS,
    RL,
    BS,
    BL,
    BLL,
    RD,
    BD,
    DD,
    BT,
    BE,
    Color,
    Text,
    Handle,
    InData,
    Bytes
};

// Where a value is kept: nowhere, in a member, in a list of the class, or among the groups that no field claims.
enum class Keep : uint8_t { Nowhere, Member, List, Other };

struct SpecialItem;
struct CalculatedItem;

// One bit of a value that stands for one bit of a member.
struct BitPair {
    int bit = 0;
    int memberBit = 0;
    uint32_t offset = 0;   // of an Int16 member; 0: among the other groups
    int16_t code = 0;
    bool isOpposite = false;
};

struct Place {
    Keep keep = Keep::Nowhere;
    FieldType type = FieldType::Int16;
    GroupKind group = GroupKind::Text;
    uint8_t section = 0;
    int16_t code = 0;
    uint32_t offset = 0;   // of the component meant
    const ListField* list = nullptr;
    bool isCount = false;   // a number that follows from a list
    double defaultReal[3] = {0, 0, 0};
    int64_t defaultInteger = 0;
};

struct Step {
    enum Kind : uint8_t { Value, If, Jump, For, EndFor, Special, Const, Or, Eat };
    enum Test : uint8_t { Any, None, Equal, More };

    Kind kind = Value;
    Bits bits = Bits::B;
    uint8_t components = 1;   // of a real value
    uint8_t handleCode = 5;
    bool isAngle = false;
    bool hasDefault = false;   // left out where it holds
    bool isAuto = false;
    bool isCounter = false;    // some loop goes by it
    bool isOpposite = false;   // of one bit
    Test test = Any;
    int16_t variable = -1;
    int16_t countBy = -1;   // the variable that says how many there are
    int fixedCount = 1;
    int mask = 0;      // of a bit of the place; of the variable tested
    int operand = 0;   // what is tested for, the value of a constant
    int base = 0;
    uint32_t reference = 0;   // offset of the value that a DD is told apart from
    uint32_t jump = 0;
    uint32_t anchor = 0;   // of a loop or a counter: the step whose group begins a row
    Place place, basePlace;
    std::vector<uint32_t> also;   // offsets of further reals
    std::vector<BitPair> pairs;
    const SpecialItem* special = nullptr;
    const CalculatedItem* calculated = nullptr;
};

struct LayoutProgram {
    static constexpr int kMostVariables = 40;

    const Layout* layout = nullptr;
    std::vector<Step> steps;
    struct Ordered {
        const char* marker = nullptr;   // or
        int code = 0;
        bool isAnywhere = false;
    };
    std::vector<std::string> markers;
    std::vector<Ordered> order;
};

// `schema` is null for a proxy.
std::unique_ptr<LayoutProgram> CompileLayout(const Layout& layout, const ClassSchema* schema, DwgVersion version);

// Where the groups of this code live in objects of a class.
struct PlaceWanted {
    int code = 0;
    int section = -1;   // -1: any behind those that all classes have
    int which = 1;      // of several with this code
    bool isRepeated = false;
    const ListField* list = nullptr;   // that the row around it belongs to
};
Place FindPlace(const ClassSchema* schema, bool isEntity, const PlaceWanted& wanted);

}   // namespace KxPlat
