// Every drawing read and written back without a change keeps every object and every group.
#include "db/AcDbDatabase.h"
#include "db/core/DbCore.h"
#include "db/core/FileFormats.h"
#include "TagText.h"
#include "win/CodePage.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <unistd.h>

using namespace KxPlat;
using TagText::Record;

namespace {

std::vector<std::string> Drawings()
{
    std::vector<std::string> paths;
    for (const char* folder : {KX_DRAWINGS, KX_TEST_DATA, KX_SAMPLES}) {
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

// Handles that two records share. Each but the first gets a new one, so that such drawings are compared by place.
bool HasDoubleHandles(const std::vector<Record>& records)
{
    std::set<uint64_t> handles;
    for (const Record& record : records)
        if (record.handle != 0 && !handles.insert(record.handle).second)
            return true;
    return false;
}

// What names a record in both files: its handle, or its place among those of its kind.
std::map<std::string, Record> ByKey(const std::vector<Record>& records, bool byPlace)
{
    std::map<std::string, Record> result;
    std::map<std::string, int> counts;
    for (Record record : records) {
        const std::string kind =
            record.section + "/" + (record.section == "BLOCKS" ? "" : record.table) + "/" + record.type;
        const bool isNamed = record.handle != 0 && !byPlace;
        if (byPlace)
            std::erase_if(record.tags, [](const TagText::Tag& tag) { return tag.code == 5 || tag.code == 105; });
        result[isNamed ? "#" + std::to_string(record.handle) : kind + std::to_string(counts[kind]++)] = record;
    }
    return result;
}

// Faults that are mended on the way: groups with these codes differ afterwards, and no others.
struct MendedRow {
    const char* file;
    std::set<int> codes;
};
const MendedRow kMended[] = {
    {"absurd_counts.dxf", {40, 50, 51, 72, 73, 74, 90, 91, 98}},
    {"bad_handles.dxf", {330, 340, 1005}},
};

std::set<int> MendedCodes(const std::string& path)
{
    for (const MendedRow& row : kMended)
        if (path.ends_with(row.file))
            return row.codes;
    return {};
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
    const bool byPlace = HasDoubleHandles(before);
    const std::map<std::string, Record> written = ByKey(after, byPlace);
    const std::set<int> mended = MendedCodes(GetParam());
    int reported = 0;
    for (auto& [key, record] : ByKey(before, byPlace)) {
        // Its handles may lie above its own seed.
        if (record.type == "$HANDSEED" && (byPlace || !mended.empty()))
            continue;
        const auto place = written.find(key);
        const std::string difference = place == written.end() ? record.section + " " + record.type + " is lost"
                                                              : Difference(record, place->second, mended);
        if (difference.empty())
            continue;
        ADD_FAILURE() << key << ": " << difference;
        if (++reported == 10)
            break;
    }
}

INSTANTIATE_TEST_SUITE_P(Drawings, RoundTrip, testing::ValuesIn(Drawings()), NameOf);

}   // namespace
