// A program that writes the arguments it was started with, one a line in UTF-8, to the file that KX_TEST_LOG names.
#pragma once
#include "KxMfcEx/StrFunLib.h"
#include <filesystem>

namespace KxTest {

inline void InstallArgumentProgram(const std::filesystem::path& file)
{
    CopyFileW(CStrFunLib::GetCurExeRunPath() + L"ArgumentProgram.exe", file.c_str(), FALSE);
}

}   // namespace KxTest
