// The drawing area under the mouse: looking around, picking points, selecting.
#include "db/AcDbCircle.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbLine.h"
#include "Desk.h"
#include "ed/select/Candidates.h"
#include <cmath>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

using namespace KxTest;

namespace {

constexpr QRgb kRed = 0xFFFF0000, kGreen = 0xFF00FF00;

// The coordinates that the status bar shows.
std::pair<double, double> Shown()
{
    const QStringList parts = FindAs<QLabel>(QStringLiteral("coordinates"))->text().split(QLatin1Char(','));
    return {parts.value(0).trimmed().toDouble(), parts.value(1).trimmed().toDouble()};
}

// A red diagonal from 0,0 to 100,100 and, below it, a green circle. The middle of all lies on the diagonal.
const wchar_t kDrawing[] = L"-COLOR\n1\nLINE 0,0 100,100\n\n-COLOR\n3\nCIRCLE 80,20 10\n-COLOR\nBYLAYER\n";

void Wheel(const QPoint& place, int delta)
{
    QWidget* area = Find(QStringLiteral("drawingArea"));
    QWheelEvent event(place, area->mapToGlobal(place), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(area, &event);
}

std::vector<Desk::Step> InSight(std::vector<Desk::Step> steps)
{
    steps.insert(steps.begin(), {Until(IsAtCommandPrompt), Trigger(QStringLiteral("action.zoomExtents"))});
    return steps;
}

}   // namespace

TEST(DesktopDrawing, TheWheelKeepsThePointUnderTheCursor)
{
    Desk desk;
    desk.Run(kDrawing);
    std::pair<double, double> before, after;
    const QPoint place(200, 150);
    int redBefore = 0, redAfter = 0;
    desk.Do(InSight({Check([&] { redBefore = PixelsOf(DrawingPicture(), kRed); }), Move(place), Check([&] {
                         before = Shown();
                         Wheel(place, 240);
                         QTest::mouseMove(Find(QStringLiteral("drawingArea")), place + QPoint(40, 0));
                         QTest::mouseMove(Find(QStringLiteral("drawingArea")), place);
                         after = Shown();
                         for (int i = 0; i < 4; ++i)
                             Wheel(Middle(), -240);
                         redAfter = PixelsOf(DrawingPicture(), kRed);
                     })}));
    EXPECT_NEAR(before.first, after.first, 0.01);
    EXPECT_NEAR(before.second, after.second, 0.01);
    // Two clicks in and eight out leave a sixth power of 0.8 of the line, about a quarter.
    EXPECT_GT(redBefore, 100);
    EXPECT_NEAR(redAfter, redBefore * std::pow(0.8, 6), redBefore * 0.08);
}

TEST(DesktopDrawing, TheMiddleButtonPansAndItsDoubleClickShowsAll)
{
    Desk desk;
    desk.Run(kDrawing);
    QImage whole, moved, again;
    desk.Do(InSight({Check([&] {
        QWidget* area = Find(QStringLiteral("drawingArea"));
        whole = DrawingPicture();
        QTest::mousePress(area, Qt::MiddleButton, {}, Middle());
        QTest::mouseMove(area, Middle() + QPoint(37, -21));
        QTest::mouseRelease(area, Qt::MiddleButton, {}, Middle() + QPoint(37, -21));
        moved = DrawingPicture();
        QTest::mouseDClick(area, Qt::MiddleButton, {}, Middle());
        again = DrawingPicture();
    })}));
    ASSERT_EQ(whole.size(), moved.size());
    int same = 0, red = 0;
    for (int y = 60; y < whole.height() - 60; ++y)
        for (int x = 60; x < whole.width() - 60; ++x)
            if (whole.pixel(x, y) == kRed) {
                ++red;
                same += moved.pixel(x + 37, y - 21) == kRed;
            }
    EXPECT_GT(red, 100);
    EXPECT_GE(same, red * 9 / 10);
    EXPECT_EQ(whole, again);
}

TEST(DesktopDrawing, PointsArePickedForCommands)
{
    Desk desk;
    desk.Run(kDrawing);
    std::pair<double, double> first, second;
    int plain = 0, banded = 0;
    const QPoint from(150, 200), to(350, 260);
    desk.Do(InSight({Type(QStringLiteral("LINE")), Until([] { return PromptText().contains(QLatin1String("first")); }),
                     Move(from), Check([&] { first = Shown(); }), Click(from),
                     Until([] { return PromptText().contains(QLatin1String("next")); }), Check([&] {
                         QWidget* area = Find(QStringLiteral("drawingArea"));
                         plain = PixelsOf(DrawingPicture(), qRgb(230, 150, 30));
                         QTest::mouseMove(area, to);
                         banded =
                             PixelsOf(area->grab().toImage().convertToFormat(QImage::Format_RGB32), qRgb(230, 150, 30));
                         second = Shown();
                     }),
                     Click(to), Until([&] { return EntityCount(desk.database()) == 3; }), Key(Qt::Key_Escape)}));
    EXPECT_EQ(plain, 0);
    EXPECT_GT(banded, 60);   // a dashed line of 209 pixels
    const AcDbObjectId id = KxPlat::LastVisible(desk.database());
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForRead), Acad::eOk);
    EXPECT_NEAR(line->startPoint().x, first.first, 0.001);
    EXPECT_NEAR(line->startPoint().y, first.second, 0.001);
    EXPECT_NEAR(line->endPoint().x, second.first, 0.001);
    EXPECT_NEAR(line->endPoint().y, second.second, 0.001);
    line->close();
}

TEST(DesktopDrawing, WindowsTakeWhatLiesInsideAndCrossingsWhatTheyTouch)
{
    Desk desk;
    desk.Run(kDrawing);
    const auto count = [&] { return SelectedBefore(desk.document()).size(); };
    size_t window = 0, crossing = 0, all = 0, less = 0, none = 9;
    desk.Do(InSight({Check([&] {
                         QWidget* area = Find(QStringLiteral("drawingArea"));
                         const QPoint corner(area->width() - 3, area->height() - 3),
                             half(area->width() / 4, area->height() / 2);
                         const auto drag = [&](const QPoint& from, const QPoint& to) {
                             Drag(from, to)();
                             return count();
                         };
                         window = drag(half, corner);   // the line reaches out of it
                         Key(Qt::Key_Escape)();
                     }),
                     Until([&] { return count() == 0; }), Check([&] {
                         QWidget* area = Find(QStringLiteral("drawingArea"));
                         const QPoint corner(area->width() - 3, area->height() - 3),
                             half(area->width() / 4, area->height() / 2);
                         Drag(corner, half)();
                         crossing = count();
                     }),
                     Key(Qt::Key_Escape), Until([&] { return count() == 0; }), Check([&] {
                         Trigger(QStringLiteral("action.selectAll"))();
                         all = count();
                         // The middle of the drawing lies on the line.
                         Click(Middle(), Qt::ShiftModifier)();
                         less = count();
                     }),
                     Key(Qt::Key_Escape), Until([&] { return count() == 0; }), Check([&] { none = count(); })}));
    EXPECT_EQ(window, 1u);
    EXPECT_EQ(crossing, 2u);
    EXPECT_EQ(all, 2u);
    EXPECT_EQ(less, 1u);
    EXPECT_EQ(none, 0u);
}

TEST(DesktopDrawing, WhatWasPickedBeforeIsErasedAndComesBack)
{
    Desk desk;
    desk.Run(kDrawing);
    int before = 0, erased = 0, back = 0;
    const auto green = [] { return PixelsOf(DrawingPicture(), kGreen); };
    desk.Do(InSight({Check([&] { before = green(); }), Trigger(QStringLiteral("action.selectAll")),
                     Trigger(QStringLiteral("action.erase")), Until([&] { return EntityCount(desk.database()) == 0; }),
                     Until(IsAtCommandPrompt), Check([&] { erased = green(); }), Trigger(QStringLiteral("action.undo")),
                     Until([&] { return EntityCount(desk.database()) == 2; }), Until(IsAtCommandPrompt),
                     Check([&] { back = green(); })}));
    EXPECT_GT(before, 20);
    EXPECT_EQ(erased, 0);
    EXPECT_EQ(back, before);
}

TEST(DesktopDrawing, TheTextOfAnObjectShowsUnderTheCursor)
{
    Desk desk;
    desk.Run(L"CIRCLE 0,0 10\nLINE -10,0 10,0\n\nKXTSWZ L\n承重墙\n");
    desk.Do(InSight({Move(QPoint(5, 5)), Move(Middle()), Until([] { return QToolTip::isVisible(); }),
                     Check([] { EXPECT_EQ(QToolTip::text(), QString::fromUtf8("承重墙")); }), Move(QPoint(5, 5)),
                     Until([] { return !QToolTip::isVisible(); })}));
}

TEST(DesktopDrawing, ZoomFollowsWhatIsTyped)
{
    struct Row {
        QStringList lines;
        double factor;   // of the width of what is seen, against all of the drawing
    };
    static const Row rows[] = {
        {{QStringLiteral("ZOOM"), QStringLiteral("E")}, 1},
        {{QStringLiteral("ZOOM"), QStringLiteral("2x")}, 0.5},
        {{QStringLiteral("ZOOM"), QStringLiteral("0.5")}, 2},
        {{QStringLiteral("ZOOM"), QStringLiteral("P")}, 1},
        {{QStringLiteral("ZOOM"), QStringLiteral("C"), QStringLiteral("50,50"), QStringLiteral("4x")}, 0.25},
    };
    const auto width = [] {
        QWidget* area = Find(QStringLiteral("drawingArea"));
        QTest::mouseMove(area, QPoint(10, 40));
        const double left = Shown().first;
        QTest::mouseMove(area, QPoint(210, 40));
        return Shown().first - left;
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.lines.join(QLatin1Char(' ')).toStdString());
        Desk desk;
        desk.Run(kDrawing);
        double whole = 0, seen = 0;
        std::vector<Desk::Step> steps = {Type(QStringLiteral("ZOOM")), Type(QStringLiteral("E")),
                                         Until(IsAtCommandPrompt), Check([&] { whole = width(); })};
        for (const QString& line : row.lines)
            steps.push_back(Type(line));
        steps.insert(steps.end(), {Until(IsAtCommandPrompt), Check([&] { seen = width(); })});
        desk.Do(steps);
        EXPECT_NEAR(seen / whole, row.factor, 0.001);
    }
}
