#include "../WindowFolder.h"
#include "../CodePage.h"
#include "../Files.h"
#include "../ProcessFile.h"
#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace KxPlat {
namespace {

constexpr unsigned kNumbers = 256;   // of windows in a process

std::string LifeFile(DWORD processId)
{
    return WindowFolder() + "/" + std::to_string(processId) + ".alive";
}

std::string WindowFile(HWND window)
{
    const auto number = reinterpret_cast<uintptr_t>(window);
    return WindowFolder() + "/" + std::to_string(number / kNumbers) + "." + std::to_string(number % kNumbers);
}

// Nobody else may enter windows here.
bool IsPrivate(const std::string& folder)
{
    struct stat info = {};
    return lstat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == getuid() &&
           (info.st_mode & 0077) == 0;
}

void RemoveAllOf(DWORD processId)
{
    const std::string prefix = std::to_string(processId) + ".";
    for (const FolderEntry& entry : ListFolder(WindowFolder())) {
        if (entry.name.starts_with(prefix))
            RemoveFile(WindowFolder() + "/" + entry.name);
    }
}

// The mark, locked, or -1.
int OpenMark(const std::string& name)
{
    const int file = open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    struct stat own = {}, named = {};
    if (file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0 && fstat(file, &own) == 0 && stat(name.c_str(), &named) == 0 &&
        own.st_ino == named.st_ino)
        return file;
    if (file >= 0)
        close(file);
    return -1;
}

struct Mark {
    int file = -1;
    DWORD holder = 0;
};

Mark& TheMark()
{
    static Mark mark;
    return mark;
}

// A line end in a title would end its line.
std::string Line(const std::wstring& text)
{
    std::string line = ToUtf8(text);
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line + "\n";
}

}   // namespace

HWND WindowHandle(DWORD processId, unsigned number)
{
    return reinterpret_cast<HWND>(uintptr_t(processId) * kNumbers + number);
}

DWORD ProcessOfWindow(HWND window)
{
    return static_cast<DWORD>(reinterpret_cast<uintptr_t>(window) / kNumbers);
}

std::string WindowFolder()
{
    const char* wanted = std::getenv("KX_WINDOWS");
    if (wanted != nullptr && wanted[0] == '/')
        return wanted;
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && runtime[0] == '/')
        return std::string(runtime) + "/kxcad-windows";
    return TempFolder() + "/kxcad-windows-" + std::to_string(getuid());
}

std::string WindowSocketFile(DWORD processId)
{
    return WindowFolder() + "/" + std::to_string(processId) + ".socket";
}

bool HoldLifeMark()
{
    auto& [held, holder] = TheMark();
    if (holder == OwnProcessId())
        return true;
    mkdir(WindowFolder().c_str(), 0700);
    if (!IsPrivate(WindowFolder()))
        return false;
    // A process that began as a copy of one with windows starts anew.
    if (held >= 0)
        close(held);
    held = -1;
    // Somebody may just be removing what a dead process of the same number left behind.
    for (int tries = 0; tries < 100 && held < 0; ++tries)
        held = OpenMark(LifeFile(OwnProcessId()));
    if (held < 0)
        return false;
    holder = OwnProcessId();
    return true;
}

void DropLifeMark()
{
    if (TheMark().holder != OwnProcessId())
        return;
    RemoveAllOf(OwnProcessId());
    close(TheMark().file);
    TheMark() = Mark();
}

bool IsAlive(DWORD processId)
{
    if (processId == OwnProcessId())
        return true;
    const int file = open(LifeFile(processId).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool isDead = flock(file, LOCK_SH | LOCK_NB) == 0;
    if (isDead)
        RemoveAllOf(processId);
    close(file);
    return !isDead;
}

bool WriteWindow(HWND window, const WindowFacts& facts)
{
    AtomicFile out;
    if (!HoldLifeMark() || out.Open(WindowFile(window)) != 0)
        return false;
    std::ostringstream numbers;
    numbers << facts.style << " " << facts.extendedStyle << " " << facts.classStyle << " "
            << reinterpret_cast<uintptr_t>(facts.owner) << "\n";
    out.Write(Line(facts.title) + Line(facts.className) + numbers.str());
    return out.Commit() == 0;
}

void EraseWindow(HWND window)
{
    RemoveFile(WindowFile(window));
}

std::optional<WindowFacts> ReadWindow(HWND window)
{
    if (window == nullptr || !IsPrivate(WindowFolder()) || !IsAlive(ProcessOfWindow(window)))
        return std::nullopt;
    int error = 0;
    std::istringstream in(ReadWholeFile(WindowFile(window), error));
    std::string title, className;
    uintptr_t owner = 0;
    WindowFacts facts;
    if (error != 0 || !std::getline(in, title) || !std::getline(in, className) ||
        !(in >> facts.style >> facts.extendedStyle >> facts.classStyle >> owner))
        return std::nullopt;
    facts.title = FromUtf8(title);
    facts.className = FromUtf8(className);
    facts.owner = reinterpret_cast<HWND>(owner);
    return facts;
}

std::vector<HWND> AllWindows()
{
    std::vector<HWND> windows;
    for (const FolderEntry& entry : ListFolder(WindowFolder())) {
        const size_t dot = entry.name.find('.');
        const auto isDigits = [](std::string_view text) {
            return !text.empty() && text.size() < 10 && text.find_first_not_of("0123456789") == std::string_view::npos;
        };
        if (dot == std::string::npos || !isDigits(entry.name.substr(0, dot)) || !isDigits(entry.name.substr(dot + 1)))
            continue;
        windows.push_back(WindowHandle(static_cast<DWORD>(std::stoul(entry.name)),
                                       static_cast<unsigned>(std::stoul(entry.name.substr(dot + 1)))));
    }
    std::sort(windows.begin(), windows.end());
    return windows;
}

}   // namespace KxPlat
