#include "../ProcessStart.h"
#include "../CodePage.h"
#include "../CommandLine.h"
#include "../Files.h"
#include "../HandleTable.h"
#include "../Modules.h"
#include "../Processes.h"
#include "../WinAnswer.h"
#include "../WinSystem.h"
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// A process that this one has started. What nobody waited for is collected when its handle is closed, if it has ended
// by then, or when the next one is started.
class Child : public KxPlat::KernelObject {
public:
    explicit Child(pid_t id) : m_id(id) {}
    ~Child() override
    {
        if (!HasEnded())
            Orphans().push_back(m_id);
    }

    bool HasEnded()
    {
        int status = 0;
        if (!m_ended && waitpid(m_id, &status, WNOHANG) != 0) {
            m_ended = true;
            m_code = WIFEXITED(status) ? static_cast<DWORD>(WEXITSTATUS(status))
                                       : 0xC0000000U + static_cast<DWORD>(WTERMSIG(status));
        }
        return m_ended;
    }
    DWORD Code() { return HasEnded() ? m_code : STILL_ACTIVE; }
    void Kill(UINT code)
    {
        if (HasEnded())
            return;
        kill(m_id, SIGKILL);
        int status = 0;
        while (waitpid(m_id, &status, 0) < 0 && errno == EINTR) {
        }
        m_ended = true;
        m_code = code;
    }

    static void CollectOrphans()
    {
        std::erase_if(Orphans(), [](pid_t id) { return waitpid(id, nullptr, WNOHANG) != 0; });
    }

private:
    static std::vector<pid_t>& Orphans()
    {
        // Never destroyed: handles that are left open end after everything else.
        static auto& orphans = *new std::vector<pid_t>;
        return orphans;
    }

    pid_t m_id;
    bool m_ended = false;
    DWORD m_code = 0;
};

// The main thread of a started process; its handle is there to be closed.
class StartedThread : public KxPlat::KernelObject {};

// A started program has its own window: it neither reads what is typed here nor ends with this terminal.
void Detach()
{
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (nothing >= 0)
        dup2(nothing, STDIN_FILENO);
    setsid();
}

// Reports the error of an exec that failed through a pipe, which a successful one closes.
pid_t Start(const std::string& program, const std::vector<std::string>& words, const std::string& folder, int& error)
{
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        error = errno;
        return -1;
    }
    const pid_t id = fork();
    if (id == 0) {
        Detach();
        if (folder.empty() || chdir(folder.c_str()) == 0)
            execv(program.c_str(), arguments.data());
        const int failure = errno;
        const ssize_t ignored = write(ends[1], &failure, sizeof failure);
        _exit(ignored == 0 ? 126 : 127);
    }
    error = id < 0 ? errno : 0;
    close(ends[1]);
    if (id > 0 && read(ends[0], &error, sizeof error) == static_cast<ssize_t>(sizeof error))
        waitpid(id, nullptr, 0);
    close(ends[0]);
    return id;
}

DWORD StartError(int error)
{
    return error == ENOEXEC || error == EACCES ? DWORD(ERROR_BAD_EXE_FORMAT) : KxPlat::WinErrorOf(error);
}

bool IsThere(const std::string& path)
{
    return KxPlat::FileInfoOf(path).exists;
}

// A program whose name lacks an extension may also be found with ".exe", one without a folder beside this program.
std::string ProgramFile(const std::wstring& name)
{
    std::wstring places[] = {name, L""};
    if (name.find_first_of(L"\\/:") == std::wstring::npos) {
        wchar_t own[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, own, MAX_PATH);
        places[1] = std::wstring(own).substr(0, std::wstring_view(own).rfind(L'\\') + 1) + name;
    }
    for (const std::wstring& place : places) {
        for (const wchar_t* extension : {L"", L".exe"}) {
            std::string path = KxPlat::HostPath(place + extension);
            if (IsThere(path))
                return path;
        }
    }
    return KxPlat::HostPath(name);
}

// The words of a line that begins with the program's name. Without quotation marks the name may hold blanks: the
// shortest beginning that is a file is taken.
std::vector<std::wstring> LineWords(const std::wstring& line)
{
    for (size_t end = line.find(L' '); line[0] != L'"' && end != std::wstring::npos; end = line.find(L' ', end + 1)) {
        const std::wstring name = line.substr(0, end);
        if (end == 0 || !IsThere(ProgramFile(name)))
            continue;
        std::vector<std::wstring> words = KxPlat::CommandWords(L"x" + line.substr(end));
        words[0] = name;
        return words;
    }
    return KxPlat::CommandWords(line);
}

// The error of a program's file that cannot be started, 0 for the others.
DWORD FileError(const std::string& path)
{
    const KxPlat::FileInfo file = KxPlat::FileInfoOf(path);
    if (file.exists)
        return file.isFolder ? ERROR_ACCESS_DENIED : ERROR_SUCCESS;
    const size_t slash = path.rfind('/');
    const bool hasFolder = slash == std::string::npos || IsThere(path.substr(0, slash + 1));
    return hasFolder ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

Child* ChildOf(HANDLE handle)
{
    auto* child = dynamic_cast<Child*>(KxPlat::ObjectOf(handle));
    if (child == nullptr)
        SetLastError(ERROR_INVALID_HANDLE);
    return child;
}

}   // namespace

BOOL CreateProcessW(LPCWSTR program, LPWSTR commandLine, const _SECURITY_ATTRIBUTES* process,
                    const _SECURITY_ATTRIBUTES* thread, BOOL inherit, DWORD flags, LPVOID environment, LPCWSTR folder,
                    LPSTARTUPINFOW start, LPPROCESS_INFORMATION info)
{
    if (info == nullptr || (program == nullptr && (commandLine == nullptr || *commandLine == 0)))
        return KxPlat::FailWith(ERROR_INVALID_PARAMETER);
    Child::CollectOrphans();
    std::vector<std::wstring> words = {program != nullptr ? program : L""};
    if (commandLine != nullptr && *commandLine != 0)
        words = program != nullptr ? KxPlat::CommandWords(commandLine) : LineWords(commandLine);
    const std::wstring name = program != nullptr ? program : words[0];
    std::string path = ProgramFile(name);
    if (const DWORD error = FileError(path); error != 0)
        return KxPlat::FailWith(error);
    if (folder != nullptr && !KxPlat::FileInfoOf(KxPlat::HostPath(folder)).isFolder)
        return KxPlat::FailWith(ERROR_DIRECTORY);
    if (path[0] != '/')
        path = KxPlat::CurrentFolder() + "/" + path;
    if (words[0].empty())
        words[0] = name;
    std::vector<std::string> bytes;
    for (const std::wstring& word : words)
        bytes.push_back(KxPlat::ToUtf8(word));
    int error = 0;
    const pid_t id = Start(path, bytes, folder != nullptr ? KxPlat::HostPath(folder) : std::string(), error);
    if (error != 0)
        return KxPlat::FailWith(StartError(error));
    *info = {KxPlat::NewHandle(std::make_unique<Child>(id)), KxPlat::NewHandle(std::make_unique<StartedThread>()),
             static_cast<DWORD>(id), static_cast<DWORD>(id)};
    return TRUE;
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds)
{
    Child* child = ChildOf(handle);
    if (child == nullptr)
        return WAIT_FAILED;
    const DWORD begin = GetTickCount();
    for (DWORD pause = 1; !child->HasEnded(); pause = pause < 20 ? pause + 1 : pause) {
        const DWORD passed = GetTickCount() - begin;
        if (milliseconds != INFINITE && passed >= milliseconds)
            return WAIT_TIMEOUT;
        Sleep(milliseconds == INFINITE || milliseconds - passed > pause ? pause : milliseconds - passed);
    }
    return WAIT_OBJECT_0;
}

BOOL GetExitCodeProcess(HANDLE process, LPDWORD code)
{
    Child* child = ChildOf(process);
    if (child == nullptr || code == nullptr)
        return FALSE;
    *code = child->Code();
    return TRUE;
}

BOOL TerminateProcess(HANDLE process, UINT code)
{
    Child* child = ChildOf(process);
    if (child == nullptr)
        return FALSE;
    child->Kill(code);
    return TRUE;
}
