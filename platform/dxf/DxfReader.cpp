#include "DxfReader.h"
#include "../db/core/OldViews.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
#include "AsciiTags.h"
#include "BinaryTags.h"
#include "DxfEntities.h"
#include "DxfVersion.h"
#include <algorithm>

namespace KxPlat {

namespace {

// Version and code page, which all texts depend on, stand in the header: a first look finds them.
template <class Tags>
TextCodec LookAhead(Tags tags, FileForm& form)
{
    DxfReport unheard;
    std::string version, codePage, variable;
    for (int groups = 0; groups < 20000 && tags.Next(); ++groups) {
        const int code = tags.code();
        if (code == 9)
            variable = tags.Text();
        else if (code == 1 && variable == "$ACADVER")
            version = TrimBlanks(tags.Text());
        else if (code == 3 && variable == "$DWGCODEPAGE")
            codePage = TrimBlanks(tags.Text());
        else if (code == 0 && tags.Text() != "SECTION")
            break;
    }
    form.version = VersionOfName(version);
    const TextCodec codec(form.version, codePage);
    if (!codePage.empty())
        form.codePage = TextCodec().Decode(codePage);
    form.codePageNumber = int(codec.codePage());
    return codec;
}

template <class Tags>
class DxfReader {
public:
    DxfReader(DbCore& core, MappedFile& file, const Tags& tags)
        : m_in(core, file, tags, LookAhead(tags, core.form)), m_tables(m_in), m_entities(m_in, m_tables)
    {
    }
    bool Read();

private:
    using SectionReader = bool (DxfReader::*)();
    struct SectionRow {
        const char* name;
        SectionReader read;
    };
    bool ReadSection();
    bool ReadHeader();
    bool ReadClasses();
    bool ReadTables() { return m_in.Skip() && m_tables.Read(); }
    bool ReadBlocks() { return m_in.Skip() && m_entities.ReadBlocks(); }
    bool ReadEntities() { return m_in.Skip() && m_entities.ReadEntities(); }
    bool ReadObjects();
    bool ReadLoose(const std::string& name);
    bool ReadRecords(std::vector<LooseRecord>& records);
    void Finish();

    DxfInput<Tags> m_in;
    DxfTables<Tags> m_tables;
    DxfEntities<Tags> m_entities;
};

template <class Tags>
bool DxfReader<Tags>::Read()
{
    m_tables.MakeAll();
    Tags& tags = m_in.tags;
    bool isMore = tags.Next();
    for (; isMore && tags.code() == 999; isMore = tags.Next())
        m_in.core.form.comments.push_back(OneLine(tags.Text()));
    if (!isMore || !m_in.IsRecord("SECTION")) {
        m_in.tags.report().Fail(tags.Place(), "this is no drawing: a section is expected here");
        return false;
    }
    while (isMore && !m_in.IsRecord("EOF")) {
        if (!m_in.IsRecord("SECTION")) {
            m_in.Mend("this record stands in no section:", tags.Text());
            isMore = m_in.Skip();
            continue;
        }
        if (!ReadSection())
            return m_in.Ended();
        if (m_in.IsRecord("ENDSEC"))
            isMore = m_in.Skip();
        else
            m_in.Mend("a section ends without ENDSEC");
    }
    if (tags.report().hasFailed() || tags.isCutOff())
        return m_in.Ended();
    if (!isMore)
        m_in.Mend("the file has no end mark");
    Finish();
    return true;
}

// From "SECTION" to "ENDSEC".
template <class Tags>
bool DxfReader<Tags>::ReadSection()
{
    static const SectionRow rows[] = {
        {"HEADER", &DxfReader::ReadHeader},     {"CLASSES", &DxfReader::ReadClasses},
        {"TABLES", &DxfReader::ReadTables},     {"BLOCKS", &DxfReader::ReadBlocks},
        {"ENTITIES", &DxfReader::ReadEntities}, {"OBJECTS", &DxfReader::ReadObjects},
    };
    if (!m_in.tags.Next())
        return false;
    if (m_in.tags.code() != 2) {
        m_in.Mend("this section has no name");
        return ReadLoose(std::string());
    }
    const std::string name = OneLine(m_in.tags.Text());
    std::vector<std::string>& order = m_in.core.form.sectionOrder;
    if (std::find(order.begin(), order.end(), name) == order.end())
        order.push_back(name);
    for (const SectionRow& row : rows)
        if (name == row.name)
            return (this->*row.read)();
    return ReadLoose(name);
}

template <class Tags>
bool DxfReader<Tags>::ReadHeader()
{
    HeaderVar* variable = nullptr;
    bool isMore = false;
    while ((isMore = m_in.tags.Next()) && m_in.tags.code() != 0) {
        if (m_in.tags.code() == 9) {
            const std::string name = OneLine(m_in.tags.Text());
            if (m_in.core.header.Find(name) != nullptr) {
                m_in.Mend("this variable was there before:", name);
                m_in.core.header.Get(name).groups.clear();
            }
            variable = &m_in.core.header.Get(name);
        } else if (variable == nullptr) {
            m_in.Mend("this group belongs to no variable");
        } else {
            variable->groups.push_back(m_in.source.Value(m_in.core));
        }
    }
    m_in.source.MoveSpellings(nullptr, m_in.core.form.spellings);
    return isMore;
}

template <class Tags>
bool DxfReader<Tags>::ReadRecords(std::vector<LooseRecord>& records)
{
    while (!m_in.IsEndOfSection()) {
        records.emplace_back();
        records.back().name = m_in.source.Text();
        if (!m_in.Read(records.back().groups))
            return false;
    }
    return true;
}

template <class Tags>
bool DxfReader<Tags>::ReadClasses()
{
    return m_in.Skip() && ReadRecords(m_in.core.form.classes);
}

template <class Tags>
bool DxfReader<Tags>::ReadLoose(const std::string& name)
{
    LooseSection& section = m_in.core.form.sections.emplace_back();
    section.name = name;
    return m_in.Read(section.head) && ReadRecords(section.records);
}

// The first dictionary is the root of all others.
template <class Tags>
bool DxfReader<Tags>::ReadObjects()
{
    if (!m_in.Skip())
        return false;
    while (!m_in.IsEndOfSection()) {
        const bool isDictionary = m_in.IsRecord("DICTIONARY");
        AcDbObject* object = m_in.MakeObject(m_in.tags.Text());
        const bool isMore = m_in.Read(*object);
        AcDbStub* stub = m_in.Adopt(object, m_in.owner());
        m_in.core.form.objectOrder.push_back(stub);
        if (m_in.core.namedObjects == nullptr && isDictionary)
            m_in.core.namedObjects = stub;
        if (!isMore)
            return false;
    }
    return true;
}

// Handles for what came without one lie above all that the file uses.
template <class Tags>
void DxfReader<Tags>::Finish()
{
    DbCore& core = m_in.core;
    if (const HeaderVar* seed = core.header.Find("$HANDSEED"))
        if (!seed->groups.empty())
            if (const std::optional<uint64_t> next = ParseHandle(TextCodec().Encode(seed->groups[0].text())))
                if (*next >> 48 == 0)
                    core.handles.RaiseNextHandle(*next);
    core.form.hasHandles = m_in.hasHandles() || core.form.version >= AcDb::kDHL_1012;
    m_in.NumberAll();
    std::stable_sort(core.form.spellings.begin(), core.form.spellings.end(),
                     [](const KeptSpelling& a, const KeptSpelling& b) { return std::less<>()(a.object, b.object); });
    if (core.form.version < AcDb::kDHL_1015)
        TakeOldViews(core);
    core.form.repairs += m_in.tags.report().mendedCount();
}

void LookAtLines(std::string_view bytes, FileForm& form)
{
    const size_t feed = bytes.find('\n');
    form.hasCrLf = feed != bytes.npos && feed > 0 && bytes[feed - 1] == '\r';
    form.isPadded = !bytes.empty() && IsBlank(bytes[0]);
}

}   // namespace

bool ReadDxf(AcDbDatabase& database, const std::string& hostPath, DxfReport& report)
{
    MappedFile file;
    if (const int error = file.Open(hostPath)) {
        report.Fail(ToUtf8(SystemErrorText(error)).c_str());
        return false;
    }
    DbCore& core = CoreOf(database);
    core.form = FileForm();
    core.form.isDxf = true;
    const std::string_view bytes = file.View();
    if (bytes.starts_with(kBinarySentinel)) {
        core.form.isBinary = true;
        return DxfReader<BinaryTags>(core, file, BinaryTags(bytes, report)).Read();
    }
    LookAtLines(bytes, core.form);
    return DxfReader<AsciiTags>(core, file, AsciiTags(bytes, report)).Read();
}

}   // namespace KxPlat
