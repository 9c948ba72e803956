// Values of layouts that are more than a code and a group: those whose form depends on their value, those that gather
// what lies elsewhere in the drawing. Each is a pair of functions that take the same bits.
#pragma once
#include <cstdint>
#include <string_view>

namespace KxPlat {

class ObjectDecoder;
class ObjectEncoder;
struct Step;

struct SpecialItem {
    std::string_view name;
    void (*read)(ObjectDecoder&, const Step&);
    void (*write)(ObjectEncoder&, const Step&);
};
// A number that a writer works out: a set of bits that says what follows.
struct CalculatedItem {
    std::string_view name;
    int64_t (*value)(ObjectEncoder&);
};

const SpecialItem* FindSpecial(std::string_view name);
const CalculatedItem* FindCalculated(std::string_view name);

}   // namespace KxPlat
