#include "StateFolder.h"
#include "win/Processes.h"
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace KxConsole {

namespace fs = std::filesystem;

namespace {

constexpr size_t kMostLogs = 20;

void RemoveOldLogs(const fs::path& folder)
{
    std::error_code error;
    std::vector<std::pair<fs::file_time_type, fs::path>> logs;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
        if (entry.path().extension() == ".log")
            logs.emplace_back(entry.last_write_time(error), entry.path());
    std::sort(logs.rbegin(), logs.rend());
    for (size_t i = kMostLogs; i < logs.size(); ++i)
        fs::remove(logs[i].second, error);
}

}   // namespace

std::string StateFolder()
{
    const char* state = std::getenv("XDG_STATE_HOME");
    const char* home = std::getenv("HOME");
    const bool hasState = state != nullptr && *state != 0;
    if (!hasState && (home == nullptr || *home == 0))
        return std::string();
    const fs::path folder = (hasState ? fs::path(state) : fs::path(home) / ".local/state") / "kxcad";
    std::error_code error;
    fs::create_directories(folder, error);
    return error ? std::string() : folder.string();
}

std::string NewLogFile()
{
    const std::string folder = StateFolder();
    if (folder.empty())
        return std::string();
    RemoveOldLogs(folder);
    return folder + "/kxcad-" + std::to_string(GetCurrentProcessId()) + ".log";
}

}   // namespace KxConsole
