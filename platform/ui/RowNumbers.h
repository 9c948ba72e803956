// Rows as a user types them: "2", "1,3-5", "1 4", "*".
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

// Numbers from 1 to `count`, in rising order and each once. False when `text` is no list of such numbers.
bool ParseRowNumbers(std::wstring_view text, int count, std::vector<int>& numbers);
// The shortest form of rising numbers: "1,3-5".
std::wstring RowNumbersText(const std::vector<int>& numbers);

}   // namespace KxPlat
