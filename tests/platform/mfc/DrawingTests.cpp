// Drawing on windows and bitmaps, and the dialog for names of files.
#include "mfc/CDC.h"
#include "mfc/CFileDialog.h"
#include "ui/ScriptedUi.h"
#include "ui/WindowBackend.h"
#include <functional>
#include <gtest/gtest.h>

namespace {

// Each letter is one pixel.
class LetterBackend : public KxPlat::WindowBackend {
public:
    LetterBackend() { KxPlat::SetWindowBackend(this); }
    ~LetterBackend() override { KxPlat::SetWindowBackend(nullptr); }
    KxPlat::TextMask DrawnText(std::wstring_view text, int) override
    {
        return {int(text.size()), 1, std::vector<uint8_t>(text.size(), 255)};
    }
};

}   // namespace

namespace {

// The pixels of a bitmap of 6 by 4 as letters: '.' black, 'w' white, 'r' red, '?' any other.
std::string Drawn(const std::function<void(CDC&)>& draw)
{
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(nullptr, 6, 4);
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SelectObject(&bitmap);
    draw(dc);
    std::string letters;
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 6; ++x) {
            const COLORREF color = dc.GetPixel(x, y);
            letters += color == 0 ? '.' : color == RGB(255, 255, 255) ? 'w' : color == RGB(255, 0, 0) ? 'r' : '?';
        }
        letters += '/';
    }
    return letters;
}

}   // namespace

TEST(DeviceContexts, LinesAreasAndMixes)
{
    CPen red(PS_SOLID, 1, RGB(255, 0, 0)), white(PS_SOLID, 1, RGB(255, 255, 255)), wide(PS_SOLID, 3, RGB(255, 0, 0));
    CBrush redArea(RGB(255, 0, 0));
    struct Row {
        const char* name;
        std::function<void(CDC&)> draw;
        const char* pixels;
    };
    const Row rows[] = {
        {"the end belongs to the next line",
         [&](CDC& dc) {
             dc.SelectObject(&red);
             dc.MoveTo(1, 1);
             dc.LineTo(4, 1);
         },
         "....../.rrr../....../....../"},
        {"a slanted line",
         [&](CDC& dc) {
             dc.SelectObject(&red);
             dc.MoveTo(0, 0);
             dc.LineTo(4, 4);
         },
         "r...../.r..../..r.../...r../"},
        {"a wide pen",
         [&](CDC& dc) {
             dc.SelectObject(&wide);
             dc.MoveTo(0, 1);
             dc.LineTo(2, 1);
         },
         "rr..../rr..../rr..../....../"},
        {"a frame with the default brush",
         [&](CDC& dc) {
             dc.SelectObject(&red);
             dc.Rectangle(0, 0, 4, 4);
         },
         "rrrr../rwwr../rwwr../rrrr../"},
        {"a hollow frame",
         [&](CDC& dc) {
             dc.SelectObject(&red);
             dc.SelectStockObject(NULL_BRUSH);
             dc.Rectangle(1, 0, 6, 4);
         },
         ".rrrrr/.r...r/.r...r/.rrrrr/"},
        {"drawn twice, a mixed line is gone",
         [&](CDC& dc) {
             dc.FillSolidRect(CRect(0, 0, 3, 4), RGB(255, 255, 255));
             dc.SelectObject(&white);
             dc.SetROP2(R2_XORPEN);
             for (int i = 0; i < 3; ++i) {
                 dc.MoveTo(0, 2);
                 dc.LineTo(6, 2);
             }
         },
         "www.../www.../...www/www.../"},
        {"inverted",
         [&](CDC& dc) {
             dc.SetROP2(R2_NOT);
             dc.MoveTo(2, 0);
             dc.LineTo(2, 2);
         },
         "..w.../..w.../....../....../"},
        {"far beyond the surface",
         [&](CDC& dc) {
             dc.SelectObject(&red);
             dc.MoveTo(-2000000000, 3);
             dc.LineTo(2000000000, 3);
         },
         "....../....../....../rrrrrr/"},
        {"areas are cut", [&](CDC& dc) { dc.FillRect(CRect(4, -5, 900000000, 1), &redArea); },
         "....rr/....../....../....../"},
        {"a frame of a brush", [&](CDC& dc) { dc.FrameRect(CRect(0, 0, 3, 3), &redArea); },
         "rrr.../r.r.../rrr.../....../"},
        {"copied onto itself",
         [&](CDC& dc) {
             dc.FillSolidRect(CRect(0, 0, 2, 1), RGB(255, 0, 0));
             dc.BitBlt(1, 1, 2, 1, &dc, 0, 0, SRCCOPY);
         },
         "rr..../.rr.../....../....../"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Drawn(row.draw), row.pixels) << row.name;
}

TEST(DeviceContexts, TextsComeFromTheBackend)
{
    LetterBackend backend;
    EXPECT_EQ(Drawn([](CDC& dc) {
                  dc.SetTextColor(RGB(255, 0, 0));
                  dc.SetBkMode(TRANSPARENT);
                  dc.TextOut(1, 2, L"墙体");
                  EXPECT_EQ(dc.GetTextExtent(L"墙体"), CSize(2, 1));
              }),
              "....../....../.rr.../....../");
}

TEST(FileDialogs, AskTheHostAndTakeNamesApart)
{
    struct FileUi : KxPlat::ScriptedUi {
        KxPlat::FileRequest asked;
        std::wstring answer;
        bool AskFileName(const KxPlat::FileRequest& request, std::wstring& path) override
        {
            asked = request;
            path = answer;
            return !answer.empty();
        }
    } ui;
    KxPlat::SetUi(&ui);
    CFileDialog cancelled(TRUE);
    EXPECT_EQ(cancelled.DoModal(), IDCANCEL);
    EXPECT_FALSE(ui.asked.forSave);
    CFileDialog dialog(FALSE, L"dwg", L"平面", 0, L"图形|*.dwg;*.dxf|模板|*.dwt|所有文件|*.*||");
    dialog.m_ofn.lpstrTitle = L"保存图纸";
    dialog.m_ofn.lpstrInitialDir = L"C:\\图";
    ui.answer = L"C:\\图.纸\\一层";
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(ui.asked.title, L"保存图纸");
    EXPECT_EQ(ui.asked.initial, L"C:\\图\\平面");
    EXPECT_EQ(ui.asked.extensions, L"dwg;dxf;dwt");
    EXPECT_TRUE(ui.asked.forSave);
    EXPECT_STREQ(dialog.GetPathName(), L"C:\\图.纸\\一层.dwg");
    EXPECT_STREQ(dialog.GetFileName(), L"一层.dwg");
    EXPECT_STREQ(dialog.GetFileTitle(), L"一层");
    ui.answer = L"D:/a.b.dxf";
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_STREQ(dialog.GetFileExt(), L"dxf");
    EXPECT_STREQ(dialog.GetFileTitle(), L"a.b");
    KxPlat::SetUi(nullptr);
}
