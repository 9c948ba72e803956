// The questions for names of files.
#pragma once
#include "ui/HostUi.h"
#include <QString>

class QWidget;

namespace KxDesktop {

// False when the user cancels; the path is in drive form.
bool RunFileDialog(QWidget& parent, const KxPlat::FileRequest& request, std::wstring& path);
// Empty when the user cancels. `filter` as the toolkit writes it.
std::wstring AskPicturePath(QWidget& parent, const QString& title, const QString& filter, const std::wstring& initial);
std::wstring AskDrawingPath(QWidget& parent, const QString& title);

}   // namespace KxDesktop
