#include "SysVars.h"
#include "../ap/Documents.h"
#include "../db/AcDbDatabase.h"
#include "../db/core/DbCore.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "acedads.h"
#include "EditorState.h"
#include "lisp/NumberTexts.h"
#include <algorithm>
#include <charconv>
#include <unordered_map>

namespace KxPlat {

namespace {

// Values of a document that its drawing does not keep.
struct DocumentVars : DocumentPart {
    std::map<std::wstring, VarValue> values;
};

std::vector<const VarRow*> Rows()
{
    std::vector<const VarRow*> rows;
    for (const VarTable* table : {&kPlainVars, &kComputedVars}) {
        for (size_t i = 0; i < table->count; ++i)
            rows.push_back(table->first + i);
    }
    std::sort(rows.begin(), rows.end(),
              [](const VarRow* a, const VarRow* b) { return CompareNoCase(a->name, b->name) < 0; });
    return rows;
}

VarValue DefaultOf(const VarRow& row)
{
    VarValue value;
    value.type = row.type;
    VarFromText(row.byDefault, row.type, value);
    return value;
}

std::string HeaderName(const VarRow& row)
{
    return "$" + ToUtf8(row.name);
}

VarValue FromHeader(AcApDocument& document, const VarRow& row)
{
    const HeaderVars& header = CoreOf(*document.database()).header;
    const std::string name = HeaderName(row);
    VarValue value = DefaultOf(row);
    if (header.Find(name) == nullptr)
        return value;
    switch (row.type) {
    case VarType::Short:
    case VarType::Long:
        value.integer = int(header.Integer(name));
        break;
    case VarType::Real:
        value.real[0] = header.Real(name);
        break;
    case VarType::Text:
        value.text = header.Text(name).GetString();
        break;
    case VarType::Point2:
    case VarType::Point3: {
        const AcGePoint3d point = header.Point(name);
        value.real[0] = point.x;
        value.real[1] = point.y;
        value.real[2] = point.z;
    }
    }
    return value;
}

void ToHeader(AcApDocument& document, const VarRow& row, const VarValue& value)
{
    DbCore& core = CoreOf(*document.database());
    const std::string name = HeaderName(row);
    const auto code = [&](int usual) { return row.groupCode != 0 ? row.groupCode : usual; };
    core.undo.ChangingHeader(core.header, name);
    core.modified |= 4;   // DBMOD's bit for variables
    switch (row.type) {
    case VarType::Short:
    case VarType::Long:
        core.header.SetInteger(name, code(70), value.integer);
        break;
    case VarType::Real:
        core.header.SetReal(name, code(40), value.real[0]);
        break;
    case VarType::Text:
        core.header.SetText(name, code(1), value.text.c_str());
        break;
    case VarType::Point2:
    case VarType::Point3:
        core.header.SetPoint(name, {value.real[0], value.real[1], value.real[2]});
        break;
    }
}

std::map<std::wstring, VarValue>* StoreOf(const VarRow& row, AcApDocument* document)
{
    if (row.home == VarHome::Process)
        return TheEditor() != nullptr ? &TheEditor()->variables : nullptr;
    return document != nullptr ? &PartOf<DocumentVars>(*document).values : nullptr;
}

// Whole numbers do for reals, and a point of either kind for the other.
bool Fits(const VarRow& row, VarValue& value)
{
    const auto isPoint = [](VarType type) { return type == VarType::Point2 || type == VarType::Point3; };
    const auto isWhole = [](VarType type) { return type == VarType::Short || type == VarType::Long; };
    if (row.type == VarType::Real && isWhole(value.type))
        value.real[0] = value.integer;
    else if (!(isWhole(row.type) && isWhole(value.type)) && !(isPoint(row.type) && isPoint(value.type)) &&
             row.type != value.type)
        return false;
    value.type = row.type;
    return true;
}

void Store(const VarRow& row, AcApDocument* document, const VarValue& value)
{
    if (row.home == VarHome::Header)
        ToHeader(*document, row, value);
    else if (auto* store = StoreOf(row, document))
        (*store)[row.name] = value;
}

}   // namespace

const VarRow* FindVar(std::wstring_view name)
{
    static const std::unordered_map<std::wstring, const VarRow*> index = [] {
        std::unordered_map<std::wstring, const VarRow*> made;
        for (const VarRow* row : Rows())
            made.emplace(row->name, row);
        return made;
    }();
    const auto found = index.find(Upper(name));
    return found != index.end() ? found->second : nullptr;
}

std::vector<const VarRow*> AllVars()
{
    return Rows();
}

VarAnswer GetVar(std::wstring_view name, VarValue& value)
{
    const VarRow* row = FindVar(name);
    if (row == nullptr)
        return VarAnswer::Unknown;
    AcApDocument* document = acDocManager->curDocument();
    if (document == nullptr && row->home != VarHome::Process)
        return VarAnswer::NoDocument;
    value = DefaultOf(*row);
    if (row->home == VarHome::Computed)
        return row->get(*document, value) ? VarAnswer::Done : VarAnswer::NoDocument;
    if (row->home == VarHome::Header) {
        value = FromHeader(*document, *row);
        return VarAnswer::Done;
    }
    const auto* store = StoreOf(*row, document);
    if (store == nullptr)
        return VarAnswer::NoDocument;
    const auto found = store->find(row->name);
    if (found != store->end())
        value = found->second;
    return VarAnswer::Done;
}

VarAnswer SetVar(std::wstring_view name, const VarValue& given)
{
    const VarRow* row = FindVar(name);
    if (row == nullptr)
        return VarAnswer::Unknown;
    if (row->isReadOnly)
        return VarAnswer::ReadOnly;
    AcApDocument* document = acDocManager->curDocument();
    if (document == nullptr && row->home != VarHome::Process)
        return VarAnswer::NoDocument;
    VarValue value = given;
    if (!Fits(*row, value))
        return VarAnswer::WrongType;
    if (row->most > row->least && (value.integer < row->least || value.integer > row->most))
        return VarAnswer::OutOfRange;
    if (row->home == VarHome::Computed)
        return row->set != nullptr && row->set(*document, value) ? VarAnswer::Done : VarAnswer::OutOfRange;
    Store(*row, document, value);
    return VarAnswer::Done;
}

void SetHostVar(std::wstring_view name, const VarValue& value)
{
    const VarRow* row = FindVar(name);
    if (row != nullptr && row->home != VarHome::Computed)
        Store(*row, acDocManager->curDocument(), value);
}

VarValue VarOf(int number)
{
    VarValue value;
    value.integer = number;
    return value;
}

VarValue VarOf(std::wstring_view text)
{
    VarValue value;
    value.type = VarType::Text;
    value.text = text;
    return value;
}

int IntegerVar(std::wstring_view name)
{
    VarValue value;
    return GetVar(name, value) == VarAnswer::Done ? value.integer : 0;
}

double RealVar(std::wstring_view name)
{
    VarValue value;
    return GetVar(name, value) == VarAnswer::Done ? value.real[0] : 0;
}

std::wstring TextVar(std::wstring_view name)
{
    VarValue value;
    return GetVar(name, value) == VarAnswer::Done ? value.text : std::wstring();
}

// --- as texts ---

namespace {

std::wstring RealText(double value)
{
    std::wstring text = LengthText(value, LengthMode::Decimal, 8);
    text.erase(text.find_last_not_of(L'0') + 1);
    return text.back() == L'.' ? text + L"0" : text;
}

int CountOf(VarType type)
{
    return type == VarType::Point3 ? 3 : type == VarType::Point2 ? 2 : 1;
}

}   // namespace

std::wstring VarText(const VarValue& value)
{
    if (value.type == VarType::Short || value.type == VarType::Long)
        return std::to_wstring(value.integer);
    if (value.type == VarType::Text)
        return L"\"" + value.text + L"\"";
    std::wstring text;
    for (int i = 0; i < CountOf(value.type); ++i)
        text += (i > 0 ? L"," : L"") + RealText(value.real[i]);
    return text;
}

bool VarFromText(std::wstring_view text, VarType type, VarValue& value)
{
    value.type = type;
    if (type == VarType::Text) {
        value.text = text;
        return true;
    }
    double numbers[3] = {0, 0, 0};
    int count = 0;
    for (;; ++count) {
        const size_t comma = std::min(text.find(L','), text.size());
        if (count == 3 || !LengthIn(text.substr(0, comma), numbers[count]))
            return false;
        if (comma == text.size())
            break;
        text.remove_prefix(comma + 1);
    }
    ++count;
    const int wanted = CountOf(type);
    if (count != wanted && !(wanted > 1 && count >= 2))
        return false;
    if (type == VarType::Short || type == VarType::Long) {
        if (numbers[0] < -2147483648.0 || numbers[0] > 2147483647.0 || numbers[0] != double(int(numbers[0])))
            return false;
        value.integer = int(numbers[0]);
    }
    std::copy_n(numbers, 3, value.real);
    return true;
}

}   // namespace KxPlat

// --- the C interface ---

namespace {

using KxPlat::VarType;

struct TypeRow {
    VarType type;
    short restype;
};

const TypeRow g_types[] = {{VarType::Short, RTSHORT}, {VarType::Long, RTLONG},    {VarType::Real, RTREAL},
                           {VarType::Text, RTSTR},    {VarType::Point2, RTPOINT}, {VarType::Point3, RT3DPOINT}};

bool FromResbuf(const resbuf& given, KxPlat::VarValue& value)
{
    const TypeRow* row = std::find_if(std::begin(g_types), std::end(g_types),
                                      [&](const TypeRow& known) { return known.restype == given.restype; });
    if (row == std::end(g_types))
        return false;
    value.type = row->type;
    switch (row->type) {
    case VarType::Short:
        value.integer = given.resval.rint;
        break;
    case VarType::Long:
        value.integer = given.resval.rlong;
        break;
    case VarType::Real:
        value.real[0] = given.resval.rreal;
        break;
    case VarType::Text:
        value.text = given.resval.rstring != nullptr ? given.resval.rstring : L"";
        break;
    case VarType::Point2:
        std::copy_n(given.resval.rpoint, 2, value.real);
        break;
    case VarType::Point3:
        std::copy_n(given.resval.rpoint, 3, value.real);
        break;
    }
    return true;
}

void ToResbuf(const KxPlat::VarValue& value, resbuf& result)
{
    result = {};
    for (const TypeRow& row : g_types) {
        if (row.type == value.type)
            result.restype = row.restype;
    }
    switch (value.type) {
    case VarType::Short:
        result.resval.rint = short(value.integer);
        break;
    case VarType::Long:
        result.resval.rlong = value.integer;
        break;
    case VarType::Real:
        result.resval.rreal = value.real[0];
        break;
    case VarType::Text:
        acutNewString(value.text.c_str(), result.resval.rstring);
        break;
    case VarType::Point2:
    case VarType::Point3:
        std::copy_n(value.real, 3, result.resval.rpoint);
        break;
    }
}

}   // namespace

int acedGetVar(const ACHAR* name, resbuf* result)
{
    KxPlat::VarValue value;
    if (name == nullptr || result == nullptr || KxPlat::GetVar(name, value) != KxPlat::VarAnswer::Done)
        return RTERROR;
    ToResbuf(value, *result);
    return RTNORM;
}

int acedSetVar(const ACHAR* name, const resbuf* given)
{
    KxPlat::VarValue value;
    if (name == nullptr || given == nullptr || !FromResbuf(*given, value))
        return RTERROR;
    return KxPlat::SetVar(name, value) == KxPlat::VarAnswer::Done ? RTNORM : RTERROR;
}
