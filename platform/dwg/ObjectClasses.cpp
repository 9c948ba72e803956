#include "ObjectClasses.h"
#include "../win/CodePage.h"
#include <algorithm>

namespace KxPlat {

namespace {

constexpr int kFirstNumber = 500;

struct ClassRow {
    std::string_view dxfName;
    const wchar_t* className;
    const wchar_t* application;
    int proxyFlags;
    bool isEntity;
};

constexpr const wchar_t* kObjectDbx = L"ObjectDBX Classes";
constexpr const wchar_t* kImages = L"ISM";

constexpr ClassRow kRows[] = {
    {"ACDBDICTIONARYWDFLT", L"AcDbDictionaryWithDefault", kObjectDbx, 0, false},
    {"ACDBPLACEHOLDER", L"AcDbPlaceHolder", kObjectDbx, 0, false},
    {"LAYOUT", L"AcDbLayout", kObjectDbx, 0, false},
    {"PLOTSETTINGS", L"AcDbPlotSettings", kObjectDbx, 0, false},
    {"SORTENTSTABLE", L"AcDbSortentsTable", kObjectDbx, 0, false},
    {"DICTIONARYVAR", L"AcDbDictionaryVar", kObjectDbx, 0, false},
    {"SCALE", L"AcDbScale", kObjectDbx, 1153, false},
    {"IDBUFFER", L"AcDbIdBuffer", kObjectDbx, 0, false},
    {"FIELDLIST", L"AcDbFieldList", kObjectDbx, 1152, false},
    {"SPATIAL_FILTER", L"AcDbSpatialFilter", kObjectDbx, 0, false},
    {"LAYER_INDEX", L"AcDbLayerIndex", kObjectDbx, 0, false},
    {"DBCOLOR", L"AcDbColor", kObjectDbx, 1025, false},
    {"IMAGE", L"AcDbRasterImage", kImages, 127, true},
    {"IMAGEDEF", L"AcDbRasterImageDef", kImages, 0, false},
    {"IMAGEDEF_REACTOR", L"AcDbRasterImageDefReactor", kImages, 1, false},
    {"RASTERVARIABLES", L"AcDbRasterVariables", kImages, 0, false},
    {"WIPEOUT", L"AcDbWipeout", L"WipeOut", 127, true},
    {"WIPEOUTVARIABLES", L"AcDbWipeoutVariables", L"WipeOut", 0, false},
    {"ARC_DIMENSION", L"AcDbArcDimension", kObjectDbx, 1025, true},
    {"LARGE_RADIAL_DIMENSION", L"AcDbRadialDimensionLarge", kObjectDbx, 1025, true},
    {"PDFUNDERLAY", L"AcDbPdfReference", kObjectDbx, 4095, true},
    {"DWFUNDERLAY", L"AcDbDwfReference", kObjectDbx, 1153, true},
    {"DGNUNDERLAY", L"AcDbDgnReference", kObjectDbx, 4095, true},
    {"PDFDEFINITION", L"AcDbPdfDefinition", kObjectDbx, 1153, false},
    {"DWFDEFINITION", L"AcDbDwfDefinition", kObjectDbx, 1153, false},
    {"DGNDEFINITION", L"AcDbDgnDefinition", kObjectDbx, 1153, false},
};

// Built-in types that AC1015 files know as classes all the same.
bool IsClassYet(const Layout& layout, DwgVersion version)
{
    return version <= kR2000 && (layout.type == 80 || layout.type == 82);
}

std::wstring TextOf(const LooseRecord& record, int code)
{
    for (const GroupValue& group : record.groups)
        if (group.code == code)
            return group.text().GetString();
    return {};
}

int64_t NumberIn(const LooseRecord& record, int code)
{
    for (const GroupValue& group : record.groups)
        if (group.code == code)
            return group.integer();
    return 0;
}

}   // namespace

ObjectClasses::ObjectClasses(const DbCore& core, DwgVersion version) : m_version(version)
{
    const std::vector<int>& numbers = core.form.classNumbers;
    const bool isNumbered = numbers.size() == core.form.classes.size();
    for (size_t i = 0; i < core.form.classes.size(); ++i) {
        const LooseRecord& record = core.form.classes[i];
        DwgClass row;
        row.number = isNumbered ? numbers[i] : kFirstNumber + int(i);
        row.dxfName = TextOf(record, 1);
        row.className = TextOf(record, 2);
        row.application = TextOf(record, 3);
        row.proxyFlags = int(NumberIn(record, 90));
        row.wasProxy = NumberIn(record, 280) != 0;
        row.isEntity = NumberIn(record, 281) != 0;
        m_byName.emplace(ToUtf8(row.dxfName), m_classes.size());
        m_classes.push_back(std::move(row));
    }
}

int ObjectClasses::NumberOf(std::string_view dxfName, bool isEntity)
{
    const auto place = m_byName.find(std::string(dxfName));
    if (place != m_byName.end()) {
        DwgClass& known = m_classes[place->second];
        if (known.isEntity == isEntity || known.instances == 0) {
            known.isEntity = isEntity;
            ++known.instances;
            return known.number;
        }
        return 0;
    }
    for (const ClassRow& row : kRows) {
        if (row.dxfName != dxfName)
            continue;
        DwgClass made;
        made.number = kFirstNumber;
        for (const DwgClass& known : m_classes)
            made.number = std::max(made.number, known.number + 1);
        made.dxfName = FromUtf8(row.dxfName);
        made.className = row.className;
        made.application = row.application;
        made.proxyFlags = row.proxyFlags;
        made.isEntity = row.isEntity;
        made.instances = 1;
        m_byName.emplace(dxfName, m_classes.size());
        m_classes.push_back(made);
        return made.number;
    }
    return 0;
}

int ObjectClasses::NumberOf(const Layout& layout)
{
    return layout.type != 0 && !IsClassYet(layout, m_version) ? layout.type : NumberOf(layout.dxfName, layout.isEntity);
}

}   // namespace KxPlat
