#include "TagNumbers.h"
#include <limits>
#include <string>

namespace KxPlat {

namespace {

int DigitOf(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char upper = char(c & ~0x20);
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

std::string_view WithoutPlus(std::string_view text)
{
    text = TrimBlanks(text);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    return text;
}

// An exponent tells an overflow from an underflow, both of which from_chars answers alike.
double BeyondRange(std::string_view text)
{
    const size_t exponent = text.find_first_of("eE");
    const bool isTiny = exponent != text.npos && exponent + 1 < text.size()
                            ? text[exponent + 1] == '-'
                            : text.find_first_of("123456789") > text.find('.');
    if (isTiny)
        return 0.0;
    return text.front() == '-' ? std::numeric_limits<double>::lowest() : std::numeric_limits<double>::max();
}

}   // namespace

std::optional<double> ParseReal(std::string_view text, bool& isExact)
{
    isExact = true;
    text = WithoutPlus(text);
    std::string spelled;
    if (text.find_first_of("dD") != text.npos) {
        spelled = text;
        for (char& c : spelled)
            if (c == 'd' || c == 'D')
                c = 'e';
        text = spelled;
    }
    double value = 0.0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (fault == std::errc::invalid_argument || !std::isfinite(value))
        return std::nullopt;
    isExact = fault == std::errc() && end == text.data() + text.size();
    return fault == std::errc::result_out_of_range ? BeyondRange(text) : value;
}

std::optional<int64_t> ParseInteger(std::string_view text, bool& isExact)
{
    isExact = true;
    text = WithoutPlus(text);
    int64_t value = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (fault == std::errc() && end == text.data() + text.size())
        return value;
    const std::optional<double> real = ParseReal(text, isExact);
    if (!real || std::abs(*real) > 9.0e18)
        return std::nullopt;
    isExact = isExact && double(int64_t(*real)) == *real;
    return int64_t(*real);
}

std::optional<uint64_t> ParseHandle(std::string_view text)
{
    text = TrimBlanks(text);
    if (text.empty())
        return std::nullopt;
    uint64_t value = 0;
    for (char c : text) {
        const int digit = DigitOf(c);
        if (digit < 0 || value >> 60 != 0)
            return std::nullopt;
        value = value << 4 | uint64_t(digit);
    }
    return value;
}

std::optional<std::string> ParseChunk(std::string_view text)
{
    text = TrimBlanks(text);
    if (text.size() % 2 != 0)
        return std::nullopt;
    std::string bytes;
    bytes.reserve(text.size() / 2);
    for (size_t i = 0; i < text.size(); i += 2) {
        const int high = DigitOf(text[i]), low = DigitOf(text[i + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes.push_back(char(high << 4 | low));
    }
    return bytes;
}

}   // namespace KxPlat
