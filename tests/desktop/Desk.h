// A desktop session under test, and the hands of its user. Steps run while the window waits for input, also within
// dialogs; a step that answers false is tried again until it has its way or the patience ends.
#pragma once
#include "ap/Documents.h"
#include "db/AcDbObjectId.h"
#include <functional>
#include <gtest/gtest.h>
#include <QImage>
#include <QWidget>
#include <string>
#include <vector>

class QAction;
class QDialog;

namespace KxTest {

class Desk {
public:
    using Step = std::function<bool()>;

    // A new drawing, or a file opened, becomes the current one.
    Desk();
    explicit Desk(const std::wstring& path);

    // Runs the steps one after the other, and the session meanwhile.
    void Do(const std::vector<Step>& steps);
    // What a command line would do, before anything is shown.
    void Run(const std::wstring& lines);

    AcDbDatabase& database() const;
    AcApDocument& document() const { return *m_document; }

private:
    AcApDocument* m_document = nullptr;
};

// Steps.
Desk::Step Type(const QString& line);                                     // into the command line, with Enter
Desk::Step Key(int key);                                                  // to whatever has the focus
Desk::Step Click(const QPoint& place, Qt::KeyboardModifiers keys = {});   // in the drawing
Desk::Step Move(const QPoint& place);
Desk::Step Drag(const QPoint& from, const QPoint& to);
Desk::Step Trigger(const QString& action);      // clicks the item of a menu
Desk::Step Check(std::function<void()> look);   // once
Desk::Step Until(std::function<bool()> isSo);   // waits for it

std::wstring Sample(const char* name);   // a drawing of samples/
QWidget* Find(const QString& name);      // a visible widget; null when there is none
template <class W>
W* FindAs(const QString& name)
{
    return qobject_cast<W*>(Find(name));
}
QAction* FindAction(const QString& name);
QDialog* OpenDialog();   // the dialog on top; null for none
QString Output();        // all that the command line printed
QString PromptText();
bool IsAtCommandPrompt();
// The drawing as it stands on the screen, without the pointer.
QImage DrawingPicture();
int PixelsOf(const QImage& image, QRgb color);
QPoint Middle();   // of the drawing area
size_t EntityCount(AcDbDatabase& database);
std::vector<AcDbObjectId> SelectedBefore(AcApDocument& document);

}   // namespace KxTest
