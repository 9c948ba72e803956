// Chains of result buffers: what they hold, and that nothing of them stays behind.
#include "rx/acutads.h"
#include "rx/ResBufs.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace KxPlat;

namespace {

class ResBufs : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(LiveResBufs(), m_before); }
    long m_before = LiveResBufs();
};

std::vector<int> TypesOf(const resbuf* chain)
{
    std::vector<int> types;
    for (; chain != nullptr; chain = chain->rbnext)
        types.push_back(chain->restype);
    return types;
}

}   // namespace

TEST_F(ResBufs, BuildListTakesEachKindOfValue)
{
    const ads_point point = {1.5, -2, 3};
    const ads_name name = {17, 4};
    resbuf* list = acutBuildList(RTLB, RTSTR, L"墙体", RTSHORT, -7, RTLONG, 70000, RTREAL, 0.25, RT3DPOINT, point,
                                 RTENAME, name, RTT, RTDXF0, L"LINE", 8, L"0", 62, 3, 10, point, RTLE, 0);
    EXPECT_EQ(TypesOf(list),
              (std::vector<int>{RTLB, RTSTR, RTSHORT, RTLONG, RTREAL, RT3DPOINT, RTENAME, RTT, 0, 8, 62, 10, RTLE}));
    const resbuf* at = list->rbnext;
    EXPECT_STREQ(at->resval.rstring, L"墙体");
    at = at->rbnext;
    EXPECT_EQ(at->resval.rint, -7);
    at = at->rbnext;
    EXPECT_EQ(at->resval.rlong, 70000);
    at = at->rbnext;
    EXPECT_EQ(at->resval.rreal, 0.25);
    at = at->rbnext;
    EXPECT_EQ(at->resval.rpoint[Z], 3);
    at = at->rbnext;
    EXPECT_TRUE(ads_name_equal(at->resval.rlname, name));
    at = at->rbnext->rbnext;
    EXPECT_STREQ(at->resval.rstring, L"LINE");
    at = at->rbnext->rbnext;
    EXPECT_EQ(at->resval.rint, 3);
    EXPECT_EQ(at->rbnext->resval.rpoint[Y], -2);
    acutRelRb(list);
}

TEST_F(ResBufs, BuildListStopsAtWhatItDoesNotKnow)
{
    EXPECT_EQ(acutBuildList(RTSTR, L"a", 4999, 1, 0), nullptr);
    EXPECT_EQ(acutBuildList(0), nullptr);
    resbuf* untilNone = acutBuildList(RTSHORT, 1, RTNONE);
    EXPECT_EQ(TypesOf(untilNone), std::vector<int>{RTSHORT});
    acutRelRb(untilNone);
}

TEST_F(ResBufs, CopiesOwnTheirTexts)
{
    ads_binary bytes = {3, const_cast<char*>("\0a\xFF")};
    resbuf* list = acutBuildList(1000, L"名称", 1004, &bytes, 1070, 5, 0);
    resbuf* copy = CopyChain(list);
    list->resval.rstring[0] = L'x';
    acutRelRb(list);
    EXPECT_STREQ(copy->resval.rstring, L"名称");
    const ads_binary& copied = copy->rbnext->resval.rbinary;
    EXPECT_EQ(std::string(copied.buf, size_t(copied.clen)), std::string("\0a\xFF", 3));
    EXPECT_EQ(LastOf(copy)->resval.rint, 5);
    SetText(copy, std::wstring_view(copy->resval.rstring + 1));   // a part of the text that is replaced
    EXPECT_STREQ(copy->resval.rstring, L"称");
    acutRelRb(copy);
}

TEST(ResBufKinds, FollowTheGroupCode)
{
    struct Row {
        int code;
        ResKind kind;
    };
    static const Row rows[] = {
        {-4, ResKind::Text},   {-2, ResKind::EntityName}, {0, ResKind::Text},      {9, ResKind::Text},
        {10, ResKind::Point},  {38, ResKind::Real},       {62, ResKind::Short},    {80, ResKind::Unknown},
        {90, ResKind::Long},   {102, ResKind::Text},      {140, ResKind::Real},    {160, ResKind::Int64},
        {210, ResKind::Point}, {290, ResKind::Short},     {310, ResKind::Binary},  {340, ResKind::EntityName},
        {420, ResKind::Long},  {1004, ResKind::Binary},   {1011, ResKind::Point},  {1040, ResKind::Real},
        {1071, ResKind::Long}, {2000, ResKind::Unknown},  {RTDOTE, ResKind::None}, {RTANG, ResKind::Real},
    };
    for (const Row& row : rows)
        EXPECT_EQ(int(ResKindOf(row.code)), int(row.kind)) << row.code;
}

TEST(NewString, ReplacesAndFrees)
{
    ACHAR* text = nullptr;
    EXPECT_EQ(acutUpdString(L"一", text), Acad::eOk);
    EXPECT_EQ(acutUpdString(L"一二", text), Acad::eOk);
    EXPECT_STREQ(text, L"一二");
    acutDelString(text);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(acutNewString(nullptr, text), Acad::eOk);
    EXPECT_EQ(text, nullptr);
}
