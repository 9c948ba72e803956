#include "GroupValue.h"
#include <cmath>

namespace KxPlat {

namespace {

struct KindRow {
    int first, last;
    GroupKind kind;
};

// The value types of the DXF reference, by ranges of group codes.
constexpr KindRow kKinds[] = {
    {0, 4, GroupKind::Text},         {5, 5, GroupKind::Text},        {6, 9, GroupKind::Text},
    {10, 59, GroupKind::Real},       {60, 79, GroupKind::Int16},     {90, 99, GroupKind::Int32},
    {100, 102, GroupKind::Text},     {105, 105, GroupKind::Text},    {110, 149, GroupKind::Real},
    {160, 169, GroupKind::Int64},    {170, 179, GroupKind::Int16},   {210, 239, GroupKind::Real},
    {270, 289, GroupKind::Int16},    {290, 299, GroupKind::Bool},    {300, 309, GroupKind::Text},
    {310, 319, GroupKind::Binary},   {320, 369, GroupKind::Handle},  {370, 389, GroupKind::Int16},
    {390, 399, GroupKind::Handle},   {400, 409, GroupKind::Int16},   {410, 419, GroupKind::Text},
    {420, 429, GroupKind::Int32},    {430, 439, GroupKind::Text},    {440, 459, GroupKind::Int32},
    {460, 469, GroupKind::Real},     {470, 479, GroupKind::Text},    {480, 481, GroupKind::Handle},
    {999, 999, GroupKind::Text},     {1000, 1003, GroupKind::Text},  {1004, 1004, GroupKind::Binary},
    {1005, 1005, GroupKind::Handle}, {1006, 1009, GroupKind::Text},  {1010, 1059, GroupKind::Real},
    {1060, 1070, GroupKind::Int16},  {1071, 1071, GroupKind::Int32},
};

// The same by code, for codes below 1100.
struct KindTable {
    GroupKind kinds[1100];
    constexpr KindTable() : kinds()
    {
        for (GroupKind& kind : kinds)
            kind = GroupKind::Text;
        for (const KindRow& row : kKinds)
            for (int code = row.first; code <= row.last; ++code)
                kinds[code] = row.kind;
    }
};

constexpr KindTable kByCode;

}   // namespace

GroupKind KindOfGroup(int code)
{
    return code >= 0 && code < 1100 ? kByCode.kinds[code] : GroupKind::Text;
}

Reference ReferenceOfGroup(int code)
{
    if (code >= 330 && code <= 339)
        return Reference::SoftPointer;
    if ((code >= 340 && code <= 349) || (code >= 390 && code <= 399) || code == 480 || code == 481)
        return Reference::HardPointer;
    if (code >= 350 && code <= 359)
        return Reference::SoftOwner;
    if (code >= 360 && code <= 369)
        return Reference::HardOwner;
    return code == 1005 || (code >= 320 && code <= 329) ? Reference::SoftPointer : Reference::None;
}

int64_t GroupValue::integer() const
{
    if (const int64_t* number = std::get_if<int64_t>(&value))
        return *number;
    if (const double* number = std::get_if<double>(&value))
        return std::abs(*number) < 9e18 ? int64_t(*number) : 0;
    return 0;
}

}   // namespace KxPlat
