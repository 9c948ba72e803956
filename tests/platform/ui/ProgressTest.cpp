// What the user sees of long work.
#include "ui/Progress.h"
#include "ui/HostUi.h"
#include <gtest/gtest.h>
#include <vector>

using KxPlat::Progress;

namespace {

class ProgressUi : public KxPlat::HostUi {
public:
    ProgressUi() { KxPlat::SetUi(this); }
    ~ProgressUi() override { KxPlat::SetUi(nullptr); }
    void Progress(std::wstring_view what, int percent) override
    {
        name = what;
        percents.push_back(percent);
    }
    std::wstring name;
    std::vector<int> percents;
};

}   // namespace

TEST(ProgressTest, EachPercentIsToldOnceAndTheEndToo)
{
    ProgressUi ui;
    {
        Progress progress(L"Reading", 1000, Progress::Wait(0));
        for (uint64_t done = 0; done <= 1000; ++done)
            progress.At(done);
    }
    EXPECT_EQ(ui.name, L"Reading");
    ASSERT_EQ(ui.percents.size(), 102u);
    for (int percent = 0; percent <= 100; ++percent)
        EXPECT_EQ(ui.percents[size_t(percent)], percent);
    EXPECT_EQ(ui.percents.back(), -1);
}

TEST(ProgressTest, OddTotalsAreNoMatter)
{
    struct Row {
        uint64_t total, done;
        int percent;
    };
    static const Row rows[] = {
        {0, 0, 0}, {0, 5, 100}, {3, 2, 66}, {10, 11, 100}, {uint64_t(1) << 50, uint64_t(1) << 49, 50}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.total);
        ProgressUi ui;
        Progress(L"Writing", row.total, Progress::Wait(0)).At(row.done);
        EXPECT_EQ(ui.percents, (std::vector<int>{row.percent, -1}));
    }
}

TEST(ProgressTest, NothingIsShownOfShortWork)
{
    ProgressUi ui;
    {
        Progress progress(L"Reading", 10, Progress::Wait(600'000));
        for (uint64_t done = 0; done <= 10; ++done)
            progress.At(done);
    }
    EXPECT_TRUE(ui.percents.empty());
}
