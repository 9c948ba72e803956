// Values as text, the way the drawing host prints them.
#pragma once
#include "Value.h"

namespace KxPlat::Lisp {

enum class PrintStyle {
    Plain,   // princ: texts as they are
    Quoted   // prin1: texts as they would be typed
};

std::wstring Printed(const Value& value, PrintStyle style = PrintStyle::Quoted);
// Six digits, and a point in any case: 1.0, 3.14159, 1.0e+20.
std::wstring PrintedReal(double value);
std::wstring PrintedName(AcDbObjectId id);
// At most `most` characters of the quoted form, for messages.
std::wstring Shortened(const Value& value, size_t most = 160);

}   // namespace KxPlat::Lisp
