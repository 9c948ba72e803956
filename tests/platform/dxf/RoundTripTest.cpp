// Every drawing read and written back without a change keeps every object and every group.
#include "TagText.h"
#include "db/AcDbDatabase.h"
#include "db/core/DbCore.h"
#include "db/core/FileFormats.h"
#include "win/CodePage.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <unistd.h>

using namespace KxPlat;
using TagText::Record;

namespace {

std::vector<std::string> Drawings()
{
    std::vector<std::string> paths;
    for (const char* folder : {KX_DRAWINGS, KX_TEST_DATA}) {
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator(folder, none))
            if (entry.path().extension() == ".dxf")
                paths.push_back(entry.path());
        if (none)
            paths.push_back(std::string(folder) + "/absent");
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::string NameOf(const testing::TestParamInfo<std::string>& info)
{
    std::string name = std::filesystem::path(info.param).stem();
    for (char& c : name)
        if (isalnum(static_cast<unsigned char>(c)) == 0)
            c = '_';
    return name + "_" + std::to_string(info.index);
}

struct TempFile {
    std::string path = std::filesystem::temp_directory_path() / ("kx_dxf_" + std::to_string(getpid()) + ".dxf");
    ~TempFile() { std::filesystem::remove(path); }
};

// What names a record in both files: its handle, or its place among those of its kind.
using Key = std::string;
std::map<Key, const Record*> ByKey(const std::vector<Record>& records, const std::vector<uint64_t>& doubtful)
{
    std::map<Key, const Record*> result;
    std::map<std::string, int> counts;
    for (const Record& record : records) {
        const bool isNamed = record.handle != 0 && std::find(doubtful.begin(), doubtful.end(), record.handle) == doubtful.end();
        const std::string kind = record.section + "/" + (record.section == "BLOCKS" ? "" : record.table) + "/" + record.type;
        result[isNamed ? "#" + std::to_string(record.handle) : kind + std::to_string(counts[kind]++)] = &record;
    }
    return result;
}

std::vector<uint64_t> UsedTwice(const std::vector<Record>& records)
{
    std::map<uint64_t, int> counts;
    for (const Record& record : records)
        ++counts[record.handle];
    std::vector<uint64_t> twice;
    for (const auto& [handle, count] : counts)
        if (count > 1)
            twice.push_back(handle);
    return twice;
}

class RoundTrip : public testing::TestWithParam<std::string> {};

TEST_P(RoundTrip, KeepsEveryGroup)
{
    if (!std::filesystem::exists(GetParam()))
        GTEST_SKIP() << GetParam() << ": there are no drawings here";
    AcDbDatabase database(false, true);
    ASSERT_EQ(database.readDwgFile(FromUtf8(GetParam()).c_str()), Acad::eOk) << ToUtf8(LastReadReport().error);
    TempFile file;
    ASSERT_EQ(database.dxfOut(FromUtf8(file.path).c_str()), Acad::eOk);
    EXPECT_EQ(OpenObjectCount(), 0);

    const std::vector<Record> before = TagText::Load(GetParam());
    const std::vector<Record> after = TagText::Load(file.path);
    // A handle that two objects share is given to one of them only; those are compared by place and without it.
    const std::vector<uint64_t> doubtful = UsedTwice(before);
    const auto written = ByKey(after, doubtful);
    int reported = 0;
    for (const auto& [key, record] : ByKey(before, doubtful)) {
        if (record->type == "$HANDSEED")
            continue;
        const auto place = written.find(key);
        const std::string difference =
            place == written.end() ? key + " " + record->section + " " + record->type + " is lost" : Difference(*record, *place->second);
        if (difference.empty() || (!doubtful.empty() && record->handle == 0))
            continue;
        ADD_FAILURE() << key << ": " << difference;
        if (++reported == 10)
            break;
    }
}

INSTANTIATE_TEST_SUITE_P(Drawings, RoundTrip, testing::ValuesIn(Drawings()), NameOf);

}   // namespace
