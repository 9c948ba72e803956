// Digits of a real as the formatter prints them: without sign, padding or width.
#pragma once
#include <string>

namespace KxPlat {

// `kind` is one of e f g a (or a capital of these), `precision` below 0 means the default (6, or 13 for a).
// `alternate` keeps the point and the zeros behind it. The sign is left to the caller.
std::string RealDigits(double value, char kind, int precision, bool alternate);

}   // namespace KxPlat
