// Lengths and angles as texts in the drawing's units, and back. Modes are those of the system variables LUNITS and
// AUNITS; a precision below 0 is none of them. Angles are in radians.
#pragma once
#include <string>
#include <string_view>

namespace KxPlat {

enum class LengthMode { Scientific = 1, Decimal = 2, Engineering = 3, Architectural = 4, Fractional = 5 };
enum class AngleMode { Degrees = 0, DegreesMinutesSeconds = 1, Grads = 2, Radians = 3, Surveyor = 4 };

// `zeroMode` holds the bits of DIMZIN: which zeros are left out.
std::wstring LengthText(double value, LengthMode mode, int precision, int zeroMode = 0);
std::wstring AngleText(double radians, AngleMode mode, int precision);

// False, and nothing changed, for a text that is no length or angle. Feet and inches are understood in every mode.
bool LengthIn(std::wstring_view text, double& value);
bool AngleIn(std::wstring_view text, AngleMode mode, double& radians);

}   // namespace KxPlat
