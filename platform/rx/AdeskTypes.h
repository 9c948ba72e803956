// The host's basic types, of the same width on every system.
#pragma once
#include <cstdint>

typedef wchar_t ACHAR;

#define ACRX_T(text) L##text
#define _ACRX_T(text) L##text

namespace Adesk {

typedef std::int8_t Int8;
typedef std::int16_t Int16;
typedef std::int32_t Int32;
typedef std::int64_t Int64;
typedef std::uint8_t UInt8;
typedef std::uint16_t UInt16;
typedef std::uint32_t UInt32;
typedef std::uint64_t UInt64;
typedef std::intptr_t IntPtr;
typedef std::uintptr_t UIntPtr;
typedef std::intptr_t LongPtr;
typedef std::uintptr_t ULongPtr;
typedef IntPtr GsMarker;
typedef UIntPtr IntDbId;
typedef UInt32 uLong;

typedef int Boolean;
constexpr Boolean kFalse = 0;
constexpr Boolean kTrue = 1;

}   // namespace Adesk
