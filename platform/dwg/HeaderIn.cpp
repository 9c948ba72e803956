#include "../db/AcDbDictionary.h"
#include "../db/AcDbSymbolTableRecord.h"
#include "../db/core/DbCore.h"
#include "Container.h"
#include "HeaderRoots.h"
#include <unordered_map>

namespace KxPlat {

namespace {

constexpr double kDay = 86400000.0;   // milliseconds

// Up to AC1015 an index, later a word whose highest byte says what the others are, with names behind.
int ReadColor(SectionIn& in, DwgVersion version)
{
    const int index = in.data().BS();
    if (version < kR2004)
        return index;
    const uint32_t word = in.data().BL();
    const int names = in.data().RC();
    if ((names & 1) != 0)
        in.Text();
    if ((names & 2) != 0)
        in.Text();
    switch (word >> 24) {
    case 0xC1:
        return 0;
    case 0xC3:
        return int(word & 0xFF);
    case 0xC2:
        return index != 0 ? index : 7;
    default:
        return 256;
    }
}

void ReadReals(BitReader& in, HeaderValue& value, int count, bool isRaw)
{
    for (int i = 0; i < count; ++i)
        value.real[i] = isRaw ? in.RD() : in.BD();
}

void ReadValue(SectionIn& in, DwgVersion version, HeaderValue& value)
{
    BitReader& data = in.data();
    switch (value.row->bits) {
    case HeaderBits::Bit:
        value.integer = data.B();
        break;
    case HeaderBits::Byte:
        value.integer = data.RC();
        break;
    case HeaderBits::Short:
        value.integer = int16_t(data.BS());
        break;
    case HeaderBits::Long:
        value.integer = int32_t(data.BL());
        break;
    case HeaderBits::Long64:
        value.integer = int64_t(data.BLL());
        break;
    case HeaderBits::Real:
        value.real[0] = data.BD();
        break;
    case HeaderBits::Text:
        value.text = in.Text();
        break;
    case HeaderBits::Point2:
        ReadReals(data, value, 2, true);
        break;
    case HeaderBits::Point3:
        ReadReals(data, value, 3, false);
        break;
    case HeaderBits::Time:
        value.real[0] = int32_t(data.BL());
        value.real[0] += int32_t(data.BL()) / kDay;
        break;
    case HeaderBits::Color:
        value.integer = ReadColor(in, version);
        break;
    case HeaderBits::OwnHandle:
        value.handle = data.H().value;
        break;
    default:
        value.handle = in.Handle().value;
    }
}

std::string Hex(uint64_t number)
{
    std::string digits;
    do {
        digits.insert(digits.begin(), "0123456789ABCDEF"[number & 15]);
        number >>= 4;
    } while (number != 0);
    return digits;
}

const AcDbObject* ObjectOf(const DbCore& core, uint64_t handle)
{
    const AcDbStub* stub = core.handles.Find(handle);
    return stub == nullptr ? nullptr : stub->object;
}

CString RecordName(const DbCore& core, uint64_t handle)
{
    const AcDbObject* object = ObjectOf(core, handle);
    const AcDbSymbolTableRecord* record = object == nullptr ? nullptr : AcDbSymbolTableRecord::cast(object);
    return record == nullptr ? CString() : record->nameText();
}

// The key of the object in its dictionary.
CString StyleName(const DbCore& core, uint64_t handle)
{
    const AcDbStub* root = core.namedObjects;
    const AcDbDictionary* all = root == nullptr ? nullptr : AcDbDictionary::cast(root->object);
    AcDbObjectId id;
    if (all == nullptr || all->getAt(DictionaryKeyOf("DICT_ACAD_MLINESTYLE"), id) != Acad::eOk)
        return L"Standard";
    const AcDbStub* stub = id;
    const AcDbDictionary* styles = AcDbDictionary::cast(stub->object);
    AcDbStub* style = core.handles.Find(handle);
    ACHAR* name = nullptr;
    if (styles == nullptr || style == nullptr || styles->nameAt(style, name) != Acad::eOk)
        return L"Standard";
    CString text(name);
    acutDelString(name);
    return text;
}

void Add(HeaderVar& var, int code, decltype(GroupValue::value) value)
{
    GroupValue& group = var.groups.emplace_back();
    group.code = int16_t(code);
    group.value = std::move(value);
}

void TakeValue(DbCore& core, const HeaderValue& value, int code, HeaderVar& var)
{
    constexpr double kDegree = 57.295779513082323;
    switch (value.row->bits) {
    case HeaderBits::Real:
        return Add(var, code, code == 50 ? value.real[0] * kDegree : value.real[0]);
    case HeaderBits::Time:
        return Add(var, code, value.real[0]);
    case HeaderBits::Point2:
    case HeaderBits::Point3:
        for (int i = 0; i < (value.row->bits == HeaderBits::Point2 ? 2 : 3); ++i)
            Add(var, 10 + 10 * i, value.real[i]);
        return;
    case HeaderBits::Text:
        return Add(var, code, CString(value.text.c_str()));
    case HeaderBits::OwnHandle:
        return Add(var, code, CString(Hex(value.handle).c_str()));
    case HeaderBits::Layer:
    case HeaderBits::TextStyle:
    case HeaderBits::Linetype:
    case HeaderBits::DimStyle:
    case HeaderBits::Ucs:
    case HeaderBits::Block:
        return Add(var, code, RecordName(core, value.handle));
    case HeaderBits::MlineStyle:
        return Add(var, code, StyleName(core, value.handle));
    case HeaderBits::Id:
    case HeaderBits::PlotStyleId:
        return Add(var, code, AcDbObjectId(value.handle == 0 ? nullptr : core.handles.Get(value.handle)));
    default:
        Add(var, code, value.integer);
    }
}

bool IsVariable(const HeaderRow& row)
{
    return row.bits != HeaderBits::Root && row.bits != HeaderBits::NullHandle;
}

// The code of a variable that drawing exchange files do not have.
int CodeFor(HeaderBits bits)
{
    switch (bits) {
    case HeaderBits::Real:
    case HeaderBits::Time:
        return 40;
    case HeaderBits::Text:
        return 1;
    case HeaderBits::Id:
        return 340;
    default:
        return 90;
    }
}

void TakeFlags(HeaderVars& header, int64_t flags)
{
    for (const FlagRow& row : kFlagRows) {
        int64_t value = flags >> row.shift & row.mask;
        if (row.isInverted)
            value ^= row.mask;
        header.SetInteger("$" + std::string(row.name), row.code, row.code == 370 ? LineWeightOf(int(value)) : value);
    }
}

void TakeOther(HeaderVars& header, const HeaderContents& contents, const DxfVarRow& row)
{
    const DwgVersion version = contents.form->version;
    const std::string name = "$" + std::string(row.name);
    if (row.name == "ACADVER")
        header.SetText(name, row.code, CString(std::string(NameOfDwgVersion(version)).c_str()));
    else if (row.name == "ACADMAINTVER")
        header.SetInteger(name, row.code, contents.form->maintenance);
    else if (row.name == "DWGCODEPAGE")
        header.SetText(name, row.code, contents.codePageName.c_str());
    else if (row.name == "LASTSAVEDBY" && version >= kR2004)
        header.SetText(name, row.code, contents.savedBy.c_str());
    else if (row.name == "MEASUREMENT")
        header.SetInteger(name, row.code, contents.measurement);
    else if (row.name == "HANDLING" && version < kR2000)
        header.SetInteger(name, row.code, 1);
}

}   // namespace

const HeaderValue* HeaderContents::Find(std::string_view name) const
{
    for (const HeaderValue& value : values)
        if (value.row->name == name)
            return &value;
    return nullptr;
}

HeaderContents ReadHeader(std::string_view section, const SectionForm& form, DwgReport& report)
{
    HeaderContents contents;
    contents.form = &form;
    SectionIn in(section, kHeaderMark, form, "header variables", report);
    int64_t plotStyleType = 0;
    for (const HeaderRow& row : HeaderRows()) {
        if (!row.isIn(form.version) || (row.bits == HeaderBits::PlotStyleId && plotStyleType != 3))
            continue;
        HeaderValue value;
        value.row = &row;
        ReadValue(in, form.version, value);
        if (in.data().isBroken()) {
            report.Mend("the header variables end at " + std::string(row.name));
            break;
        }
        if (row.name == "CEPSNTYPE")
            plotStyleType = value.integer;
        if (uint64_t* root = RootOf(contents.roots, row.name))
            *root = value.handle;
        contents.values.push_back(std::move(value));
    }
    if (!in.isUsedUp())
        report.Mend("the header variables leave bits over");
    return contents;
}

void TakeHeader(DbCore& core, const HeaderContents& contents)
{
    std::unordered_map<std::string_view, const HeaderValue*> byName;
    for (const HeaderValue& value : contents.values)
        if (IsVariable(*value.row))
            byName[value.row->name] = &value;
    for (const DxfVarRow& row : DxfVarRows()) {
        const auto place = byName.find(row.name);
        if (place != byName.end())
            TakeValue(core, *place->second, row.code, core.header.Get("$" + std::string(row.name)));
        else
            TakeOther(core.header, contents, row);
        if (row.name == "MEASUREMENT" && byName.count("FLAGS") != 0)
            TakeFlags(core.header, byName["FLAGS"]->integer);
    }
    for (const HeaderValue& value : contents.values)
        if (IsVariable(*value.row) && DxfCodeOf(value.row->name) == 0 && value.row->name != "FLAGS")
            TakeValue(core, value, CodeFor(value.row->bits), core.header.Get(value.row->name));
}

}   // namespace KxPlat
