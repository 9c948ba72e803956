#include "DxfVersion.h"

namespace KxPlat {

namespace {

struct VersionRow {
    const char* name;
    AcDb::AcDbDwgVersion version;
};

constexpr VersionRow kVersions[] = {
    {"AC1009", AcDb::kDHL_1009}, {"AC1012", AcDb::kDHL_1012}, {"AC1014", AcDb::kDHL_1014},
    {"AC1015", AcDb::kDHL_1015}, {"AC1018", AcDb::kDHL_1018}, {"AC1021", AcDb::kDHL_1021},
    {"AC1024", AcDb::kDHL_1024}, {"AC1027", AcDb::kDHL_1027}, {"AC1032", AcDb::kDHL_1032},
};

}   // namespace

AcDb::AcDbDwgVersion VersionOfName(std::string_view name)
{
    AcDb::AcDbDwgVersion version = AcDb::kDHL_1009;
    for (const VersionRow& row : kVersions)
        if (name >= row.name)
            version = row.version;
    return version;
}

const char* NameOfVersion(AcDb::AcDbDwgVersion version)
{
    const char* name = kVersions[0].name;
    for (const VersionRow& row : kVersions)
        if (version >= row.version)
            name = row.name;
    return name;
}

}   // namespace KxPlat
