// Enters drawing exchange files in the database's table of formats.
#include "../db/core/FileFormats.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
#include "BinaryTags.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include <cerrno>

namespace KxPlat {

namespace {

Acad::ErrorStatus Read(AcDbDatabase& database, const wchar_t* path, ReadReport& report)
{
    DxfReport heard;
    const bool isRead = ReadDxf(database, HostPath(path), heard);
    report.repairs = heard.mendedCount();
    if (!heard.mended().empty())
        report.firstRepair = FromUtf8(heard.mended()[0]);
    for (const std::string& line : heard.mended())
        report.lines.push_back(FromUtf8(line));
    if (isRead)
        return Acad::eOk;
    report.error = FromUtf8(heard.error());
    return Acad::eDxfReadAborted;
}

Acad::ErrorStatus Write(AcDbDatabase& database, const wchar_t* path, AcDb::AcDbDwgVersion version, bool isBinary,
                        int precision)
{
    LastWriteReport() = WriteReport();
    switch (WriteDxf(database, HostPath(path), {version, isBinary, precision}, &LastWriteReport().dropped)) {
    case 0:
        return Acad::eOk;
    case EACCES:
    case EROFS:
        return Acad::eFileAccessErr;
    case ENOENT:
        return Acad::eFileNotFound;
    default:
        return Acad::eFileSystemErr;
    }
}

// A text file begins with a group code, which is 0 or 999.
bool IsDxf(std::string_view firstBytes)
{
    if (firstBytes.starts_with(kBinarySentinel))
        return true;
    if (firstBytes.starts_with("\xEF\xBB\xBF"))
        firstBytes.remove_prefix(3);
    const size_t first = firstBytes.find_first_not_of(" \t\r\n");
    if (first == firstBytes.npos)
        return false;
    firstBytes.remove_prefix(first);
    for (const std::string_view code : {"0", "999"})
        if (firstBytes.starts_with(code) && firstBytes.find_first_of(" \t\r\n") == code.size())
            return true;
    return false;
}

AcDb::AcDbDwgVersion Written(AcDb::AcDbDwgVersion wanted)
{
    return wanted;
}

const bool g_isEntered = [] {
    AddFileFormat({L".dxf", Read, Write, IsDxf, Written});
    return true;
}();

}   // namespace

}   // namespace KxPlat
