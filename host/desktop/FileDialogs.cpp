#include "FileDialogs.h"
#include "QtText.h"
#include "Texts.h"
#include "win/Files.h"
#include <QFileDialog>
#include <QStringList>

using namespace KxPlat;

namespace KxDesktop {

namespace {

// "dwg;dxf" as "Drawings (*.dwg *.dxf)", in either case of the letters.
QStringList FiltersOf(const std::wstring& extensions)
{
    QStringList patterns;
    for (const QString& extension : ToQt(extensions).split(QLatin1Char(';'), Qt::SkipEmptyParts))
        patterns << QStringLiteral("*.") + extension.toLower() << QStringLiteral("*.") + extension.toUpper();
    QStringList filters;
    if (!patterns.isEmpty())
        filters << Say(Text::DrawingFiles) + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    filters << Say(Text::AllFiles);
    return filters;
}

std::wstring Run(QFileDialog& dialog, const std::wstring& initial)
{
    dialog.setObjectName(QStringLiteral("fileDialog"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    if (!initial.empty()) {
        const QString path = QString::fromStdString(HostPath(initial));
        const QFileInfo info(path);
        if (info.isAbsolute() && !path.endsWith(QLatin1Char('/')))
            dialog.setDirectory(info.absolutePath());
        dialog.selectFile(info.fileName());
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return DrivePath(dialog.selectedFiles().front().toStdString());
}

}   // namespace

bool RunFileDialog(QWidget& parent, const FileRequest& request, std::wstring& path)
{
    QFileDialog dialog(&parent, ToQt(request.title));
    dialog.setNameFilters(FiltersOf(request.extensions));
    dialog.setAcceptMode(request.forSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.forSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // The command asks itself, in the words of its own.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    path = Run(dialog, request.initial);
    return !path.empty();
}

std::wstring AskPicturePath(QWidget& parent, const QString& title, const QString& filter, const std::wstring& initial)
{
    QFileDialog dialog(&parent, title);
    dialog.setNameFilter(filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    return Run(dialog, initial);
}

std::wstring AskDrawingPath(QWidget& parent, const QString& title)
{
    QFileDialog dialog(&parent, title);
    dialog.setNameFilters(FiltersOf(L"dwg;dxf"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return Run(dialog, {});
}

}   // namespace KxDesktop
