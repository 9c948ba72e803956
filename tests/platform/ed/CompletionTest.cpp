// What Tab offers at each kind of prompt.
#include "ed/Completions.h"
#include "EditorTest.h"

using namespace KxTest;
using KxPlat::InputKind;

namespace {

using Lines = std::vector<std::wstring>;

KxPlat::InputRequest Request(InputKind kind, const wchar_t* prompt = L"", Lines keywords = {})
{
    KxPlat::InputRequest request;
    request.kind = kind;
    request.prompt = prompt;
    request.keywords = std::move(keywords);
    return request;
}

}   // namespace

TEST_F(Editor, CommandsVariablesAndFunctionsAreCompleted)
{
    static const struct {
        const wchar_t* typed;
        Lines lines;
    } rows[] = {
        {L"purg", {}},
        {L"-pur", {L"-PURGE"}},
        {L"saveas", {L"SAVEAS"}},
        {L"_saveas", {L"_SAVEAS"}},
        {L"'_.saveas", {L"'_.SAVEAS"}},
        {L"walls", {L"WALLS-OFF", L"WALLS-ON"}},
        {L"ltsc", {L"LTSCALE"}},
        {L"savex", {}},
    };
    Seen(L"(defun c:walls-on () 1)\n(defun c:walls-off () 1)\n(defun walls-none () 1)\n(setq c:walls-x nil)\n");
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.typed)));
        EXPECT_EQ(KxPlat::Completions(Request(InputKind::Command), row.typed), row.lines);
    }
    const Lines all = KxPlat::Completions(Request(InputKind::Command), L"");
    EXPECT_GT(all.size(), 200u);
    EXPECT_EQ(std::count(all.begin(), all.end(), L"LINE"), 1);
}

TEST_F(Editor, KeywordsAndWaysToSelectAreCompleted)
{
    const KxPlat::InputRequest keywords = Request(InputKind::Keyword, L"", {L"Yes", L"No", L"All"});
    EXPECT_EQ(KxPlat::Completions(keywords, L""), (Lines{L"All", L"No", L"Yes"}));
    EXPECT_EQ(KxPlat::Completions(keywords, L"a"), Lines{L"All"});
    EXPECT_EQ(KxPlat::Completions(keywords, L"_y"), Lines{L"_Yes"});
    EXPECT_EQ(KxPlat::Completions(Request(InputKind::Point, L"", {L"Undo"}), L"U"), Lines{L"Undo"});
    EXPECT_EQ(KxPlat::Completions(Request(InputKind::Selection), L"c"), (Lines{L"CPolygon", L"Crossing"}));
    EXPECT_EQ(KxPlat::Completions(Request(InputKind::Selection), L"").size(), 16u);
}

TEST_F(Editor, NamesAreCompletedWhereThePromptAsksForThem)
{
    Seen(L"-LAYER N \u5899\u4F53,\u5899\u7EBF,Axis \n-LAYER N Axis lines\n\n");
    static const struct {
        const wchar_t* prompt;
        const wchar_t* typed;
        Lines lines;
    } rows[] = {
        {L"\nEnter layer name(s) to list <*>: ", L"\u5899", {L"\u5899\u4F53", L"\u5899\u7EBF"}},
        {L"\n \u9009\u62E9\u56FE\u5C42\uFF1A", L"\u5899\u4F53", {L"\u5899\u4F53"}},
        {L"\nLayer: ", L"0,ax", {L"0,Axis", L"0,Axis lines"}},
        {L"\nEnter linetype: ", L"con", {L"Continuous"}},
        {L"\nEnter text: ", L"", {}},
        {L"\nEnter block name: ", L"*", {}},   // spaces have no name to type
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.prompt)));
        EXPECT_EQ(KxPlat::Completions(Request(InputKind::Text, row.prompt), row.typed), row.lines);
    }
    EXPECT_EQ(KxPlat::Completions(Request(InputKind::Point, L"\nPoint on layer: "), L"Ax"), Lines());
}
