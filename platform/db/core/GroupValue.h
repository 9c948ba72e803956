// One DXF group held as a value: what no field of a class claims, extended data, extended records.
#pragma once
#include "../../mfc/CString.h"
#include "../AcDbObjectId.h"
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace KxPlat {

// How the value of a group is stored, which follows from its code alone.
enum class GroupKind : uint8_t { Text, Real, Int16, Int32, Int64, Bool, Handle, Binary };
GroupKind KindOfGroup(int code);

// The kind of reference that a handle group makes; None for codes that hold no object id.
enum class Reference : uint8_t { None, SoftPointer, HardPointer, SoftOwner, HardOwner };
Reference ReferenceOfGroup(int code);

// Bytes of a binary chunk, shared between copies since nobody changes them in place.
using Bytes = std::shared_ptr<const std::string>;

struct GroupValue {
    int16_t code = 0;
    uint8_t section = 0;      // of the object's class, counted from 0 for the header before any subclass marker
    bool startsRun = false;   // the first of a run of neighbouring groups
    std::variant<int64_t, double, AcDbObjectId, CString, Bytes> value;

    double real() const { return std::holds_alternative<double>(value) ? std::get<double>(value) : double(integer()); }
    int64_t integer() const;
    AcDbObjectId id() const
    {
        return std::holds_alternative<AcDbObjectId>(value) ? std::get<AcDbObjectId>(value) : nullptr;
    }
    CString text() const { return std::holds_alternative<CString>(value) ? std::get<CString>(value) : CString(); }
};

using GroupList = std::vector<GroupValue>;

}   // namespace KxPlat
