// A program that writes the arguments it was started with, one a line in UTF-8, to the file that KX_TEST_LOG names.
#pragma once
#include <filesystem>
#include <fstream>

namespace KxTest {

inline void InstallArgumentProgram(const std::filesystem::path& file)
{
    std::ofstream(file) << "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$KX_TEST_LOG.new\"\n"
                           "mv \"$KX_TEST_LOG.new\" \"$KX_TEST_LOG\"\n";
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
}

}   // namespace KxTest
