// Small pictures, drawn for the colours of the moment.
#pragma once
#include <QColor>
#include <QIcon>

namespace KxDesktop {

enum class Glyph { On, Off, Thawed, Frozen, Unlocked, Locked, Current, Nothing };

QIcon GlyphIcon(Glyph glyph, const QColor& ink);
QIcon ColorIcon(const QColor& color);
QIcon ProgramIcon();

}   // namespace KxDesktop
