#include "DefaultDrawing.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbDictionary.h"
#include "../AcDbDimStyleTableRecord.h"
#include "../AcDbLayerTableRecord.h"
#include "../AcDbLayout.h"
#include "../AcDbLinetypeTableRecord.h"
#include "../AcDbMlineStyle.h"
#include "../AcDbPlaceHolder.h"
#include "../AcDbRegAppTableRecord.h"
#include "../AcDbTextStyleTableRecord.h"
#include "../AcDbUCSTableRecord.h"
#include "../AcDbViewportTableRecord.h"
#include "../AcDbViewTableRecord.h"
#include "ObjectAccess.h"

namespace KxPlat {

namespace {

struct TableRow {
    AcDbSymbolTable* (*table)();
    AcDbSymbolTableRecord* (*record)();
};

template <class Table, class Record>
constexpr TableRow Row()
{
    return {[]() -> AcDbSymbolTable* { return new Table; }, []() -> AcDbSymbolTableRecord* { return new Record; }};
}

// In the order of TableKind.
const TableRow kTables[kTableCount] = {
    Row<AcDbBlockTable, AcDbBlockTableRecord>(),         Row<AcDbLayerTable, AcDbLayerTableRecord>(),
    Row<AcDbTextStyleTable, AcDbTextStyleTableRecord>(), Row<AcDbLinetypeTable, AcDbLinetypeTableRecord>(),
    Row<AcDbViewTable, AcDbViewTableRecord>(),           Row<AcDbUCSTable, AcDbUCSTableRecord>(),
    Row<AcDbViewportTable, AcDbViewportTableRecord>(),   Row<AcDbRegAppTable, AcDbRegAppTableRecord>(),
    Row<AcDbDimStyleTable, AcDbDimStyleTableRecord>(),
};

}   // namespace

AcDbSymbolTable* NewTable(TableKind kind)
{
    return kTables[size_t(kind)].table();
}

AcDbSymbolTableRecord* NewRecord(TableKind kind)
{
    return kTables[size_t(kind)].record();
}

AcDbSymbolTable* EnsureTable(DbCore& core, TableKind kind, uint64_t handle)
{
    AcDbStub*& stub = core.tables[size_t(kind)];
    if (stub == nullptr)
        stub = core.Adopt(NewTable(kind), handle, nullptr, false);
    return static_cast<AcDbSymbolTable*>(stub->object);
}

AcDbStub* AttachRecord(DbCore& core, TableKind kind, AcDbSymbolTableRecord* record, uint64_t handle)
{
    AcDbSymbolTable* table = EnsureTable(core, kind);
    core.Adopt(record, handle, table->objectId(), false);
    core.ResolvePlaceholder(kind, record);
    table->attach(record->objectId());
    return record->objectId();
}

namespace {

AcDbSymbolTableRecord* EnsureRecord(DbCore& core, TableKind kind, const wchar_t* name)
{
    if (AcDbStub* found = EnsureTable(core, kind)->find(name))
        return static_cast<AcDbSymbolTableRecord*>(found->object);
    AcDbSymbolTableRecord* record = NewRecord(kind);
    record->takeName(name);
    AttachRecord(core, kind, record, 0);
    return record;
}

// A setter needs the object open; here it is the drawing itself that builds it.
template <class T, class Change>
void Build(T* object, Change&& change)
{
    AcDbStub* stub = object->objectId();
    stub->writing = true;
    change(*object);
    stub->writing = false;
    ObjectAccess::State(*object) &= ~uint32_t(kModified);
}

AcDbBlockTableRecord* EnsureSpace(DbCore& core, const wchar_t* name, const wchar_t* oldName)
{
    AcDbStub* found = EnsureTable(core, TableKind::Block)->find(name);
    if (found == nullptr)
        found = core.Table(TableKind::Block)->find(oldName);
    AcDbBlockTableRecord* block = found != nullptr
                                      ? static_cast<AcDbBlockTableRecord*>(found->object)
                                      : static_cast<AcDbBlockTableRecord*>(EnsureRecord(core, TableKind::Block, name));
    block->completeBlock();
    return block;
}

void EnsureStandardRecords(DbCore& core)
{
    for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous"})
        if (EnsureTable(core, TableKind::Linetype)->find(name) == nullptr) {
            AcDbSymbolTableRecord* record = EnsureRecord(core, TableKind::Linetype, name);
            if (std::wstring_view(name) == L"Continuous")
                Build(static_cast<AcDbLinetypeTableRecord*>(record),
                      [](AcDbLinetypeTableRecord& line) { line.setComments(L"Solid line"); });
        }
    if (EnsureTable(core, TableKind::Layer)->find(L"0") == nullptr)
        Build(static_cast<AcDbLayerTableRecord*>(EnsureRecord(core, TableKind::Layer, L"0")),
              [&](AcDbLayerTableRecord& layer) { layer.setLinetypeObjectId(core.database->continuousLinetype()); });
    if (EnsureTable(core, TableKind::TextStyle)->find(L"Standard") == nullptr)
        Build(static_cast<AcDbTextStyleTableRecord*>(EnsureRecord(core, TableKind::TextStyle, L"Standard")),
              [](AcDbTextStyleTableRecord& style) { style.setFileName(L"txt"); });
    EnsureRecord(core, TableKind::RegApp, L"ACAD");
    EnsureRecord(core, TableKind::DimStyle, L"Standard");
    EnsureTable(core, TableKind::View);
    EnsureTable(core, TableKind::Ucs);
    EnsureTable(core, TableKind::Viewport);
}

void BuildLayout(DbCore& core, AcDbDictionary& layouts, const wchar_t* name, AcDbBlockTableRecord* block, int tab)
{
    AcDbLayout* layout = new AcDbLayout;
    layout->build(name, tab, block->objectId());
    AcDbObjectId id;
    Build(&layouts, [&](AcDbDictionary& dictionary) { dictionary.setAt(name, layout, id); });
    layout->close();
    Build(block, [&](AcDbBlockTableRecord& record) { record.setLayoutId(id); });
}

// Two lines, half a unit to either side.
void BuildMlineStyle(AcDbDictionary& styles)
{
    AcDbMlineStyle* style = new AcDbMlineStyle;
    style->setName(L"Standard");
    AcCmColor byLayer;
    byLayer.setColorIndex(256);
    int index = 0;
    for (double offset : {0.5, -0.5})
        style->addElement(index, offset, byLayer);
    AcDbObjectId id;
    Build(&styles, [&](AcDbDictionary& dictionary) { dictionary.setAt(L"Standard", style, id); });
    style->close();
}

struct HeaderRow {
    const char* name;
    int code;
    double number;
    const wchar_t* text;
};

// What a new metric drawing starts with; all else has its default where it is asked for.
const HeaderRow kHeader[] = {
    {"$ACADVER", 1, 0, L"AC1024"},    {"$DWGCODEPAGE", 3, 0, L"ANSI_936"}, {"$LTSCALE", 40, 1, nullptr},
    {"$TEXTSIZE", 40, 2.5, nullptr},  {"$TEXTSTYLE", 7, 0, L"Standard"},   {"$CLAYER", 8, 0, L"0"},
    {"$CELTYPE", 6, 0, L"ByLayer"},   {"$CECOLOR", 62, 256, nullptr},      {"$CELTSCALE", 40, 1, nullptr},
    {"$DIMSTYLE", 2, 0, L"Standard"}, {"$LUNITS", 70, 2, nullptr},         {"$LUPREC", 70, 4, nullptr},
    {"$AUNITS", 70, 0, nullptr},      {"$AUPREC", 70, 0, nullptr},         {"$MEASUREMENT", 70, 1, nullptr},
    {"$TILEMODE", 70, 1, nullptr},    {"$PDMODE", 70, 0, nullptr},         {"$PDSIZE", 40, 0, nullptr},
    {"$CMLSTYLE", 2, 0, L"Standard"}, {"$CMLJUST", 70, 0, nullptr},        {"$CMLSCALE", 40, 20, nullptr},
    {"$CELWEIGHT", 370, -1, nullptr}, {"$INSUNITS", 70, 4, nullptr},       {"$HANDSEED", 5, 0, nullptr},
};

void BuildHeader(DbCore& core)
{
    for (const HeaderRow& row : kHeader) {
        if (row.text != nullptr)
            core.header.SetText(row.name, row.code, row.text);
        else if (KindOfGroup(row.code) == GroupKind::Real)
            core.header.SetReal(row.name, row.code, row.number);
        else
            core.header.SetInteger(row.name, row.code, int64_t(row.number));
    }
    core.header.SetPoint("$INSBASE", AcGePoint3d());
    core.header.SetPoint("$EXTMIN", AcGePoint3d(1e20, 1e20, 1e20));
    core.header.SetPoint("$EXTMAX", AcGePoint3d(-1e20, -1e20, -1e20));
}

}   // namespace

AcDbDictionary* EnsureDictionary(DbCore& core, AcDbDictionary* parent, const wchar_t* name)
{
    AcDbObjectId id;
    if (parent->getAt(name, id) == Acad::eOk) {
        const AcDbStub* stub = id;
        if (AcDbDictionary* found = AcDbDictionary::cast(stub->object))
            return found;
    }
    AcDbDictionary* dictionary = new AcDbDictionary;
    Build(parent, [&](AcDbDictionary& root) { root.setAt(name, dictionary, id); });
    dictionary->close();
    return dictionary;
}

void BuildDefaultDrawing(DbCore& core)
{
    core.form.codePage = L"ANSI_936";
    core.form.codePageNumber = 65001;
    BuildHeader(core);
    CompleteDrawing(core);
    AcDbDictionary* root = static_cast<AcDbDictionary*>(core.namedObjects->object);
    AcDbDictionary* layouts = EnsureDictionary(core, root, L"ACAD_LAYOUT");
    BuildLayout(core, *layouts, L"Model", static_cast<AcDbBlockTableRecord*>(core.modelSpace->object), 0);
    AcDbStub* paper = core.Table(TableKind::Block)->find(ACDB_PAPER_SPACE);
    BuildLayout(core, *layouts, L"Layout1", static_cast<AcDbBlockTableRecord*>(paper->object), 1);
    BuildMlineStyle(*EnsureDictionary(core, root, L"ACAD_MLINESTYLE"));
    AcDbSymbolTableRecord* active = NewRecord(TableKind::Viewport);
    active->takeName(L"*Active");
    AttachRecord(core, TableKind::Viewport, active, 0);
    core.undo.Clear();
}

void CompleteDrawing(DbCore& core)
{
    if (core.form.impliedFrom == 0)
        core.form.impliedFrom = core.handles.NextHandle();
    EnsureStandardRecords(core);
    if (core.namedObjects == nullptr)
        core.namedObjects = core.Adopt(new AcDbDictionary, 0, nullptr, false);
    core.modelSpace = EnsureSpace(core, ACDB_MODEL_SPACE, L"$MODEL_SPACE")->objectId();
    EnsureSpace(core, ACDB_PAPER_SPACE, L"$PAPER_SPACE");
    if (core.form.version >= AcDb::kDHL_1012)
        EnsureDictionary(core, static_cast<AcDbDictionary*>(core.namedObjects->object), L"ACAD_GROUP");
    core.form.impliedTo = core.handles.NextHandle();
    for (uint64_t handle = core.form.impliedFrom; handle < core.form.impliedTo; ++handle)
        if (AcDbStub* stub = core.handles.Find(handle); stub != nullptr && stub->object != nullptr)
            ObjectAccess::State(*stub->object) &= ~uint32_t(kChangedSinceRead);
    core.currentSpace = core.modelSpace;
    if (!core.database->tilemode()) {
        AcDbStub* paper = core.Table(TableKind::Block)->find(ACDB_PAPER_SPACE);
        core.currentSpace = paper != nullptr ? paper : core.modelSpace;
    }
    for (const AcDbStub* layer : core.Table(TableKind::Layer)->records())
        if (static_cast<AcDbLayerTableRecord*>(layer->object)->isLocked())
            core.hasLockedLayers = true;
}

}   // namespace KxPlat
