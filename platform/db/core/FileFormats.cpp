#include "FileFormats.h"
#include "../../win/CharTables.h"
#include "../../win/Files.h"

namespace KxPlat {

namespace {

std::vector<FileFormat>& Formats()
{
    static std::vector<FileFormat> formats;
    return formats;
}

}   // namespace

void AddFileFormat(const FileFormat& format)
{
    Formats().push_back(format);
}

const FileFormat* FormatOf(std::wstring_view path)
{
    for (const FileFormat& format : Formats()) {
        const std::wstring_view extension(format.extension);
        if (path.size() > extension.size() && EqualNoCase(path.substr(path.size() - extension.size()), extension))
            return &format;
    }
    return nullptr;
}

const FileFormat* FormatOfFile(std::wstring_view path)
{
    constexpr size_t kEnough = 4096;
    const std::string hostPath = HostPath(path);
    MappedFile file;   // a look into a pipe would take from it
    if (FileInfoOf(hostPath).isRegular && file.Open(hostPath) == 0)
        for (const FileFormat& format : Formats())
            if (format.isOf(file.View().substr(0, kEnough)))
                return &format;
    return FormatOf(path);
}

ReadReport& LastReadReport()
{
    static ReadReport report;
    return report;
}

WriteReport& LastWriteReport()
{
    static WriteReport report;
    return report;
}

}   // namespace KxPlat
