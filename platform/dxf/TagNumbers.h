// Numbers as drawing files spell them: from_chars where it suffices, and what sloppy programs write besides.
#pragma once
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace KxPlat {

inline bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

inline std::string_view TrimBlanks(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// Takes a sign, a Fortran exponent ("1.5D+3") and numbers beyond the range of a double, which become the largest one.
// Empty for what is no number; `isExact` is false when the number could not be taken as it stands.
std::optional<double> ParseReal(std::string_view text, bool& isExact);
// Also takes an integer written as a real ("7.0"); `isExact` as above.
std::optional<int64_t> ParseInteger(std::string_view text, bool& isExact);
// Hexadecimal digits, at most 64 bits.
std::optional<uint64_t> ParseHandle(std::string_view text);
// Pairs of hexadecimal digits; empty for anything else.
std::optional<std::string> ParseChunk(std::string_view text);

}   // namespace KxPlat
