// Texts in the user's part of the registry, by the paths of their keys.
#pragma once
#include <string>
#include <vector>

namespace KxConsole {

// An empty name is the default value's. False when there is no such text.
bool ReadText(const std::wstring& key, const std::wstring& name, std::wstring& text);
// Makes the key when it is missing.
bool WriteText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
bool HasKey(const std::wstring& key);
std::vector<std::wstring> KeysIn(const std::wstring& key);
bool RemoveTree(const std::wstring& key);

}   // namespace KxConsole
