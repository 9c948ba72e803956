#include "ed/Input.h"
#include "rx/acutads.h"
#include <gtest/gtest.h>

using namespace KxPlat;

namespace {

// Pieces joined by "|"; Esc is "ESC". The rule of each prompt is given by a letter: c command word, w word, l line.
std::wstring Cut(std::wstring_view text, std::wstring_view prompts)
{
    TextPieces pieces(text);
    std::wstring cut;
    for (const wchar_t prompt : prompts) {
        InputPiece piece;
        const InputKind kind = prompt == L'c' ? InputKind::Command : InputKind::Text;
        if (!pieces.Next(kind, prompt == L'l' ? TextRule::Line : TextRule::Word, piece))
            return cut + L"END";
        cut += (piece.type == InputPiece::Type::Cancel ? L"ESC" : piece.text) + L"|";
    }
    return cut;
}

}   // namespace

TEST(TextPieces, CutTheTextAsPromptsTakeIt)
{
    struct Row {
        const wchar_t* text;
        const wchar_t* prompts;
        const wchar_t* cut;
    };
    static const Row rows[] = {
        {L"LINE 0,0 1,1\n", L"cwww", L"LINE|0,0|1,1|END"},
        {L"LINE\r\n0,0\r\n", L"cww", L"LINE|0,0|END"},
        {L"TEXT\nlong name here\nX\n", L"clw", L"TEXT|long name here|X|"},
        {L"A  B\n", L"www", L"A||B|"},   // the second blank is an Enter
        {L"\n\nA", L"cww", L"||A|"},
        {L"; a note\n;another\nA\n", L"cc", L"A|END"},
        {L"A\n; no note\n", L"cw", L"A|;|"},   // only at the command level
        {L"(a b)\nC\n", L"cc", L"(a b)|C|"},
        {L"(a\n (b))  \nC\n", L"cc", L"(a\n (b))|C|"},   // over lines, and no Enter behind it
        {L"(a \")\\\"(\" b) C\n", L"cc", L"(a \")\\\"(\" b)|C|"},
        {L"(a ; )\n b)\nC\n", L"cc", L"(a ; )\n b)|C|"},
        {L"!x !(f 1 2)\nC\n", L"www", L"!x|!(f 1 2)|C|"},
        {L"(kept as is\n", L"l", L"(kept as is|"},
        {L"\x1b\x1b-PURGE\nLA\n\n", L"cccww", L"ESC|ESC|-PURGE|LA||"},
        {L"AB\x1b"
         L"CD\n",
         L"ww", L"ESC|CD|"},   // Esc drops what was begun
        {L"\x03"
         L"A\n",
         L"cc", L"ESC|A|"},
        {L"墙体 \n", L"ww", L"墙体||"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        EXPECT_EQ(Cut(row.text, row.prompts), row.cut);
    }
}

TEST(TextPieces, KnowHowManyParenthesesAFormLacks)
{
    struct Row {
        const wchar_t* text;
        int missing;
    };
    static const Row rows[] = {{L"(a (b)", 1}, {L"(a (b", 2}, {L"(a)", 0}, {L"(a) (", 0}, {L"(\")\"", 1}, {L"LINE", 0}};
    for (const Row& row : rows)
        EXPECT_EQ(TextPieces(row.text).MissingParentheses(), row.missing)
            << testing::PrintToString(std::wstring(row.text));
}

namespace {

// Answers from a list of lines.
class Lines : public HostUi {
public:
    explicit Lines(std::vector<std::wstring> lines) : m_lines(std::move(lines)) {}
    void Print(std::wstring_view text) override { printed += text; }
    InputEvent Ask(const InputRequest& request) override
    {
        asked += request.prompt;
        InputEvent event;
        if (m_next < m_lines.size()) {
            event.type = InputEvent::Type::Text;
            event.text = m_lines[m_next++];
        }
        return event;
    }
    std::wstring printed, asked;

private:
    std::vector<std::wstring> m_lines;
    size_t m_next = 0;
};

InputRequest Asking(const wchar_t* prompt)
{
    InputRequest request;
    request.kind = InputKind::Text;
    request.prompt = prompt;
    return request;
}

std::wstring NextText(InputStack& stack, TextRule rule = TextRule::Word, const InputSource* until = nullptr)
{
    const InputPiece piece = stack.Next(Asking(L"?"), rule, until);
    return piece.type == InputPiece::Type::Text ? piece.text : piece.type == InputPiece::Type::End ? L"END" : L"other";
}

class Stack : public testing::Test {
protected:
    void TearDown() override { SetUi(nullptr); }
    InputStack stack;
};

}   // namespace

TEST_F(Stack, TakesFromTheTopAndFallsBackToTheKeyboard)
{
    Lines lines({L"typed again", L"whole line"});
    SetUi(&lines);
    stack.Push(std::make_unique<TextSource>(L"below\n", TextSource::Kind::Script));
    stack.Push(std::make_unique<TextSource>(L"above\n", TextSource::Kind::Sent));
    EXPECT_EQ(NextText(stack), L"above");
    EXPECT_EQ(NextText(stack), L"below");
    EXPECT_EQ(NextText(stack), L"typed");
    EXPECT_EQ(NextText(stack), L"again");   // the rest of the line that was typed
    EXPECT_EQ(NextText(stack, TextRule::Line), L"whole line");
    EXPECT_EQ(NextText(stack), L"END");
}

TEST_F(Stack, AsksForTheRestOfAForm)
{
    Lines lines({L"(list 1", L"2)"});
    SetUi(&lines);
    EXPECT_EQ(NextText(stack), L"(list 1\n2)");
    EXPECT_EQ(lines.asked, L"?\n(_> ");
}

TEST_F(Stack, LeavesWhatLiesBelowAlone)
{
    stack.Push(std::make_unique<TextSource>(L"below\n", TextSource::Kind::Script));
    const InputSource* top = stack.Push(std::make_unique<TextSource>(L"above\n", TextSource::Kind::Script));
    EXPECT_EQ(NextText(stack, TextRule::Word, top), L"above");
    EXPECT_EQ(NextText(stack, TextRule::Word, top), L"END");
    EXPECT_EQ(NextText(stack), L"below");
}

TEST_F(Stack, PausesForTheSourceBelow)
{
    stack.Push(std::make_unique<TextSource>(L"user\nrest\n", TextSource::Kind::Script));
    resbuf* arguments = acutBuildList(RTSTR, L"first", RTSTR, L"\\", RTSHORT, 7, RTNONE);
    stack.Push(std::make_unique<ArgumentSource>(arguments));
    EXPECT_EQ(NextText(stack), L"first");
    EXPECT_EQ(NextText(stack), L"user");
    const InputPiece number = stack.Next(Asking(L"?"), TextRule::Word);
    EXPECT_EQ(number.value.restype, RTSHORT);
    EXPECT_EQ(number.value.resval.rint, 7);
    EXPECT_EQ(NextText(stack), L"rest");
    acutRelRb(arguments);
}

TEST_F(Stack, ShowsPromptsOfScriptsOnly)
{
    Lines lines({L"c"});
    SetUi(&lines);
    resbuf* arguments = acutBuildList(RTSTR, L"b", RTNONE);
    stack.Push(std::make_unique<TextSource>(L"a\n", TextSource::Kind::Script));
    NextText(stack);
    stack.Push(std::make_unique<ArgumentSource>(arguments));
    NextText(stack);
    NextText(stack);
    EXPECT_EQ(lines.printed, L"?a");
    EXPECT_EQ(lines.asked, L"?");   // the keyboard's own host shows what it asks
    acutRelRb(arguments);
}

TEST_F(Stack, EscapeEndsProgramsButNoScript)
{
    stack.Push(std::make_unique<TextSource>(L"script\n", TextSource::Kind::Script));
    stack.Push(std::make_unique<TextSource>(L"sent\n", TextSource::Kind::Sent));
    stack.DropPrograms();
    EXPECT_EQ(NextText(stack), L"script");
}
