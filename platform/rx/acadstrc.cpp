#include "acadstrc.h"
#include <algorithm>
#include <iterator>

namespace {

struct StatusName {
    int number;
    const ACHAR* name;
};

// Ascending by number.
constexpr StatusName kNames[] = {
#define KX_STATUS(name, number) {number, L## #name},
#include "ErrorStatus.inc"
#undef KX_STATUS
};

}   // namespace

const ACHAR* acadErrorStatusText(Acad::ErrorStatus status)
{
    const auto* found = std::lower_bound(std::begin(kNames), std::end(kNames), int(status),
                                         [](const StatusName& row, int number) { return row.number < number; });
    return found != std::end(kNames) && found->number == int(status) ? found->name : L"Unknown error";
}
