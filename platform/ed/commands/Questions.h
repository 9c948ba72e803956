// Questions that several host commands ask.
#pragma once
#include <optional>
#include <string>

namespace KxPlat {

// A whole line; quotes around it are taken off. Nothing when the user cancelled.
std::optional<std::wstring> AskLine(const std::wstring& prompt);
// Enter answers `byDefault`, Esc no.
bool AskYesNo(const std::wstring& question, bool byDefault);
// A file to open or save: from the host's dialog where a user sits in front of it, else from the command line. Enter
// answers `initial`.
std::optional<std::wstring> AskFile(const std::wstring& prompt, const std::wstring& title, const std::wstring& initial,
                                    const std::wstring& extensions, bool forSave);
// Says on the command line what went wrong, and fails the script.
void FailCommand(const std::wstring& text);

}   // namespace KxPlat
