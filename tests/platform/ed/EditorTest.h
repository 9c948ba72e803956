// A session with one new drawing and a host that answers from a queue.
#pragma once
#include "ed/acedads.h"
#include "ed/Session.h"
#include "ed/SysVars.h"
#include "ui/ScriptedUi.h"
#include <gtest/gtest.h>
#include <optional>

namespace KxTest {

class Editor : public testing::Test {
protected:
    void SetUp() override
    {
        KxPlat::SetUi(&ui);
        Start(true);
    }
    void TearDown() override
    {
        session.reset();
        KxPlat::SetUi(nullptr);
    }
    void Start(bool hasKeyboard)
    {
        session.reset();
        KxPlat::SessionOptions options;
        options.hasKeyboard = hasKeyboard;
        session.emplace(options);
        AcApDocument* document = nullptr;
        std::wstring why;
        ASSERT_EQ(KxPlat::NewDrawing(L"", document, why), Acad::eOk);
    }
    // What the user sees of a text as if typed.
    std::wstring Seen(std::wstring_view text)
    {
        ui.TakePrinted();
        isGood = session->Run(text);
        return ui.TakePrinted();
    }
    // Makes a piece of text the answer to whatever is asked next.
    void Type(std::wstring_view text)
    {
        session->input().Push(std::make_unique<KxPlat::TextSource>(text, KxPlat::TextSource::Kind::Script));
    }

    KxPlat::ScriptedUi ui;
    std::optional<KxPlat::Session> session;
    bool isGood = false;
};

}   // namespace KxTest
