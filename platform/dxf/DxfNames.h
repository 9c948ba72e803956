// Names of the drawing file's tables, sections, variables and records, and the versions that know them.
#pragma once
#include "../db/AcDb.h"
#include "../db/core/Fields.h"
#include <string>
#include <string_view>

class AcDbObject;

namespace KxPlat {

struct DxfTableName {
    const char* name;   // of the table and of its records
    TableKind kind;
};
// In the order in which new files have them.
inline constexpr DxfTableName kDxfTables[] = {
    {"VPORT", TableKind::Viewport},  {"LTYPE", TableKind::Linetype},    {"LAYER", TableKind::Layer},
    {"STYLE", TableKind::TextStyle}, {"VIEW", TableKind::View},         {"UCS", TableKind::Ucs},
    {"APPID", TableKind::RegApp},    {"DIMSTYLE", TableKind::DimStyle}, {"BLOCK_RECORD", TableKind::Block},
};

// The 0 group of an object's record; for proxies that of the class that nobody knows.
std::string DxfNameOf(const AcDbObject& object);
// Neither an entity nor a table nor a record of one: what stands in the OBJECTS section.
bool IsPlainObject(const AcDbObject& object);
// A section without a reader of its own, in a file of this version.
bool IsSectionOf(std::string_view name, AcDb::AcDbDwgVersion version);
// A header variable that came from a file of version `from`, in a file of `version`.
bool IsHeaderVarOf(std::string_view name, AcDb::AcDbDwgVersion version, AcDb::AcDbDwgVersion from);

}   // namespace KxPlat
