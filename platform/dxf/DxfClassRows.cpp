#include "DxfClassRows.h"
#include "../db/core/DbCore.h"
#include "../db/core/ObjectAccess.h"
#include "../win/CodePage.h"
#include <cstring>
#include <set>

namespace KxPlat {

namespace {

constexpr int kNever = 1000;
constexpr const wchar_t* kObjectDbx = L"ObjectDBX Classes";

const DxfClassRow kRows[] = {
    {"ACDBDICTIONARYWDFLT", L"AcDbDictionaryWithDefault", kObjectDbx, 0, false, kNever},
    {"ACDBPLACEHOLDER", L"AcDbPlaceHolder", kObjectDbx, 0, false, kNever},
    {"LAYOUT", L"AcDbLayout", kObjectDbx, 0, false, AcDb::kDHL_1018},
    {"XRECORD", L"AcDbXrecord", kObjectDbx, 0, false, AcDb::kDHL_1015},
    {"SORTENTSTABLE", L"AcDbSortentsTable", kObjectDbx, 0, false, kNever},
    {"LWPOLYLINE", L"AcDbPolyline", kObjectDbx, 0, true, AcDb::kDHL_1015},
    {"HATCH", L"AcDbHatch", kObjectDbx, 0, true, AcDb::kDHL_1015},
    {"IMAGE", L"AcDbRasterImage", L"ISM", 127, true, kNever},
    {"WIPEOUT", L"AcDbWipeout", L"WipeOut", 127, true, kNever},
    {"ACAD_TABLE", L"AcDbTable", kObjectDbx, 1025, true, kNever},
    {"MULTILEADER", L"AcDbMLeader", L"ACDB_MLEADER_CLASS", 1025, true, kNever},
    {"ARC_DIMENSION", L"AcDbArcDimension", kObjectDbx, 1025, true, kNever},
    {"LARGE_RADIAL_DIMENSION", L"AcDbRadialDimensionLarge", kObjectDbx, 1025, true, kNever},
    {"LIGHT", L"AcDbLight", L"SCENEOE", 1025, true, kNever},
    {"MESH", L"AcDbSubDMesh", kObjectDbx, 0, true, kNever},
};

const DxfClassRow* RowOf(const ClassSchema& schema, AcDb::AcDbDwgVersion version)
{
    for (const DxfClassRow& row : kRows)
        if (version < row.until && std::strcmp(row.dxfName, schema.dxfName()) == 0)
            return &row;
    return nullptr;
}

// The names that the drawing's own records give (group 1).
std::set<std::string> NamesOf(const std::vector<LooseRecord>& records)
{
    std::set<std::string> names;
    for (const LooseRecord& record : records)
        for (const GroupValue& group : record.groups)
            if (group.code == 1)
                names.insert(ToUtf8(static_cast<const wchar_t*>(group.text())));
    return names;
}

}   // namespace

std::vector<const DxfClassRow*> ClassRowsFor(const DbCore& core, AcDb::AcDbDwgVersion version, bool newObjectsOnly)
{
    const std::set<std::string> known = NamesOf(core.form.classes);
    std::vector<bool> isSeen;   // by number of the class's schema
    std::vector<const DxfClassRow*> rows;
    core.handles.ForEach([&](const AcDbStub& stub) {
        if (stub.object == nullptr || stub.erased || stub.fromXref ||
            (newObjectsOnly && ObjectAccess::Shape(*stub.object) != 0))
            return;
        const ClassSchema& schema = stub.object->fields();
        const size_t number = size_t(schema.number());
        if (isSeen.size() <= number)
            isSeen.resize(number + 1);
        if (isSeen[number])
            return;
        isSeen[number] = true;
        const DxfClassRow* row = RowOf(schema, version);
        if (row != nullptr && known.count(row->dxfName) == 0)
            rows.push_back(row);
    });
    return rows;
}

}   // namespace KxPlat
