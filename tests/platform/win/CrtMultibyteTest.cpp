// Windows names only: these rows hold on any implementation of the calls.
#include "KxWin.h"
#include "support/TestSystem.h"
#include <gtest/gtest.h>
#include <string>

namespace {

// Another multibyte code page for one test.
class Multibyte : public testing::Test {
protected:
    void TearDown() override { _setmbcp(_MB_CP_ANSI); }
    // One answer for each byte of kText.
    template <class Ask>
    static std::string Answers(const Ask& ask)
    {
        std::string answers;
        for (int i = 0; i < 7; ++i)
            answers += std::to_string(ask(kText, kText + i)) + " ";
        return answers;
    }
    static const unsigned char kText[];
};
// "a中", a character whose second byte is "\", "b" and half a character.
const unsigned char Multibyte::kText[] = "a\xD6\xD0\xCE\\b\xD6";

TEST_F(Multibyte, CharactersOfTwoBytes)
{
    EXPECT_EQ(_setmbcp(936), 0);
    EXPECT_EQ(_getmbcp(), 936);
    EXPECT_EQ(Answers(_ismbslead), "0 -1 0 -1 0 0 -1 ");
    EXPECT_EQ(Answers(_ismbstrail), "0 0 -1 0 -1 0 0 ");
    EXPECT_EQ(_mbslen(kText), 4u);
    EXPECT_EQ(_mbsinc(kText + 1), kText + 3);
    EXPECT_EQ(_mbsinc(kText + 6), kText + 7);
    EXPECT_EQ(_mbsdec(kText, kText + 5), kText + 3);
    EXPECT_EQ(_mbsdec(kText, kText), nullptr);
    EXPECT_EQ(_mbschr(kText, '\\'), nullptr) << "it is the second half of a character";
    EXPECT_EQ(_mbsrchr(kText, '\\'), nullptr);
    EXPECT_EQ(_mbschr(kText, 0xD6D0), kText + 1);
    EXPECT_EQ(_mbsrchr(kText, 'b'), kText + 5);
    struct Row {
        unsigned byte;
        int lead, trail;
    };
    static const Row rows[] = {{0xD6, 1, 1}, {0x80, 0, 1}, {0x81, 1, 1}, {0xFE, 1, 1},
                               {0xFF, 0, 0}, {0x40, 0, 1}, {0x7F, 0, 1}, {0x30, 0, 0}};
    for (const Row& row : rows) {
        EXPECT_EQ(_ismbblead(row.byte) != 0, row.lead != 0) << row.byte;
        EXPECT_EQ(_ismbbtrail(row.byte) != 0, row.trail != 0) << row.byte;
    }
}

TEST_F(Multibyte, CharactersOfOneByte)
{
    EXPECT_EQ(_setmbcp(_MB_CP_SBCS), 0);
    EXPECT_EQ(_ismbblead(0xD6), 0);
    EXPECT_EQ(_setmbcp(1252), 0);
    EXPECT_EQ(_setmbcp(9999), -1);
    EXPECT_EQ(_getmbcp(), 1252) << "a refused page changes nothing";
    EXPECT_EQ(Answers(_ismbslead), "0 0 0 0 0 0 0 ");
    EXPECT_EQ(Answers(_ismbstrail), "0 0 0 0 0 0 0 ");
    EXPECT_EQ(_mbslen(kText), 7u);
    EXPECT_EQ(_mbsinc(kText + 1), kText + 2);
    EXPECT_EQ(_mbsdec(kText, kText + 5), kText + 4);
    EXPECT_EQ(_mbschr(kText, '\\'), kText + 4);
    EXPECT_EQ(_mbsrchr(kText, 0xD6), kText + 6);
    EXPECT_EQ(_ismbblead(0xD6), 0);
    EXPECT_EQ(_ismbbtrail(0xD6), 0);
}

}   // namespace
