// Enters drawing exchange files in the database's table of formats.
#include "../db/core/FileFormats.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
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
    if (isRead)
        return Acad::eOk;
    report.error = FromUtf8(heard.error());
    return Acad::eDxfReadAborted;
}

Acad::ErrorStatus Write(AcDbDatabase& database, const wchar_t* path, AcDb::AcDbDwgVersion version, bool isBinary,
                        int precision)
{
    switch (WriteDxf(database, HostPath(path), {version, isBinary, precision})) {
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

const bool g_isEntered = [] {
    AddFileFormat({L".dxf", Read, Write});
    return true;
}();

}   // namespace

}   // namespace KxPlat
