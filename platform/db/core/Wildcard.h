// The host's name patterns: * any text, ? any character, # a digit, @ a letter, . neither letter nor digit,
// [abc] [a-c] [~abc] one of or none of, a leading ~ negates, a comma separates alternatives, ` quotes the next
// character.
#pragma once
#include <string_view>

namespace KxPlat {

// Without regard to case, as names are compared.
bool WildcardMatch(std::wstring_view text, std::wstring_view pattern);
// As LISP's wcmatch does it: upper and lower case differ.
bool WildcardMatchExact(std::wstring_view text, std::wstring_view pattern);

}   // namespace KxPlat
