#include "FileFormats.h"
#include "../../win/CharTables.h"
#include <vector>

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

ReadReport& LastReadReport()
{
    static ReadReport report;
    return report;
}

}   // namespace KxPlat
