#include "BackUp.h"
#include "../../win/Files.h"

namespace KxPlat {

namespace {

std::string BackUpName(const std::string& hostPath)
{
    const size_t folder = hostPath.rfind('/');
    const size_t dot = hostPath.rfind('.');
    const bool hasExtension = dot != std::string::npos && (folder == std::string::npos || dot > folder);
    return hostPath.substr(0, hasExtension ? dot : hostPath.size()) + ".bak";
}

}   // namespace

bool BackUpFile(std::wstring_view path)
{
    const std::string hostPath = HostPath(path);
    if (!FileInfoOf(hostPath).isRegular)
        return true;
    constexpr size_t kStep = size_t(1) << 20;
    MappedFile old;
    AtomicFile copy;
    if (old.Open(hostPath) != 0 || copy.Open(BackUpName(hostPath)) != 0)
        return false;
    const std::string_view bytes = old.View();
    for (size_t at = 0; at < bytes.size(); at += kStep)
        copy.Write(bytes.substr(at, kStep));
    return copy.Commit() == 0;
}

}   // namespace KxPlat
