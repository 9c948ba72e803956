// A script answers dialogs as it answers prompts.
#include "ed/Session.h"
#include "ed/SessionAsk.h"
#include "ui/DialogModel.h"
#include "ui/ScriptedUi.h"
#include "ui/TerminalDialog.h"
#include "win/KxWinTypes.h"
#include <gtest/gtest.h>

namespace {

using namespace KxPlat;

class OneField : public DialogModel, public DialogListener {
public:
    OneField()
    {
        listener = this;
        DialogControl field;
        field.id = 1001;
        field.kind = ControlKind::Edit;
        Add(field);
    }
    void OnDialogEvent(const DialogEvent& event) override
    {
        if (event.type == DialogEvent::Type::Press)
            End(event.id);
    }
    std::wstring Text() const { return Find(1001)->text; }
};

class DialogInput : public testing::Test {
protected:
    void SetUp() override { SetUi(&m_ui); }
    void TearDown() override { SetUi(nullptr); }
    ScriptedUi m_ui;
};

TEST_F(DialogInput, LinesComeFromTheScriptThenFromTheUser)
{
    m_ui.answers = {L"", L"left over"};
    SessionOptions options;
    Session session(options);
    session.input().Push(std::make_unique<TextSource>(L"A=two words\n", TextSource::Kind::Script));
    OneField dialog;
    EXPECT_EQ(RunTerminalDialog(dialog, m_ui, AskSession), IDOK);
    EXPECT_EQ(dialog.Text(), L"two words");
    EXPECT_EQ(m_ui.answers.size(), 1u);
}

TEST_F(DialogInput, AScriptThatEndsWithoutAUserCancels)
{
    SessionOptions options;
    options.hasKeyboard = false;
    Session session(options);
    session.input().Push(std::make_unique<TextSource>(L"A=x\n", TextSource::Kind::Script));
    OneField dialog;
    EXPECT_EQ(RunTerminalDialog(dialog, m_ui, AskSession), IDCANCEL);
    EXPECT_EQ(dialog.Text(), L"x");
}

TEST_F(DialogInput, WithoutASessionTheHostIsAsked)
{
    m_ui.answers = {L"A=y", L"x"};
    OneField dialog;
    EXPECT_EQ(RunTerminalDialog(dialog, m_ui, AskSession), IDCANCEL);
    EXPECT_EQ(dialog.Text(), L"y");
}

}   // namespace
