// Damaged files: each opens, with a report, or is refused with a reason; none brings the reader down or makes it take
// more memory than a drawing of its size could need. Every place is tried when KX_ALL_DAMAGE is set, a few otherwise.
#include "db/AcDbDatabase.h"
#include "db/core/DbCore.h"
#include "dwg/DwgReader.h"
#include "DwgFiles.h"
#include <cstdlib>
#include <random>

using namespace KxPlat;

namespace {

class DamagedDwg : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        int error = 0;
        m_whole = ReadWholeFile(GetParam(), error);
        ASSERT_EQ(error, 0);
    }
    static size_t Trials() { return std::getenv("KX_ALL_DAMAGE") != nullptr ? 200 : 6; }
    // The number of objects that were read, or 0.
    static uint64_t Read(const std::string& bytes)
    {
        AcDbDatabase database(false, true);
        DwgReport report;
        ObjectsRead read;
        const bool isRead = ReadDwg(database, bytes, report, &read);
        EXPECT_EQ(isRead, report.error().empty());
        return isRead ? read.count : 0;
    }

    std::string m_whole;
};

TEST_P(DamagedDwg, CutAnywhere)
{
    const size_t trials = Trials();
    for (size_t trial = 0; trial < trials; ++trial) {
        SCOPED_TRACE(trial);
        Read(m_whole.substr(0, m_whole.size() * trial / trials));
    }
}

TEST_P(DamagedDwg, CutWithinItsFirstBytes)
{
    for (size_t size = 0; size < 0x180; ++size) {
        SCOPED_TRACE(size);
        Read(m_whole.substr(0, size));
    }
}

// The maps of a paged file stand at its end; without them the pages that are left still give their objects.
TEST_P(DamagedDwg, ACutEndCostsOnlyWhatStoodThere)
{
    const uint64_t all = Read(m_whole);
    const bool hasOneMapOnly = m_whole.starts_with("AC1021");
    const uint64_t found = Read(m_whole.substr(0, m_whole.size() - 600));
    EXPECT_GE(found, hasOneMapOnly ? 0 : all * 8 / 10);
}

TEST_P(DamagedDwg, OneByteChanged)
{
    std::mt19937 random(7);
    const uint64_t all = Read(m_whole);
    uint64_t most = 0;
    for (size_t trial = 0; trial < Trials(); ++trial) {
        SCOPED_TRACE(trial);
        std::string bytes = m_whole;
        bytes[random() % bytes.size()] ^= char(1 + random() % 255);
        most = std::max(most, Read(bytes));
    }
    // One byte costs little as long as it hits no map.
    EXPECT_GE(most + 30, all);
}

TEST_P(DamagedDwg, AbsurdNumbersInTheFirstBytes)
{
    std::mt19937 random(11);
    for (size_t trial = 0; trial < Trials(); ++trial) {
        SCOPED_TRACE(trial);
        std::string bytes = m_whole;
        const size_t place = 0x0D + random() % 0x400;
        bytes.replace(place, 4, trial % 2 == 0 ? std::string(4, '\xFF') : std::string("\xFF\xFF\xFF\x7F"));
        Read(bytes);
    }
}

TEST_P(DamagedDwg, SeveralPlacesAtOnce)
{
    std::mt19937 random(13);
    for (size_t trial = 0; trial < Trials(); ++trial) {
        SCOPED_TRACE(trial);
        std::string bytes = m_whole;
        for (int i = 0; i < 200; ++i)
            bytes[0x61 + random() % (bytes.size() - 0x61)] = char(random());
        Read(bytes);
    }
}

INSTANTIATE_TEST_SUITE_P(Dwg, DamagedDwg, testing::ValuesIn(DwgFiles::All()),
                         [](const auto& row) { return DwgFiles::NameOf(row.param); });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DamagedDwg);

}   // namespace
