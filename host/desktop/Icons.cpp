#include "Icons.h"
#include <cmath>
#include <QPainter>
#include <QPainterPath>

namespace KxDesktop {

namespace {

constexpr int kSize = 32;   // drawn at twice the size that lists show

const QColor kLight(244, 190, 50), kCold(80, 165, 235), kGold(222, 165, 60);

void DrawBulb(QPainter& painter, const QColor& color, bool isLit)
{
    painter.setPen(QPen(color, 2));
    painter.setBrush(isLit ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRectF(8, 4, 16, 16));
    painter.setBrush(Qt::NoBrush);
    painter.drawLine(QPointF(12, 23), QPointF(20, 23));
    painter.drawLine(QPointF(13, 27), QPointF(19, 27));
}

void DrawStar(QPainter& painter, const QColor& color, int rays, double from, double to)
{
    painter.setPen(QPen(color, 2.4, Qt::SolidLine, Qt::RoundCap));
    for (int ray = 0; ray < rays; ++ray) {
        const double angle = 2 * M_PI * ray / rays;
        const QPointF way(std::cos(angle), std::sin(angle));
        painter.drawLine(QPointF(16, 16) + way * from, QPointF(16, 16) + way * to);
    }
}

void DrawSun(QPainter& painter, const QColor& color)
{
    DrawStar(painter, color, 8, 10, 13);
    painter.setBrush(color);
    painter.drawEllipse(QPointF(16, 16), 6, 6);
}

void DrawSnow(QPainter& painter)
{
    DrawStar(painter, kCold, 6, 0, 12);
    painter.setPen(QPen(kCold, 2));
    for (int ray = 0; ray < 6; ++ray) {
        const double angle = M_PI * ray / 3;
        const QPointF at = QPointF(16, 16) + 8 * QPointF(std::cos(angle), std::sin(angle));
        for (double side : {-0.7, 0.7})
            painter.drawLine(at, at + 4 * QPointF(std::cos(angle + side), std::sin(angle + side)));
    }
}

void DrawPadlock(QPainter& painter, const QColor& color, bool isClosed)
{
    painter.setPen(QPen(color, 2.6));
    QPainterPath bow;
    bow.moveTo(11, 15);
    bow.lineTo(11, 11);
    bow.arcTo(QRectF(11, 5, 10, 11), 180, -180);
    bow.lineTo(21, isClosed ? 15 : 11);
    if (!isClosed)
        painter.translate(4, 0);
    painter.drawPath(bow);
    if (!isClosed)
        painter.translate(-4, 0);
    painter.setBrush(isClosed ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(QRectF(7, 15, 18, 13), 2, 2);
}

void DrawCheck(QPainter& painter)
{
    painter.setPen(QPen(QColor(60, 175, 95), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({QPointF(6, 17), QPointF(13, 24), QPointF(26, 8)}));
}

}   // namespace

QIcon GlyphIcon(Glyph glyph, const QColor& ink)
{
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor faint = ink;
    faint.setAlpha(110);
    switch (glyph) {
    case Glyph::On:
        DrawBulb(painter, kLight, true);
        break;
    case Glyph::Off:
        DrawBulb(painter, faint, false);
        break;
    case Glyph::Thawed:
        DrawSun(painter, kLight);
        break;
    case Glyph::Frozen:
        DrawSnow(painter);
        break;
    case Glyph::Unlocked:
        DrawPadlock(painter, faint, false);
        break;
    case Glyph::Locked:
        DrawPadlock(painter, kGold, true);
        break;
    case Glyph::Current:
        DrawCheck(painter);
        break;
    case Glyph::Nothing:
        break;
    }
    return QIcon(pixmap);
}

QIcon ColorIcon(const QColor& color)
{
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(QPen(QColor(128, 128, 128), 2));
    painter.setBrush(color);
    painter.drawRect(QRectF(4, 4, 24, 24));
    return QIcon(pixmap);
}

QIcon ProgramIcon()
{
    QPixmap pixmap(64, 64);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(34, 92, 150));
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 10, 10);
    painter.setPen(QPen(Qt::white, 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(18, 12), QPointF(18, 52));
    painter.drawLine(QPointF(18, 34), QPointF(44, 12));
    painter.setPen(QPen(kLight, 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(26, 28), QPointF(48, 52));
    return QIcon(pixmap);
}

}   // namespace KxDesktop
