// The two looks of the window.
#pragma once
#include <cstdint>

class QApplication;

namespace KxDesktop {

enum class Theme { Dark, Light };

void ApplyTheme(QApplication& application, Theme theme);
// Behind the drawing.
uint32_t DrawingBackground(Theme theme);

}   // namespace KxDesktop
