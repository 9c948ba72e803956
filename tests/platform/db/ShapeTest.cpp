// Objects keep the form of their file: which groups, in which order, known to their class or not.
#include "db/AcDbDatabase.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLine.h"
#include "db/core/DefaultDrawing.h"
#include "db/core/ObjectReader.h"
#include <gtest/gtest.h>
#include <sstream>

using namespace KxPlat;

namespace {

struct TextGroup {
    int code;
    const char* value;
};

// Groups given as texts, as an ASCII file has them.
class TextSource {
public:
    explicit TextSource(const TextGroup& group) : m_group(group) {}
    int code() const { return m_group.code; }
    double Real() const { return std::stod(m_group.value); }
    int64_t Integer() const { return std::stoll(m_group.value); }
    CString Text() const { return CString(m_group.value); }
    std::string_view Raw() const { return m_group.value; }
    uint64_t Handle() const { return std::stoull(m_group.value, nullptr, 16); }
    Bytes Binary() const { return std::make_shared<const std::string>(m_group.value); }
    AcDbStub* Record(TableKind kind, DbCore& core) const { return core.RecordNamed(kind, CString(m_group.value)); }

private:
    TextGroup m_group;
};

class TextSink : public GroupSink {
public:
    std::string text;
    void Real(int code, double value) override
    {
        Line(code) << value;
        Flush();
    }
    void Integer(int code, int64_t value) override
    {
        Line(code) << value;
        Flush();
    }
    void Text(int code, const CString& value) override
    {
        Line(code);
        for (int i = 0; i < value.GetLength(); ++i)
            m_out << char(value[i]);
        Flush();
    }
    void Id(int code, AcDbObjectId value) override
    {
        Line(code) << std::hex << uint64_t(value.handle()) << std::dec;
        Flush();
    }
    void Name(int code, AcDbObjectId record, TableKind) override
    {
        AcDbStub* stub = record;
        Text(code, static_cast<AcDbSymbolTableRecord*>(stub->object)->nameText());
    }
    void Binary(int code, const Bytes& value) override
    {
        Line(code) << *value;
        Flush();
    }
    void Marker(int code, std::string_view value) override
    {
        Line(code) << value;
        Flush();
    }

private:
    std::ostream& Line(int code) { return m_out << code << ' '; }
    void Flush()
    {
        text += m_out.str() + "\n";
        m_out.str("");
    }
    std::ostringstream m_out;
};

AcDbLine* ReadLine(AcDbDatabase& database, const std::vector<TextGroup>& groups)
{
    DbCore& core = CoreOf(database);
    AcDbLine* line = new AcDbLine;
    ObjectReader<TextSource> reader(core);
    reader.Begin(*line);
    for (const TextGroup& group : groups) {
        TextSource source(group);
        reader.Put(source);
    }
    reader.End();
    core.Adopt(line, reader.handle(), core.modelSpace, false);
    return line;
}

std::string Written(const AcDbObject& object, bool asRead, AcDb::AcDbDwgVersion version)
{
    TextSink sink;
    GetGroups(object, sink, {version, asRead});
    return sink.text;
}

std::string Joined(const std::vector<TextGroup>& groups)
{
    std::string text;
    for (const TextGroup& group : groups)
        text += std::to_string(group.code) + " " + group.value + "\n";
    return text;
}

const std::vector<TextGroup> kUsual = {{5, "abc"}, {330, "12"}, {100, "AcDbEntity"}, {8, "0"},  {100, "AcDbLine"},
                                       {10, "1"},  {20, "2"},   {30, "3"},           {11, "4"}, {21, "5"},
                                       {31, "6"}};

}   // namespace

TEST(Shape, GroupsComeBackInTheOrderOfTheFile)
{
    const std::vector<std::vector<TextGroup>> forms = {
        kUsual,
        // Defaults that the file spells out, groups unknown to a line, a second 10.
        {{5, "b01"},  {330, "12"},       {100, "AcDbEntity"}, {8, "0"},  {62, "256"}, {92, "7"},  {310, "AB"},
         {310, "CD"}, {100, "AcDbLine"}, {39, "0"},           {10, "1"}, {20, "2"},   {30, "3"},  {11, "4"},
         {21, "5"},   {31, "6"},         {10, "9"},           {77, "1"}, {210, "0"},  {220, "0"}, {230, "1"}},
        // No markers, no handle, layer last.
        {{10, "1"}, {20, "2"}, {11, "4"}, {21, "5"}, {8, "0"}},
        // Reactors, extension dictionary, another application's braces, extended data.
        {{5, "b11"},          {102, "{ACAD_XDICTIONARY"},
         {360, "20"},         {102, "}"},
         {102, "{OTHER"},     {330, "5"},
         {102, "}"},          {102, "{ACAD_REACTORS"},
         {330, "21"},         {330, "22"},
         {102, "}"},          {330, "12"},
         {100, "AcDbEntity"}, {8, "0"},
         {100, "AcDbLine"},   {10, "1"},
         {20, "2"},           {30, "3"},
         {11, "4"},           {21, "5"},
         {31, "6"},           {1001, "ACAD"},
         {1000, "x"},         {1070, "3"}},
        // A subclass that no class of ours has.
        {{5, "b21"},
         {330, "12"},
         {100, "AcDbEntity"},
         {8, "0"},
         {100, "AcDbStrange"},
         {10, "7"},
         {100, "AcDbLine"},
         {10, "1"},
         {20, "2"},
         {30, "3"},
         {11, "4"},
         {21, "5"},
         {31, "6"}},
    };
    AcDbDatabase database;
    CoreOf(database).form.version = AcDb::kDHL_1015;
    for (const std::vector<TextGroup>& form : forms) {
        const AcDbLine* line = ReadLine(database, form);
        EXPECT_EQ(Written(*line, true, AcDb::kDHL_1015), Joined(form));
        EXPECT_EQ(line->startPoint().x, 1);
        EXPECT_EQ(line->endPoint().y, 5);
    }
}

TEST(Shape, AChangeIsPutInAtItsPlace)
{
    AcDbDatabase database;
    CoreOf(database).form.version = AcDb::kDHL_1015;
    AcDbLine* line = ReadLine(database, kUsual);
    AcDbLine* open = nullptr;
    ASSERT_EQ(acdbOpenObject(open, line->objectId(), AcDb::kForWrite), Acad::eOk);
    open->setColorIndex(3);
    open->setThickness(0.5);
    open->close();
    EXPECT_EQ(Written(*line, true, AcDb::kDHL_1015), "5 abc\n330 12\n100 AcDbEntity\n8 0\n62 3\n100 AcDbLine\n39 0.5\n"
                                                     "10 1\n20 2\n30 3\n11 4\n21 5\n31 6\n");
}

TEST(Shape, OldFilesHaveNeitherMarkersNorOwners)
{
    AcDbDatabase database;
    CoreOf(database).form.version = AcDb::kDHL_1015;
    const AcDbLine* line = ReadLine(database, kUsual);
    EXPECT_EQ(Written(*line, true, AcDb::kDHL_1009), "5 abc\n8 0\n10 1\n20 2\n30 3\n11 4\n21 5\n31 6\n");
}

TEST(Shape, HostileOrdersStayBounded)
{
    // Each group differs from the one before, so that no step of the walk can be shared.
    AcDbDatabase database;
    std::vector<TextGroup> groups;
    for (int i = 0; i < 20000; ++i)
        groups.push_back(i % 2 == 0 ? TextGroup{102, "{ACAD_REACTORS"} : TextGroup{102, "}"});
    const AcDbLine* line = ReadLine(database, groups);
    CoreOf(database).form.version = AcDb::kDHL_1015;
    EXPECT_EQ(Written(*line, true, AcDb::kDHL_1015), Joined(groups));
}

TEST(Shape, NamesThatNoTableDefinesSurvive)
{
    AcDbDatabase database;
    CoreOf(database).form.version = AcDb::kDHL_1015;
    const AcDbLine* line = ReadLine(database, {{8, "nowhere"}, {10, "1"}});
    EXPECT_EQ(Written(*line, true, AcDb::kDHL_1015), "8 nowhere\n10 1\n");
    AcDbLayerTableRecord* layer = new AcDbLayerTableRecord;
    layer->takeName(L"NoWhere");
    AttachRecord(CoreOf(database), TableKind::Layer, layer, 0);
    EXPECT_EQ(line->layerId(), layer->objectId());   // defined later, meant all the same
}
