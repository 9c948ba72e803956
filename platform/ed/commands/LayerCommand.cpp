// -LAYER: makes layers and changes their states from the command line.
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbLayerTableRecord.h"
#include "../../db/AcDbLinetypeTableRecord.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/Wildcard.h"
#include "../../win/CrtText.h"
#include "../acedads.h"
#include "HostCommands.h"
#include <cmath>
#include <functional>

using namespace KxPlat;

namespace {

AcDbDatabase& Database()
{
    return *acdbHostApplicationServices()->workingDatabase();
}

CString NameOf(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub == nullptr ? CString() : static_cast<AcDbSymbolTableRecord*>(stub->object)->nameText();
}

// False when the user broke off. An empty answer is `byDefault`.
bool AskText(const wchar_t* prompt, CString& answer, const wchar_t* byDefault = L"")
{
    ACHAR buffer[520] = L"";
    const int result = acedGetString(1, prompt, buffer);
    answer = buffer;
    answer.Trim();
    if (answer.IsEmpty())
        answer = byDefault;
    return result == RTNORM || result == RTNONE;
}

using Change = std::function<Acad::ErrorStatus(AcDbLayerTableRecord&)>;

// Applies a change to every layer whose name matches, and says what was refused.
void ChangeLayers(const CString& pattern, const Change& change)
{
    int found = 0;
    const std::vector<AcDbStub*> records = CoreOf(Database()).Table(TableKind::Layer)->records();
    for (AcDbStub* stub : records) {
        const CString name = NameOf(stub);
        if (stub->erased || !WildcardMatch(std::wstring_view(name, size_t(name.GetLength())),
                                           std::wstring_view(pattern, size_t(pattern.GetLength()))))
            continue;
        ++found;
        AcDbLayerTableRecord* layer = nullptr;
        Acad::ErrorStatus status = acdbOpenObject(layer, AcDbObjectId(stub), AcDb::kForWrite);
        if (status == Acad::eOk) {
            status = change(*layer);
            layer->close();
        }
        if (status == Acad::eInvalidLayer)
            acutPrintf(L"\nCannot freeze layer \"%s\".  It is the CURRENT layer.", static_cast<const wchar_t*>(name));
        else if (status != Acad::eOk)
            acutPrintf(L"\nLayer \"%s\": %s.", static_cast<const wchar_t*>(name), acadErrorStatusText(status));
    }
    if (found == 0)
        acutPrintf(L"\nNo matching layer names found.");
}

void AskAndChange(const wchar_t* prompt, const Change& change)
{
    CString pattern;
    if (AskText(prompt, pattern, NameOf(Database().clayer())))
        ChangeLayers(pattern, change);
}

AcDbObjectId FindLayer(const CString& name)
{
    return CoreOf(Database()).Table(TableKind::Layer)->find(std::wstring_view(name, size_t(name.GetLength())));
}

AcDbObjectId AddLayer(const CString& name)
{
    AcDbLayerTable* table = nullptr;
    if (Database().getSymbolTable(table, AcDb::kForWrite) != Acad::eOk)
        return AcDbObjectId();
    AcDbLayerTableRecord* layer = new AcDbLayerTableRecord;
    Acad::ErrorStatus status = layer->setName(name);
    AcDbObjectId id;
    if (status == Acad::eOk) {
        layer->setLinetypeObjectId(Database().continuousLinetype());
        status = table->add(id, layer);
    }
    table->close();
    if (status == Acad::eOk) {
        layer->close();
        return id;
    }
    delete layer;
    acutPrintf(L"\nLayer \"%s\": %s.", static_cast<const wchar_t*>(name), acadErrorStatusText(status));
    return AcDbObjectId();
}

void SetCurrent(AcDbObjectId layer)
{
    if (!layer.isNull() && Database().setClayer(layer) == Acad::eInvalidLayer)
        acutPrintf(L"\nCannot make a frozen layer current.");
}

// A terminal gives ideographs two columns.
CString Padded(const CString& text, int columns)
{
    int width = 0;
    for (int i = 0; i < text.GetLength(); ++i)
        width += text[i] >= 0x1100 && (text[i] <= 0x115F || text[i] >= 0x2E80) ? 2 : 1;
    return width < columns ? text + CString(L' ', columns - width) : text;
}

// --- the options ---

void ListLayers()
{
    CString pattern;
    if (!AskText(L"\nEnter layer name(s) to list <*>: ", pattern, L"*"))
        return;
    acutPrintf(L"\n%-34s %-22s %-8s %s", L"Layer name", L"State", L"Color", L"Linetype");
    for (AcDbStub* stub : CoreOf(Database()).Table(TableKind::Layer)->records()) {
        const AcDbLayerTableRecord& layer = static_cast<AcDbLayerTableRecord&>(*stub->object);
        const CString name = layer.nameText();
        if (stub->erased || !WildcardMatch(std::wstring_view(name, size_t(name.GetLength())),
                                           std::wstring_view(pattern, size_t(pattern.GetLength()))))
            continue;
        CString state = layer.isOff() ? L"off" : L"on";
        state += layer.isFrozen() ? L", frozen" : L"";
        state += layer.isLocked() ? L", locked" : L"";
        acutPrintf(L"\n%s %-22s %-8d %s", static_cast<const wchar_t*>(Padded(name, 34)),
                   static_cast<const wchar_t*>(state), int(layer.colorIndex()),
                   static_cast<const wchar_t*>(NameOf(layer.linetypeObjectId())));
    }
    acutPrintf(L"\nCurrent layer:  \"%s\"", static_cast<const wchar_t*>(NameOf(Database().clayer())));
}

void Make()
{
    CString name;
    if (!AskText(L"\nEnter name for new layer (becomes the current layer): ", name) || name.IsEmpty())
        return;
    AcDbObjectId id = FindLayer(name);
    if (id.isNull())
        id = AddLayer(name);
    SetCurrent(id);
}

void Set()
{
    CString name;
    if (!AskText(L"\nEnter layer name to make current: ", name) || name.IsEmpty())
        return;
    const AcDbObjectId id = FindLayer(name);
    if (id.isNull())
        acutPrintf(L"\nCannot find layer \"%s\".", static_cast<const wchar_t*>(name));
    SetCurrent(id);
}

void New()
{
    CString names;
    if (!AskText(L"\nEnter name list for new layer(s): ", names))
        return;
    int start = 0;
    for (CString name = names.Tokenize(L",", start); start != -1; name = names.Tokenize(L",", start)) {
        name.Trim();
        if (!FindLayer(name).isNull())
            acutPrintf(L"\nLayer \"%s\" already exists.", static_cast<const wchar_t*>(name));
        else
            AddLayer(name);
    }
}

void Rename()
{
    CString oldName, newName;
    if (!AskText(L"\nEnter old layer name: ", oldName) || oldName.IsEmpty() ||
        !AskText(L"\nEnter new layer name: ", newName) || newName.IsEmpty())
        return;
    const AcDbObjectId id = FindLayer(oldName);
    AcDbLayerTableRecord* layer = nullptr;
    Acad::ErrorStatus status = id.isNull() ? Acad::eKeyNotFound : acdbOpenObject(layer, id, AcDb::kForWrite);
    if (status != Acad::eOk) {
        acutPrintf(L"\nCannot find layer \"%s\".", static_cast<const wchar_t*>(oldName));
        return;
    }
    const bool isCurrent = Database().clayer() == id;
    status = layer->isRenamable() || isCurrent ? layer->setName(newName) : Acad::eCannotBeErasedByCaller;
    layer->close();
    if (status != Acad::eOk)
        acutPrintf(L"\nLayer \"%s\": %s.", static_cast<const wchar_t*>(oldName), acadErrorStatusText(status));
    else if (isCurrent)
        SetCurrent(id);
}

void SetColor()
{
    CString text;
    if (!AskText(L"\nNew color [name or 1-255]: ", text) || text.IsEmpty())
        return;
    static const wchar_t* const names[] = {L"red", L"yellow", L"green", L"cyan", L"blue", L"magenta", L"white"};
    int index = _wtoi(text);
    for (int i = 0; i < 7; ++i)
        if (text.CompareNoCase(names[i]) == 0)
            index = i + 1;
    if (index < 1 || index > 255) {
        acutPrintf(L"\nA color is a number from 1 to 255 or a standard color name.");
        return;
    }
    AcCmColor color;
    color.setColorIndex(Adesk::UInt16(index));
    CString prompt;
    prompt.Format(L"\nEnter name list of layer(s) for color %d <%s>: ", index,
                  static_cast<const wchar_t*>(NameOf(Database().clayer())));
    AskAndChange(prompt, [&](AcDbLayerTableRecord& layer) {
        layer.setColor(color);
        return Acad::eOk;
    });
}

void SetLinetype()
{
    CString name;
    if (!AskText(L"\nEnter loaded linetype name <Continuous>: ", name, L"Continuous"))
        return;
    AcDbStub* linetype =
        CoreOf(Database()).Table(TableKind::Linetype)->find(std::wstring_view(name, size_t(name.GetLength())));
    if (linetype == nullptr) {
        acutPrintf(L"\nLinetype \"%s\" is not loaded.", static_cast<const wchar_t*>(name));
        return;
    }
    AskAndChange(L"\nEnter name list of layer(s) for the linetype: ",
                 [&](AcDbLayerTableRecord& layer) { return layer.setLinetypeObjectId(linetype); });
}

void SetLineWeight()
{
    CString text;
    if (!AskText(L"\nEnter lineweight (0.0mm - 2.11mm): ", text))
        return;
    const int hundredths = int(std::lround(_wtof(text) * 100));
    if (hundredths < 0 || hundredths > 211) {
        acutPrintf(L"\nA lineweight lies between 0 and 2.11 millimetres.");
        return;
    }
    AskAndChange(L"\nEnter name list of layer(s) for the lineweight: ",
                 [&](AcDbLayerTableRecord& layer) { return layer.setLineWeight(AcDb::LineWeight(hundredths)); });
}

void SetPlot()
{
    acedInitGet(0, L"Plot No");
    ACHAR answer[64] = L"";
    if (acedGetKword(L"\nEnter a plotting preference [Plot/No plot] <Plot>: ", answer) < 0)
        return;
    const bool plots = answer[0] != L'N';
    AskAndChange(L"\nEnter layer name(s) for this plot preference: ",
                 [&](AcDbLayerTableRecord& layer) { return layer.setIsPlottable(plots); });
}

void SetDescription()
{
    CString text;
    if (!AskText(L"\nEnter layer description: ", text))
        return;
    AskAndChange(L"\nEnter name list of layer(s) to which description will be applied: ",
                 [&](AcDbLayerTableRecord& layer) { return layer.setDescription(text); });
}

// What is drawn next would not be seen, so the user has to want it.
bool MayHideCurrent(const CString& pattern)
{
    const CString current = NameOf(Database().clayer());
    if (!WildcardMatch(std::wstring_view(current, size_t(current.GetLength())),
                       std::wstring_view(pattern, size_t(pattern.GetLength()))))
        return true;
    const CString question = L"\nReally want layer \"" + current + L"\" (the CURRENT layer) off? [Yes/No] <N>: ";
    acedInitGet(0, L"Yes No");
    ACHAR answer[64] = L"";
    return acedGetKword(question, answer) == RTNORM && answer[0] == L'Y';
}

void SetOn()
{
    AskAndChange(L"\nEnter name list of layer(s) to turn on: ", [](AcDbLayerTableRecord& layer) {
        layer.setIsOff(false);
        return Acad::eOk;
    });
}

void SetOff()
{
    CString pattern;
    if (!AskText(L"\nEnter name list of layer(s) to turn off: ", pattern, NameOf(Database().clayer())))
        return;
    const AcDbObjectId kept = MayHideCurrent(pattern) ? AcDbObjectId() : Database().clayer();
    ChangeLayers(pattern, [&](AcDbLayerTableRecord& layer) {
        layer.setIsOff(layer.isOff() || layer.objectId() != kept);
        return Acad::eOk;
    });
}

template <bool frozen>
void SetFrozen()
{
    AskAndChange(frozen ? L"\nEnter name list of layer(s) to freeze: " : L"\nEnter name list of layer(s) to thaw: ",
                 [](AcDbLayerTableRecord& layer) { return layer.setIsFrozen(frozen); });
}

template <bool locked>
void SetLocked()
{
    AskAndChange(locked ? L"\nEnter name list of layer(s) to lock: " : L"\nEnter name list of layer(s) to unlock: ",
                 [](AcDbLayerTableRecord& layer) {
                     layer.setIsLocked(locked);
                     return Acad::eOk;
                 });
}

struct Option {
    const wchar_t* keyword;
    void (*run)();
};

const Option kOptions[] = {
    {L"?", ListLayers},
    {L"Make", Make},
    {L"Set", Set},
    {L"New", New},
    {L"Rename", Rename},
    {L"ON", SetOn},
    {L"OFF", SetOff},
    {L"Color", SetColor},
    {L"Ltype", SetLinetype},
    {L"LWeight", SetLineWeight},
    {L"Plot", SetPlot},
    {L"Freeze", SetFrozen<true>},
    {L"Thaw", SetFrozen<false>},
    {L"LOck", SetLocked<true>},
    {L"Unlock", SetLocked<false>},
    {L"Description", SetDescription},
};

}   // namespace

void KxPlat::LayerCommand()
{
    acutPrintf(L"\nCurrent layer:  \"%s\"", static_cast<const wchar_t*>(NameOf(Database().clayer())));
    CString keywords, shown;
    for (const Option& option : kOptions) {
        keywords += CString(keywords.IsEmpty() ? L"" : L" ") + option.keyword;
        shown += CString(shown.IsEmpty() ? L"" : L"/") + option.keyword;
    }
    const CString prompt = L"\nEnter an option [" + shown + L"]: ";
    for (;;) {
        acedInitGet(0, keywords);
        ACHAR answer[64] = L"";
        if (acedGetKword(prompt, answer) != RTNORM)
            return;
        for (const Option& option : kOptions)
            if (CString(answer) == option.keyword)
                option.run();
    }
}
