// Files that are cut, garbled or no drawings at all: a clear refusal or a mended drawing, never a crash, and in time.
#include "db/AcDbDatabase.h"
#include "db/core/FileFormats.h"
#include "dxf/DxfReader.h"
#include "TagText.h"
#include "win/CodePage.h"
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace KxPlat;

namespace {

class FaultyFiles : public testing::Test {
protected:
    ~FaultyFiles() override { std::filesystem::remove(m_path); }
    // Why the bytes cannot be read; empty when they can.
    std::string ErrorOf(const std::string& bytes)
    {
        std::ofstream(m_path, std::ios::binary) << bytes;
        AcDbDatabase database(false, true);
        m_report = DxfReport();
        const bool isRead = ReadDxf(database, m_path, m_report);
        EXPECT_EQ(isRead, m_report.error().empty());
        return m_report.error();
    }

    std::string m_path = std::filesystem::temp_directory_path() / ("kx_faulty_" + std::to_string(getpid()) + ".dxf");
    DxfReport m_report;
};

std::string Entities(const std::string& records)
{
    return "0\nSECTION\n2\nENTITIES\n" + records + "0\nENDSEC\n0\nEOF\n";
}

TEST_F(FaultyFiles, SaysWhatIsWrongAndWhere)
{
    struct Row {
        std::string bytes;
        const char* error;
    };
    const Row rows[] = {
        {"", "line 1, group 0: this is no drawing: a section is expected here"},
        {"PK\x03\x04 something else", "line 1, group 0: a group code is expected here"},
        {"  8\nTEXT\n", "line 1, group 8: this is no drawing: a section is expected here"},
        {"0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n", "line 7, group 8: the file ends within a section"},
        {"0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10", "line 9, group 10: the file ends within a group"},
        {Entities("0\nLINE\n8\n0\nten\n1.0\n"), "line 9, group 8: a group code is expected here"},
        {"AutoCAD Binary DXF\r\n\x1A", "line 1, group 0: a group code is expected here"},
        {std::string("AutoCAD Binary DXF\r\n\x1A\0", 22),
         "byte 22, group 0: this is no drawing: a section is expected here"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes);
        EXPECT_EQ(ErrorOf(row.bytes), row.error);
    }
}

TEST_F(FaultyFiles, MendsWhatCanBeMended)
{
    struct Row {
        std::string bytes;
        const char* mended;
    };
    const Row rows[] = {
        {"0\nSECTION\n2\nENTITIES\n0\nENDSEC\n", "line 5, group 0: the file has no end mark"},
        {Entities("0\nLINE\n8\n0\n40\nfour\n"), nullptr},
        {Entities("0\nLINE\n8\n0\n10\nfour\n"), "line 9, group 10: this is no number: four"},
        {Entities("0\nLINE\n5\nA\n8\n0\n0\nLINE\n5\nA\n8\n0\n"), "line 11, group 0: a handle is used twice"},
        {Entities("0\nLINE\n5\nXYZ\n8\n0\n"), "line 7, group 5: this is no handle: XYZ"},
        {"0\nSECTION\n2\nENTITIES\n0\nSECTION\n2\nOBJECTS\n0\nENDSEC\n0\nEOF\n",
         "line 5, group 0: a section ends without ENDSEC"},
        {"0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nDOORS\n0\nENDTAB\n0\nENDSEC\n0\nEOF\n",
         "line 7, group 2: no table has this name: DOORS"},
        {"0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n0\nENDSEC\n0\nEOF\n", "line 9, group 0: a block ends without ENDBLK"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes);
        EXPECT_EQ(ErrorOf(row.bytes), "");
        if (row.mended != nullptr) {
            ASSERT_FALSE(m_report.mended().empty());
            EXPECT_EQ(m_report.mended()[0], row.mended);
        }
    }
}

TEST_F(FaultyFiles, CutAtAnyByteIsRefusedOrRead)
{
    for (const char* name :
         {"house_r2000_gbk", "house_r12_binary", "house_r2013_binary", "proxies", "cycles", "absurd_counts"}) {
        SCOPED_TRACE(name);
        const std::string whole = TagText::ReadFile(std::string(KX_TEST_DATA) + "/" + name + ".dxf");
        ASSERT_FALSE(whole.empty());
        const size_t step = std::max<size_t>(1, whole.size() / 97);
        for (size_t size = 0; size < whole.size() - 20; size += step) {
            const std::string error = ErrorOf(whole.substr(0, size));
            // A cut between two sections cannot be told from a missing end mark.
            if (error.empty()) {
                EXPECT_EQ(m_report.mended().back().substr(m_report.mended().back().find(": ")),
                          ": the file has no end mark")
                    << size;
            }
        }
    }
}

// The same bytes each time: small changes at random places, then all must still end well.
TEST_F(FaultyFiles, GarbledBytesDoNoHarm)
{
    uint64_t state = 20261121;
    const auto random = [&state](size_t below) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return size_t(state >> 33) % below;
    };
    static const std::string_view splinters[] = {
        "0",        "-1",    "99999999999999999999", "nan", "\n", "\r\n\r\n", "ENDSEC", "VERTEX",
        "\xFF\xFE", "1e999", "FFFFFFFFFFFFFFFF"};
    for (const char* name : {"house_r2000_gbk", "house_r2013_binary", "proxies"}) {
        const std::string whole = TagText::ReadFile(std::string(KX_TEST_DATA) + "/" + name + ".dxf");
        ASSERT_FALSE(whole.empty());
        for (int run = 0; run < 60; ++run) {
            std::string bytes = whole;
            for (int change = 0; change < 20; ++change) {
                const std::string_view splinter = splinters[random(std::size(splinters))];
                bytes.replace(random(bytes.size() - 30), random(8), splinter);
            }
            ErrorOf(bytes);
        }
    }
}

TEST_F(FaultyFiles, AbsentFileIsNamedAsSuch)
{
    DxfReport report;
    AcDbDatabase database(false, true);
    EXPECT_FALSE(ReadDxf(database, m_path + "/nowhere", report));
    EXPECT_FALSE(report.error().empty());
    EXPECT_EQ(report.error().find("group"), std::string::npos);
}

}   // namespace
