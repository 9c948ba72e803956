// What commands remember belongs to one document: several are open at once, and each has its own.
#include "ap/Documents.h"
#include "db/AcDbDatabase.h"
#include "DrawingState.h"
#include "ed/acedads.h"
#include "ed/AcEdInputPointFilter.h"
#include "ed/AcEdInputPointManager.h"
#include "ed/Session.h"
#include "ui/ScriptedUi.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include "win/Processes.h"
#include <cstdio>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

namespace {

class SeveralDocuments : public testing::Test {
protected:
    SeveralDocuments()
    {
        KxPlat::SetUi(&ui);
        first = Open("house_r2010.dxf");
        EXPECT_EQ(acedArxLoad(KxPlat::DrivePath(KX_BIN "/KxArxBase.arx").c_str()), RTNORM);
        second = Open("house_r2007.dxf");
    }
    ~SeveralDocuments() override { KxPlat::SetUi(nullptr); }

    AcApDocument* OpenPath(const std::string& path)
    {
        AcApDocument* document = nullptr;
        std::wstring why;
        EXPECT_EQ(KxPlat::OpenDrawing(KxPlat::DrivePath(path), document, why), Acad::eOk) << KxPlat::ToUtf8(why);
        return document;
    }
    AcApDocument* Open(const char* name) { return OpenPath(std::string(KX_TEST_DATA "/") + name); }
    std::wstring Say(AcApDocument* document, const std::wstring& lines)
    {
        acDocManager->activateDocument(document);
        ui.TakePrinted();
        session.Run(lines + L"\n");
        return ui.TakePrinted();
    }
    bool Says(AcApDocument* document, const std::wstring& lines, const std::wstring& answer)
    {
        return Say(document, lines).find(answer) != std::wstring::npos;
    }
    static AcDbObjectId LastOf(AcApDocument* document)
    {
        acDocManager->activateDocument(document);
        ads_name name;
        AcDbObjectId id;
        EXPECT_EQ(acdbEntLast(name), RTNORM);
        EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
        return id;
    }
    // What the host shows when the cursor rests on these objects.
    static std::wstring TipOver(AcApDocument* document, std::initializer_list<AcDbObjectId> objects,
                                bool isComputed = true)
    {
        AcEdInputPointFilter* filter = document->inputPointManager()->currentPointFilter();
        AcArray<AcDbObjectId> aperture;
        for (AcDbObjectId id : objects)
            aperture.append(id);
        const AcGePoint3d point(1, 2, 3);
        AcGePoint3d moved;
        bool isPointChanged = false, isTipChanged = false, retries = false;
        ACHAR* tip = nullptr;
        EXPECT_EQ(filter->processInputPoint(isPointChanged, moved, isTipChanged, tip, retries, nullptr, document,
                                            isComputed, 0, point, point, point, point, point, AcDb::OsnapMask(0), {},
                                            AcDb::OsnapMask(0), {}, aperture, {}, {}, {}, {}, {}, {}, point, L""),
                  Acad::eOk);
        EXPECT_FALSE(isPointChanged);
        return isTipChanged ? tip : L"as the host has it";
    }
    static std::string StatesOf(AcApDocument* document) { return LayersOf(KxTest::StateOf(*document->database())); }
    static std::string LayersOf(const KxTest::DrawingState& state)
    {
        std::string text;
        for (const auto& [handle, record] : state) {
            if (record.type != "LAYER")
                continue;
            for (const auto& [code, value] : record.groups)
                text += code == 2 || code == 62 || code == 70 ? value + " " : "";
        }
        return text;
    }

    KxPlat::ScriptedUi ui;
    KxPlat::Session session{KxPlat::SessionOptions{L"18.1", true, false}};
    AcApDocument* first = nullptr;
    AcApDocument* second = nullptr;
};

const wchar_t g_noSnapshot[] = L"\n 未保存图层状态，恢复图层状态失败！";

}   // namespace

TEST_F(SeveralDocuments, EachHasItsOwnLayerStates)
{
    const std::string before = StatesOf(first);
    EXPECT_TRUE(Says(first, L"BCTCZT", L"\n 图层状态已保存。"));
    EXPECT_TRUE(Says(second, L"HFTCZT", g_noSnapshot));
    Say(second, L"-LAYER\nOFF\n*\nY\n\n");
    const std::string allOff = StatesOf(second);
    EXPECT_TRUE(Says(second, L"BCTCZT", L"\n 图层状态已保存。"));
    Say(first, L"-LAYER\nOFF\n*\nY\n\n");
    Say(second, L"TCXSQB");
    EXPECT_NE(StatesOf(first), before);
    EXPECT_NE(StatesOf(second), allOff);
    Say(first, L"HFTCZT");
    EXPECT_NE(StatesOf(second), allOff);
    Say(second, L"HFTCZT");
    EXPECT_EQ(StatesOf(first), before);
    EXPECT_EQ(StatesOf(second), allOff);
}

TEST_F(SeveralDocuments, EachReversesItsOwnLastAction)
{
    struct Row {
        const wchar_t* action;
        const wchar_t* reversal;
    };
    static const Row rows[] = {
        {L"XCYC\nALL\n\n", L"TCXSQF"}, {L"XCSD\nALL\n\n", L"TCSDQF"}, {L"XCDJ\nALL\n\n", L"TCDJQF"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(KxPlat::ToUtf8(row.reversal));
        Say(first, L"XSQB\nTCJDQB\nTCJSQB");
        const std::string before = StatesOf(first), other = StatesOf(second);
        Say(first, row.action);
        const std::string after = StatesOf(first);
        EXPECT_NE(after, before);
        Say(second, row.reversal);   // nothing was done here
        EXPECT_EQ(StatesOf(first), after);
        EXPECT_EQ(StatesOf(second), other);
        Say(first, row.reversal);
        EXPECT_EQ(StatesOf(first), before);
        Say(first, row.reversal);
        EXPECT_EQ(StatesOf(first), after);
        Say(first, row.reversal);
    }
}

TEST_F(SeveralDocuments, EachReversesItsOwnHiding)
{
    const KxTest::DrawingState before = KxTest::StateOf(*first->database());
    const KxTest::DrawingState other = KxTest::StateOf(*second->database());
    Say(first, L"XDXYC\nALL\n\n");
    Say(second, L"DXQF");
    EXPECT_EQ(KxTest::Changes(other, KxTest::StateOf(*second->database())), "(none)\n");
    const auto tellsOfVisibility = [&] {
        return KxTest::Changes(before, KxTest::StateOf(*first->database())).find("60 none -> 1") != std::string::npos;
    };
    EXPECT_TRUE(tellsOfVisibility());
    Say(first, L"DXQF");
    EXPECT_FALSE(tellsOfVisibility());
}

TEST_F(SeveralDocuments, TooltipsComeBackWithTheFile)
{
    const std::string path = testing::TempDir() + "kx-tips-" + std::to_string(GetCurrentProcessId()) + ".dxf";
    const std::wstring text = L"客厅的圆桌，" + std::wstring(300, L'桌');
    const std::wstring pick = L"(progn (setq KXSET (ssadd (entlast))) (princ))\n";
    Say(first, pick + L"KXTSWZ\n!KXSET\n" + text);
    ASSERT_EQ(first->database()->dxfOut(KxPlat::DrivePath(path).c_str()), Acad::eOk);
    AcApDocument* reopened = OpenPath(path);
    std::remove(path.c_str());
    const AcDbObjectId own = LastOf(first), again = LastOf(reopened), foreign = LastOf(second);
    EXPECT_EQ(TipOver(first, {own}), text);
    EXPECT_EQ(TipOver(reopened, {again}), text);
    EXPECT_EQ(TipOver(second, {foreign}), L"as the host has it");
    // Only the first object under the cursor counts, and only a computed point.
    EXPECT_EQ(TipOver(first, {own, foreign}), text);
    EXPECT_EQ(TipOver(first, {foreign, own}), L"as the host has it");
    EXPECT_EQ(TipOver(first, {}), L"as the host has it");
    EXPECT_EQ(TipOver(first, {own}, false), L"as the host has it");
    Say(reopened, pick + L"KXRMTSWZ\n!KXSET");
    EXPECT_EQ(TipOver(reopened, {again}), L"as the host has it");
    EXPECT_EQ(TipOver(first, {own}), text);
}
