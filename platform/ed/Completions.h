// What a line that is being typed may become: names of commands, keywords, layers and other named things.
#pragma once
#include "../ui/HostUi.h"
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

// Whole lines, sorted, none twice. A text's prompt tells what it asks for by its words: "Enter layer name(s)" takes the
// layers of the current drawing, one or several with commas between them.
std::vector<std::wstring> Completions(const InputRequest& request, std::wstring_view typed);

}   // namespace KxPlat
