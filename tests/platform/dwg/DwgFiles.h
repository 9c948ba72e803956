// The DWG drawings among the shared ones. Tests over them are skipped where the folder is absent.
#pragma once
#include "win/Files.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace DwgFiles {

inline std::vector<std::string> All()
{
    std::vector<std::string> paths;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(KX_DRAWINGS, error))
        if (entry.path().extension() == ".dwg")
            paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

inline std::string NameOf(const std::string& path)
{
    return std::filesystem::path(path).stem().string();
}

}   // namespace DwgFiles
