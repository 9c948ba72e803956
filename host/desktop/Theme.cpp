#include "Theme.h"
#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace KxDesktop {

namespace {

struct Colors {
    const char *window, *base, *alternate, *text, *faint, *button, *line, *highlight, *highlighted, *field;
    uint32_t drawing;
};

const Colors g_dark = {"#2b2f36", "#23262c", "#282c33", "#dfe3e8", "#8b939e", "#363b44",
                       "#15171a", "#2f6fb3", "#ffffff", "#1d2025", 0x1E2228};
const Colors g_light = {"#eef0f3", "#ffffff", "#f6f8fa", "#1f2429", "#7c858f", "#f8f9fb",
                        "#c9ced6", "#2f7bd0", "#ffffff", "#ffffff", 0xFFFFFF};

const Colors& ColorsOf(Theme theme)
{
    return theme == Theme::Dark ? g_dark : g_light;
}

QPalette PaletteOf(const Colors& colors)
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(colors.window));
    palette.setColor(QPalette::WindowText, QColor(colors.text));
    palette.setColor(QPalette::Base, QColor(colors.base));
    palette.setColor(QPalette::AlternateBase, QColor(colors.alternate));
    palette.setColor(QPalette::Text, QColor(colors.text));
    palette.setColor(QPalette::PlaceholderText, QColor(colors.faint));
    palette.setColor(QPalette::Button, QColor(colors.button));
    palette.setColor(QPalette::ButtonText, QColor(colors.text));
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(colors.highlight));
    palette.setColor(QPalette::HighlightedText, QColor(colors.highlighted));
    palette.setColor(QPalette::ToolTipBase, QColor(colors.base));
    palette.setColor(QPalette::ToolTipText, QColor(colors.text));
    palette.setColor(QPalette::Link, QColor(colors.highlight));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(colors.faint));
    return palette;
}

// What palettes do not say: lines between parts, the tabs, the command line, the buttons of options.
const char kStyle[] =
    "QMainWindow::separator { background: %line; width: 3px; height: 3px; }"
    "QDockWidget::title { background: %button; padding: 4px 8px; }"
    "QMenuBar { background: %window; }"
    "QMenuBar::item { padding: 4px 9px; }"
    "QMenuBar::item:selected { background: %highlight; color: %highlighted; }"
    "QStatusBar { background: %window; border-top: 1px solid %line; }"
    "QStatusBar::item { border: none; }"
    "QToolTip { color: %text; background: %base; border: 1px solid %faint; padding: 3px; }"
    "QTabBar#documentTabs { background: %window; }"
    "QTabBar#documentTabs::tab { background: %window; color: %faint; padding: 5px 14px; border: none;"
    " border-top: 2px solid transparent; }"
    "QTabBar#documentTabs::tab:selected { background: %base; color: %text; border-top: 2px solid %highlight; }"
    "QTabBar#documentTabs::tab:hover { color: %text; }"
    "QPlainTextEdit#commandOutput { background: %field; color: %text; padding: 2px 6px; }"
    "QWidget#commandBar { background: %field; border-top: 1px solid %line; }"
    "QWidget#commandBar QLineEdit { background: %field; }"
    "QLabel#commandPrompt { color: %text; }"
    "QLabel#propertyTitle { font-weight: bold; padding: 3px; }"
    "QPushButton[keyword=\"true\"] { color: %highlight; background: %base; border: 1px solid %highlight;"
    " border-radius: 3px; padding: 1px 8px; }"
    "QPushButton[keyword=\"true\"]:hover { color: %highlighted; background: %highlight; }"
    "QTreeWidget { border: 1px solid %line; }"
    "QTreeWidget::item { padding: 2px 1px; }"
    "QHeaderView::section { background: %button; padding: 3px 5px; border: none; border-right: 1px solid %line;"
    " border-bottom: 1px solid %line; }";

}   // namespace

void ApplyTheme(QApplication& application, Theme theme)
{
    const Colors& colors = ColorsOf(theme);
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(PaletteOf(colors));
    QString style = QString::fromLatin1(kStyle);
    // The longer name first: one begins with the other.
    const std::pair<const char*, const char*> names[] = {
        {"%highlighted", colors.highlighted},
        {"%highlight", colors.highlight},
        {"%window", colors.window},
        {"%button", colors.button},
        {"%field", colors.field},
        {"%faint", colors.faint},
        {"%base", colors.base},
        {"%line", colors.line},
        {"%text", colors.text},
    };
    for (const auto& [name, value] : names)
        style.replace(QLatin1String(name), QLatin1String(value));
    application.setStyleSheet(style);
}

uint32_t DrawingBackground(Theme theme)
{
    return ColorsOf(theme).drawing;
}

}   // namespace KxDesktop
