#include "win/CommandLine.h"
#include <gtest/gtest.h>

namespace {

using Words = std::vector<std::wstring>;

TEST(CommandLine, PartsWordsAsWindowsDoes)
{
    struct Row {
        const wchar_t* line;
        Words words;
    };
    static const Row rows[] = {
        {L"a b\tc", {L"a", L"b", L"c"}},
        {L" /b \"C:\\x y.scr\"", {L"", L"/b", L"C:\\x y.scr"}},
        {L"\"C:\\a b\\c.exe\" x", {L"C:\\a b\\c.exe", L"x"}},
        {L"p \"a\\\\\" b", {L"p", L"a\\", L"b"}},
        {L"p \"a\\\"b\" c", {L"p", L"a\"b", L"c"}},
        {L"p a\\b\\\\c", {L"p", L"a\\b\\\\c"}},
        {L"p a\\\\\\\"b", {L"p", L"a\\\"b"}},
        {L"p \"\" x\"y z\"w", {L"p", L"", L"xy zw"}},
        {L"p \"a\"\"b\"", {L"p", L"a\"b"}},
        {L"p a\\ b", {L"p", L"a\\", L"b"}},
        {L"p \"open end", {L"p", L"open end"}},
        {L"p a\\", {L"p", L"a\\"}},
        {L"p  ", {L"p"}},
        {L"", {L""}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(KxPlat::CommandWords(row.line), row.words) << testing::PrintToString(row.line);
}

}   // namespace
