// What Tab offers at the terminal.
#pragma once
#include <functional>
#include <string>
#include <vector>

namespace KxConsole {

// Whole lines that what stands before the cursor may become.
using Completer = std::function<std::vector<std::string>(const std::string& typed)>;

void InstallCompletion();
// For the line that is read next; an empty one completes nothing.
void CompleteWith(Completer completer);

}   // namespace KxConsole
