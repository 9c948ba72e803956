#include "RegistryStore.h"
#include "CodePage.h"
#include "FileHandles.h"
#include "Files.h"
#include "Processes.h"
#include "WinError.h"
#include <cstdlib>
#include <optional>

namespace KxPlat {
namespace {

constexpr DWORD kNoRegistry = 1009;   // ERROR_BADDB

struct Store {
    std::string file;
    std::optional<FileInfo::Stamp> stamp;   // of the file that the tree was read from
    std::unique_ptr<RegistryKey> root = std::make_unique<RegistryKey>();
    RegistryReading reading;
    bool isForeign = false;   // the file is no registry
};

Store& TheStore()
{
    static Store store;
    return store;
}

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string ConfigurationFolder()
{
    std::string wanted = Environment("XDG_CONFIG_HOME");
    if (!wanted.empty() && wanted[0] == '/')
        return wanted;
    const std::string home = Environment("HOME");
    return (home.empty() || home[0] != '/' ? TempFolder() : home) + "/.config";
}

void Refresh(Store& store)
{
    const std::string file = RegistryFile();
    const FileInfo info = FileInfoOf(file);
    if (store.stamp && store.file == file && *store.stamp == info.stamp)
        return;
    store.file = file;
    store.stamp = info.stamp;
    store.root = std::make_unique<RegistryKey>();
    int error = 0;
    const std::string bytes = info.exists ? ReadWholeFile(file, error) : std::string();
    store.reading = ReadRegistry(bytes, *store.root);
    store.isForeign = error != 0 || (!bytes.empty() && !store.reading.isRegistry);
}

DWORD WriteFileWhole(const std::string& path, std::string_view bytes)
{
    AtomicFile out;
    int error = out.Open(path);
    if (error == 0) {
        out.Write(bytes);
        error = out.Commit();
    }
    return error == 0 ? DWORD(ERROR_SUCCESS) : WinErrorOf(error);
}

// Held while one process reads, changes and writes. The registry itself is replaced at each change, so that a file
// beside it is what the processes meet at.
class ChangeLock {
public:
    explicit ChangeLock(const std::string& file)
        : m_file(CreateFileW(DrivePath(file + ".lock").c_str(), GENERIC_READ | GENERIC_WRITE,
                             FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        if (m_file == INVALID_HANDLE_VALUE || !LockFileEx(m_file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &m_region))
            m_error = GetLastError();
    }
    ~ChangeLock()
    {
        if (m_file != INVALID_HANDLE_VALUE)
            CloseHandle(m_file);
    }
    ChangeLock(const ChangeLock&) = delete;
    ChangeLock& operator=(const ChangeLock&) = delete;
    DWORD Error() const { return m_error; }

private:
    HANDLE m_file;
    OVERLAPPED m_region = {};
    DWORD m_error = ERROR_SUCCESS;
};

DWORD KeepDamaged(const Store& store)
{
    const std::string copy = store.file + ".damaged";
    if (store.reading.badLine == 0 || FileInfoOf(copy).exists)
        return ERROR_SUCCESS;
    int error = 0;
    const std::string bytes = ReadWholeFile(store.file, error);
    return error == 0 ? WriteFileWhole(copy, bytes) : WinErrorOf(error);
}

DWORD Save(Store& store)
{
    const DWORD error = KeepDamaged(store);
    return error != 0 ? error : WriteFileWhole(store.file, RegistryText(*store.root, store.reading.encoding));
}

}   // namespace

std::string RegistryFile()
{
    const std::string wanted = Environment("KX_REGISTRY");
    return wanted.empty() ? ConfigurationFolder() + "/kxcad/registry.reg" : HostPath(FromUtf8(wanted));
}

RegistryKey& RegistryRoot()
{
    Refresh(TheStore());
    return *TheStore().root;
}

DWORD ChangeRegistry(const std::function<DWORD(RegistryKey& root)>& change)
{
    Store& store = TheStore();
    const std::string file = RegistryFile();
    const size_t slash = file.rfind('/');
    if (const int error = slash == std::string::npos || slash == 0 ? 0 : MakeFolders(file.substr(0, slash)))
        return WinErrorOf(error);
    const ChangeLock lock(file);
    if (lock.Error() != 0)
        return lock.Error();
    Refresh(store);
    if (store.isForeign)
        return kNoRegistry;
    DWORD error = change(*store.root);
    if (error != 0)
        return error;
    error = Save(store);
    // What could not be written is forgotten, too: the next look reads the file again.
    store.stamp.reset();
    if (error == 0) {
        store.stamp = FileInfoOf(file).stamp;
        store.reading.badLine = 0;
    }
    return error;
}

}   // namespace KxPlat
