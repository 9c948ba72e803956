// What is read from a DWG file and written again is the same when it is read once more.
#include "db/AcDbDatabase.h"
#include "db/AcDbSymbolTable.h"
#include "db/core/DefaultDrawing.h"
#include "dwg/DwgReader.h"
#include "dwg/ObjectsOut.h"
#include "DwgFiles.h"
#include "ObjectGroups.h"
#include <set>

using namespace KxPlat;
using namespace DwgTests;

namespace {

// Written frames as a section that can be read.
class FrameSink final : public ObjectSink {
public:
    void Add(uint64_t handle, std::string_view frame) override
    {
        places.push_back({handle, bytes.size()});
        bytes += frame;
    }
    std::string bytes = std::string("\xCA\x0D\0\0", 4);
    std::vector<ObjectPlace> places;
};

struct Case {
    std::string path;
    AcDb::AcDbDwgVersion version;
};

void PrintTo(const Case& one, std::ostream* out)
{
    *out << one.path << " as " << int(one.version);
}

std::vector<Case> Cases()
{
    std::vector<Case> cases;
    for (const std::string& path : DwgFiles::All())
        for (AcDb::AcDbDwgVersion version : {AcDb::kDHL_1015, AcDb::kDHL_1024})
            cases.push_back({path, version});
    return cases;
}

// What one version knows and another does not, or has another code for: nothing of it can come through AC1015.
bool IsOfVersion(int code)
{
    // Lights, grids and backgrounds of views; transparency, materials and shadows; graphics; plot shading; locks.
    static const std::set<int> codes = {280, 46,  60,  61,  63,  65,  70,  73,  76,  77,  78,  79,  90,  91,  92,
                                        110, 111, 112, 120, 121, 122, 130, 131, 132, 141, 142, 146, 160, 281, 282,
                                        284, 292, 296, 298, 332, 333, 334, 345, 346, 347, 348, 361, 420, 421, 430,
                                        431, 440, 441, 451, 452, 453, 460, 461, 462, 463, 470, 450, 45};
    return codes.count(code) != 0;
}

// Entries and reactors that lead to objects of another version's classes are left out with them.
bool IsReference(int code)
{
    return code == 3 || code == 5 || code == 102 || code == 1005 || (code >= 330 && code <= 369);
}

class DwgRoundTrip : public testing::TestWithParam<Case> {
protected:
    void SetUp() override
    {
        MappedFile file;
        ASSERT_EQ(file.Open(GetParam().path), 0);
        ASSERT_TRUE(ReadDwg(m_first, file.View(), m_report));
        CompleteDrawing(CoreOf(m_first));
        ObjectsToWrite wanted;
        wanted.version = GetParam().version;
        wanted.codePage =
            unsigned(CoreOf(m_first).form.codePageNumber == int(kUtf8) ? 1252 : CoreOf(m_first).form.codePageNumber);
        FrameSink sink;
        m_written = WriteObjects(m_first, wanted, sink);
        std::sort(sink.places.begin(), sink.places.end(),
                  [](const ObjectPlace& a, const ObjectPlace& b) { return a.handle < b.handle; });
        ObjectsToRead again;
        again.version = wanted.version;
        again.codePage = wanted.codePage;
        again.classes = &m_written.classes;
        again.places = &sink.places;
        again.objects = sink.bytes;
        again.roots = m_written.roots;
        CoreOf(m_second).form.version = wanted.version;
        m_read = ReadObjects(m_second, again, m_secondReport);
    }
    bool IsSameVersion() const { return CoreOf(m_first).form.version == GetParam().version; }

    AcDbDatabase m_first{false, true}, m_second{false, true};
    DwgReport m_report, m_secondReport;
    ObjectsWritten m_written;
    ObjectsRead m_read;
};

TEST_P(DwgRoundTrip, NothingIsLost)
{
    EXPECT_EQ(m_read.count, m_written.count);
    EXPECT_EQ(m_read.unused, 0u);
    EXPECT_EQ(m_secondReport.mendedCount(), 0u) << m_secondReport.lines()[0];
    if (IsSameVersion()) {
        EXPECT_EQ(m_written.dropped, 0u);
    }
    uint64_t compared = 0;
    CoreOf(m_first).handles.ForEach([&](const AcDbStub& stub) {
        const AcDbStub* again = CoreOf(m_second).handles.Find(stub.handle);
        if (stub.object == nullptr || stub.erased)
            return;
        const std::string kind = KindOf(*stub.object);
        if (again == nullptr || again->object == nullptr) {
            EXPECT_FALSE(IsSameVersion()) << kind << " " << std::hex << stub.handle << " is lost";
            return;
        }
        // Without its bits a table is the block that shows it.
        if (kind == "AcDbTable" && !IsSameVersion())
            return;
        ASSERT_EQ(KindOf(*again->object), kind);
        ++compared;
        const GroupTexts before = GroupsOf(*stub.object), after = GroupsOf(*again->object);
        std::set<int> codes;
        for (const GroupTexts* groups : {&before, &after})
            for (const auto& row : *groups)
                codes.insert(row.first);
        for (int code : codes) {
            if (!IsSameVersion() && (IsOfVersion(code) || IsReference(code)))
                continue;
            // The number of records in a table, as its file had it.
            if (code == 70 && stub.object->isKindOf(AcDbSymbolTable::desc()))
                continue;
            const std::string difference = DifferenceAt(before, after, code, 0);
            EXPECT_TRUE(difference.empty())
                << kind << " " << std::hex << stub.handle << std::dec << " group " << code << ": " << difference;
        }
        if (ObjectAccess::IsOnlyBits(*stub.object) && IsSameVersion()) {
            const KeptBits& a = *ObjectAccess::Find(*stub.object)->bits;
            const KeptBits& b = *ObjectAccess::Find(*again->object)->bits;
            EXPECT_EQ(a.data, b.data) << kind;
            EXPECT_EQ(a.texts, b.texts) << kind;
            EXPECT_EQ(a.references.size(), b.references.size()) << kind;
        }
    });
    EXPECT_GT(compared, 350u);
}

INSTANTIATE_TEST_SUITE_P(Shared, DwgRoundTrip, testing::ValuesIn(Cases()), [](const auto& info) {
    return DwgFiles::NameOf(info.param.path) + (info.param.version == AcDb::kDHL_1015 ? "_1015" : "_1024");
});
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DwgRoundTrip);

}   // namespace
