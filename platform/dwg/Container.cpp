#include "Container.h"
#include "ByteWalk.h"
#include "DwgVersion.h"

namespace KxPlat {

namespace {

struct VersionRow {
    std::string_view name;
    DwgVersion version;
    bool (*read)(std::string_view file, DwgSections& sections, DwgReport& report);
};

constexpr VersionRow kVersions[] = {
    {"AC1012", kR13, ReadFlatContainer},      {"AC1014", kR14, ReadFlatContainer},
    {"AC1015", kR2000, ReadFlatContainer},    {"AC1018", kR2004, ReadPageContainer},
    {"AC1021", kR2007, ReadOldPageContainer}, {"AC1024", kR2010, ReadPageContainer},
    {"AC1027", kR2013, ReadPageContainer},    {"AC1032", kR2018, ReadPageContainer},
};

const VersionRow* RowOf(std::string_view file)
{
    for (const VersionRow& row : kVersions)
        if (file.starts_with(row.name))
            return &row;
    return nullptr;
}

// Version names of drawings are "AC" and digits; a few old letters stand in the rest.
bool IsOtherVersion(std::string_view file)
{
    return file.size() >= 6 && (file.starts_with("AC1.") || file.starts_with("AC2.") || file.starts_with("AC10"));
}

}   // namespace

AcDb::AcDbDwgVersion DwgVersionOf(std::string_view file)
{
    const VersionRow* row = RowOf(file);
    return row == nullptr ? AcDb::kDHL_CURRENT : row->version;
}

std::string_view NameOfDwgVersion(AcDb::AcDbDwgVersion version)
{
    for (const VersionRow& row : kVersions)
        if (row.version == version)
            return row.name;
    return {};
}

bool ReadContainer(std::string_view file, DwgSections& sections, DwgReport& report)
{
    const VersionRow* row = RowOf(file);
    if (row == nullptr) {
        report.Fail(IsOtherVersion(file) ? "drawings of version " + std::string(file.substr(0, 6)) + " cannot be read"
                                         : "this is no drawing: it does not begin with a version");
        return false;
    }
    if (file.size() < 0x61) {
        report.Fail("the file ends within its first bytes");
        return false;
    }
    ByteWalk in(file, 0x0B);
    sections.version = row->version;
    sections.maintenance = in.Byte();
    in.MoveTo(0x11);
    sections.program = in.Byte();
    sections.programMaintenance = in.Byte();
    sections.codePage = in.Short();
    return row->read(file, sections, report);
}

}   // namespace KxPlat
