#include "../db/AcDbDictionary.h"
#include "../db/AcDbSymbolTable.h"
#include "../db/core/DbCore.h"
#include "HeaderRoots.h"
#include <algorithm>
#include <cmath>

namespace KxPlat {

namespace {

constexpr int kNull = 5, kPointer = 5, kOwner = 3;   // codes of references

struct DefaultRow {
    std::string_view name;
    double point[3];
    const wchar_t* text;
};

// For drawings that lack the variable, where a row's one number will not do.
const DefaultRow kDefaults[] = {
    {"unit1", {}, L"m"},
    {"MENU", {}, L"."},
    {"EXTMIN", {1e20, 1e20, 1e20}, nullptr},
    {"EXTMAX", {-1e20, -1e20, -1e20}, nullptr},
    {"PEXTMIN", {1e20, 1e20, 1e20}, nullptr},
    {"PEXTMAX", {-1e20, -1e20, -1e20}, nullptr},
    {"LIMMAX", {420, 297, 0}, nullptr},
    {"PLIMMAX", {420, 297, 0}, nullptr},
    {"UCSXDIR", {1, 0, 0}, nullptr},
    {"UCSYDIR", {0, 1, 0}, nullptr},
    {"PUCSXDIR", {1, 0, 0}, nullptr},
    {"PUCSYDIR", {0, 1, 0}, nullptr},
    {"FINGERPRINTGUID", {}, L"{FDEAD576-A652-11D2-9A35-0060089B3A3F}"},
    {"VERSIONGUID", {}, L"{FAEB1C32-E019-11D5-929B-00C0DF256EC4}"},
};

const DefaultRow* DefaultOf(std::string_view name)
{
    for (const DefaultRow& row : kDefaults)
        if (row.name == name)
            return &row;
    return nullptr;
}

struct RecordRow {
    HeaderBits bits;
    TableKind kind;
    const wchar_t* fallback;   // null: none
};
constexpr RecordRow kRecords[] = {
    {HeaderBits::Layer, TableKind::Layer, L"0"},
    {HeaderBits::TextStyle, TableKind::TextStyle, L"Standard"},
    {HeaderBits::Linetype, TableKind::Linetype, L"ByLayer"},
    {HeaderBits::DimStyle, TableKind::DimStyle, L"Standard"},
    {HeaderBits::Ucs, TableKind::Ucs, nullptr},
    {HeaderBits::Block, TableKind::Block, nullptr},
};

class HeaderWriter {
public:
    HeaderWriter(const DbCore& core, const SectionForm& form, const DwgRoots& roots, uint64_t nextHandle)
        : m_core(core), m_version(form.version), m_roots(roots), m_nextHandle(nextHandle), m_out(form)
    {
    }
    std::string Write();

private:
    const HeaderVar* Var(const HeaderRow& row) const;
    void Value(const HeaderRow& row);
    int64_t Integer(const HeaderRow& row) const;
    int64_t Flags() const;
    double Real(const HeaderRow& row) const;
    std::wstring Text(const HeaderRow& row) const;
    void Point(const HeaderRow& row);
    void Time(const HeaderRow& row);
    void Color(int64_t index);
    uint64_t RecordHandle(const HeaderRow& row) const;
    uint64_t DictionaryEntry(const wchar_t* dictionary, const CString& key) const;
    uint64_t RootHandle(const HeaderRow& row) const;
    uint64_t IdOf(const HeaderRow& row) const;

    const DbCore& m_core;
    DwgVersion m_version;
    DwgRoots m_roots;
    uint64_t m_nextHandle;
    SectionOut m_out;
};

const HeaderVar* HeaderWriter::Var(const HeaderRow& row) const
{
    const std::string name(row.name);
    const HeaderVar* var = m_core.header.Find(DxfCodeOf(row.name) != 0 ? "$" + name : name);
    return var == nullptr || var->groups.empty() ? nullptr : var;
}

int64_t HeaderWriter::Flags() const
{
    int64_t flags = 0x2A1D;   // the bits that no variable names, and those of variables that are missing
    for (const FlagRow& row : kFlagRows) {
        const std::string name = "$" + std::string(row.name);
        if (m_core.header.Find(name) == nullptr)
            continue;
        int64_t value = m_core.header.Integer(name);
        if (row.code == 370)
            value = NumberOfLineWeight(int(value));
        value &= row.mask;
        if (row.isInverted)
            value ^= row.mask;
        flags = (flags & ~(int64_t(row.mask) << row.shift)) | value << row.shift;
    }
    return flags;
}

int64_t HeaderWriter::Integer(const HeaderRow& row) const
{
    if (row.name == "FLAGS")
        return Flags();
    const HeaderVar* var = Var(row);
    return var == nullptr ? int64_t(row.byDefault) : var->groups[0].integer();
}

double HeaderWriter::Real(const HeaderRow& row) const
{
    constexpr double kDegree = 57.295779513082323;
    const HeaderVar* var = Var(row);
    if (var == nullptr)
        return row.byDefault;
    return var->groups[0].code == 50 ? var->groups[0].real() / kDegree : var->groups[0].real();
}

std::wstring HeaderWriter::Text(const HeaderRow& row) const
{
    const HeaderVar* var = Var(row);
    const DefaultRow* byDefault = DefaultOf(row.name);
    if (var == nullptr)
        return byDefault == nullptr || byDefault->text == nullptr ? std::wstring() : byDefault->text;
    const CString text = var->groups[0].text();
    return std::wstring(text, size_t(text.GetLength()));
}

void HeaderWriter::Point(const HeaderRow& row)
{
    double point[3] = {};
    if (const HeaderVar* var = Var(row)) {
        for (const GroupValue& group : var->groups)
            if (group.code == 10 || group.code == 20 || group.code == 30)
                point[group.code / 10 - 1] = group.real();
    } else if (const DefaultRow* byDefault = DefaultOf(row.name)) {
        std::copy(std::begin(byDefault->point), std::end(byDefault->point), point);
    }
    if (row.bits == HeaderBits::Point2) {
        m_out.data().RD(point[0]);
        m_out.data().RD(point[1]);
        return;
    }
    for (const double coordinate : point)
        m_out.data().BD(coordinate);
}

void HeaderWriter::Time(const HeaderRow& row)
{
    constexpr double kDay = 86400000.0;   // milliseconds
    constexpr double kMost = 2147483647.0;
    double time = Real(row);
    if (!(time >= 0 && time < kMost))
        time = 0;
    double days = std::floor(time);
    double rest = std::round((time - days) * kDay);
    if (rest >= kDay) {
        days += 1;
        rest = 0;
    }
    m_out.data().BL(uint32_t(days));
    m_out.data().BL(uint32_t(rest));
}

void HeaderWriter::Color(int64_t index)
{
    if (m_version < kR2004)
        return m_out.data().BS(int(index));
    const uint32_t method = index == 256 ? 0xC0000000 : index == 0 ? 0xC1000000 : 0xC3000000;
    m_out.data().BS(0);
    m_out.data().BL(method | (method == 0xC3000000 ? uint32_t(index & 0xFF) : 0));
    m_out.data().RC(0);
}

uint64_t HeaderWriter::RecordHandle(const HeaderRow& row) const
{
    for (const RecordRow& record : kRecords) {
        if (record.bits != row.bits)
            continue;
        const AcDbSymbolTable* table = m_core.Table(record.kind);
        const std::wstring name = Text(row);
        AcDbStub* found = table == nullptr || name.empty() ? nullptr : table->find(name);
        const bool mayFallBack = record.fallback != nullptr && !row.name.starts_with("DIMLT");
        if (found == nullptr && table != nullptr && mayFallBack)
            found = table->find(record.fallback);
        return found == nullptr ? 0 : found->handle;
    }
    return 0;
}

// 0 when there is no such dictionary in the root, or no such key in it; with an empty key the dictionary itself.
uint64_t HeaderWriter::DictionaryEntry(const wchar_t* dictionary, const CString& key) const
{
    const AcDbStub* root = m_core.namedObjects;
    const AcDbDictionary* all = root == nullptr ? nullptr : AcDbDictionary::cast(root->object);
    AcDbObjectId id;
    if (all == nullptr || all->getAt(dictionary, id) != Acad::eOk)
        return 0;
    const AcDbStub* stub = id;
    if (key.IsEmpty())
        return stub->handle;
    const AcDbDictionary* entries = AcDbDictionary::cast(stub->object);
    AcDbObjectId entry;
    if (entries == nullptr || entries->getAt(key, entry) != Acad::eOk)
        return 0;
    const AcDbStub* found = entry;
    return found->handle;
}

uint64_t HeaderWriter::RootHandle(const HeaderRow& row) const
{
    DwgRoots roots = m_roots;
    if (const uint64_t* root = RootOf(roots, row.name))
        return *root;
    const wchar_t* key = DictionaryKeyOf(row.name);
    return key == nullptr ? 0 : DictionaryEntry(key, CString());
}

uint64_t HeaderWriter::IdOf(const HeaderRow& row) const
{
    const HeaderVar* var = Var(row);
    const AcDbStub* stub = var == nullptr ? nullptr : var->groups[0].id();
    return stub == nullptr || stub->object == nullptr || stub->erased ? 0 : stub->handle;
}

void HeaderWriter::Value(const HeaderRow& row)
{
    BitWriter& data = m_out.data();
    switch (row.bits) {
    case HeaderBits::Bit:
        return data.B(Integer(row) != 0);
    case HeaderBits::Byte:
        return data.RC(int(Integer(row)));
    case HeaderBits::Short:
        return data.BS(int(Integer(row)));
    case HeaderBits::Long:
        return data.BL(uint32_t(Integer(row)));
    case HeaderBits::Long64:
        return data.BLL(uint64_t(Integer(row)) & 0xFFFFFFFFFFFFFF);
    case HeaderBits::Real:
        return data.BD(Real(row));
    case HeaderBits::Text:
        return m_out.Text(Text(row));
    case HeaderBits::Point2:
    case HeaderBits::Point3:
        return Point(row);
    case HeaderBits::Time:
        return Time(row);
    case HeaderBits::Color:
        return Color(Integer(row));
    case HeaderBits::OwnHandle:
        return data.H(0, m_nextHandle);
    case HeaderBits::MlineStyle:
        return m_out.Handle(kPointer,
                            DictionaryEntry(DictionaryKeyOf("DICT_ACAD_MLINESTYLE"), CString(Text(row).c_str())));
    case HeaderBits::Id:
    case HeaderBits::PlotStyleId:
        return m_out.Handle(kPointer, IdOf(row));
    case HeaderBits::Root: {
        const bool isOwner = row.name.ends_with("_CONTROL") || row.name == "DICT_NAMED_OBJECTS";
        return m_out.Handle(isOwner ? kOwner : kPointer, RootHandle(row));
    }
    case HeaderBits::NullHandle:
        return m_out.Handle(kNull, 0);
    default:
        m_out.Handle(kPointer, RecordHandle(row));
    }
}

std::string HeaderWriter::Write()
{
    int64_t plotStyleType = 0;
    for (const HeaderRow& row : HeaderRows()) {
        if (!row.isIn(m_version) || (row.bits == HeaderBits::PlotStyleId && plotStyleType != 3))
            continue;
        Value(row);
        if (row.name == "CEPSNTYPE")
            plotStyleType = Integer(row);
    }
    // Four numbers of no meaning, which stand in their rows up to AC1018.
    if (HasStringStream(m_version))
        for (int i = 0; i < 4; ++i)
            m_out.handles().BS(0xFFFF);
    return m_out.Close(kHeaderMark);
}

}   // namespace

std::string WriteHeader(const DbCore& core, const SectionForm& form, const DwgRoots& roots, uint64_t nextHandle)
{
    return HeaderWriter(core, form, roots, nextHandle).Write();
}

}   // namespace KxPlat
