#include "HeaderRoots.h"

namespace KxPlat {

namespace {

struct TableRow {
    std::string_view name;
    TableKind kind;
};
constexpr TableRow kTables[] = {
    {"BLOCK_CONTROL", TableKind::Block},       {"LAYER_CONTROL", TableKind::Layer},
    {"STYLE_CONTROL", TableKind::TextStyle},   {"LTYPE_CONTROL", TableKind::Linetype},
    {"VIEW_CONTROL", TableKind::View},         {"UCS_CONTROL", TableKind::Ucs},
    {"VPORT_CONTROL", TableKind::Viewport},    {"APPID_CONTROL", TableKind::RegApp},
    {"DIMSTYLE_CONTROL", TableKind::DimStyle},
};

struct RootRow {
    std::string_view name;
    uint64_t DwgRoots::*root;
};
constexpr RootRow kRoots[] = {
    {"VX_CONTROL", &DwgRoots::viewportHeaders},   {"DICT_NAMED_OBJECTS", &DwgRoots::namedObjects},
    {"PAPER_SPACE_BLOCK", &DwgRoots::paperSpace}, {"MODEL_SPACE_BLOCK", &DwgRoots::modelSpace},
    {"LTYPE_BYLAYER", &DwgRoots::byLayer},        {"LTYPE_BYBLOCK", &DwgRoots::byBlock},
    {"LTYPE_CONTINUOUS", &DwgRoots::continuous},
};

struct DictionaryRow {
    std::string_view name;
    const wchar_t* key;
};
constexpr DictionaryRow kDictionaries[] = {
    {"DICT_ACAD_GROUP", L"ACAD_GROUP"},
    {"DICT_ACAD_MLINESTYLE", L"ACAD_MLINESTYLE"},
    {"DICT_LAYOUTS", L"ACAD_LAYOUT"},
    {"DICT_PLOTSETTINGS", L"ACAD_PLOTSETTINGS"},
    {"DICT_PLOTSTYLES", L"ACAD_PLOTSTYLENAME"},
    {"DICT_MATERIALS", L"ACAD_MATERIAL"},
    {"DICT_COLORS", L"ACAD_COLOR"},
    {"DICT_VISUALSTYLE", L"ACAD_VISUALSTYLE"},
};

constexpr int kWeights[] = {0,  5,   9,   13,  15,  18,  20,  25,  30, 35, 40, 50, 53, 60, 70, 80,
                            90, 100, 106, 120, 140, 158, 200, 211, -3, -3, -3, -3, -3, -1, -2, -3};

}   // namespace

uint64_t* RootOf(DwgRoots& roots, std::string_view name)
{
    for (const TableRow& row : kTables)
        if (row.name == name)
            return &roots.tables[size_t(row.kind)];
    for (const RootRow& row : kRoots)
        if (row.name == name)
            return &(roots.*row.root);
    return nullptr;
}

const wchar_t* DictionaryKeyOf(std::string_view name)
{
    for (const DictionaryRow& row : kDictionaries)
        if (row.name == name)
            return row.key;
    return nullptr;
}

int LineWeightOf(int number)
{
    return kWeights[number & 31];
}

int NumberOfLineWeight(int weight)
{
    constexpr int kDefault = 31;
    for (int number = 0; number < kDefault; ++number)
        if (kWeights[number] == weight && weight != -3)
            return number;
    return kDefault;
}

}   // namespace KxPlat
