// This program among the installations of the CAD program that the registry tells of.
#pragma once
#include <string>

namespace KxConsole {

// "18.2" of the version resource that this program's file carries.
std::wstring OwnRelease();

// Puts a copy of this program that presents the release into `folder`, as "acad.exe", and enters it for the user.
// Answers what is wrong, "WHAT: WHY"; empty when it is done.
std::wstring Install(const std::wstring& release, const std::string& folder);
// Takes away what Install made for the release. A CAD program of another kind is left alone.
std::wstring Uninstall(const std::wstring& release);

// Makes a profile of the release the current one; `folders` are its folders of support files. False without one.
bool UseProfile(const std::wstring& release, const std::wstring& profile, std::wstring& folders);

}   // namespace KxConsole
