// Enters DWG files in the database's table of formats.
#include "../db/core/FileFormats.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
#include "Container.h"
#include "DwgReader.h"
#include "DwgWriter.h"
#include <cerrno>

namespace KxPlat {

namespace {

Acad::ErrorStatus Read(AcDbDatabase& database, const wchar_t* path, ReadReport& report)
{
    MappedFile file;
    if (const int error = file.Open(HostPath(path))) {
        report.error = SystemErrorText(error);
        return Acad::eFileAccessErr;
    }
    DwgReport heard;
    const bool isRead = ReadDwg(database, file.View(), heard, nullptr, &file);
    report.repairs = heard.mendedCount();
    report.lost = heard.lostCount();
    for (const std::string& line : heard.lines())
        report.lines.push_back(FromUtf8(line));
    if (!report.lines.empty())
        report.firstRepair = report.lines[0];
    if (isRead)
        return Acad::eOk;
    report.error = FromUtf8(heard.error());
    return DwgVersionOf(file.View()) == AcDb::kDHL_CURRENT ? Acad::eInvalidDwgVersion : Acad::eDwgNeedsRecovery;
}

Acad::ErrorStatus Write(AcDbDatabase& database, const wchar_t* path, AcDb::AcDbDwgVersion version, bool, int)
{
    const DwgWritten written = WriteDwg(database, HostPath(path), version);
    LastWriteReport() = {written.dropped};
    switch (written.error) {
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

bool IsDwg(std::string_view firstBytes)
{
    const std::string_view version = firstBytes.substr(0, 6);
    return version.size() == 6 && version.starts_with("AC1") && version.find_first_of("\r\n") == version.npos;
}

const bool g_isEntered = [] {
    AddFileFormat({L".dwg", Read, Write, IsDwg, WritableDwgVersion});
    return true;
}();

}   // namespace

}   // namespace KxPlat
