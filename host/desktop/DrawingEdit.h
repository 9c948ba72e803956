// A change that a panel makes: one step of undo by its own name, with the document locked. While a command runs the
// change belongs to the command's step.
#pragma once
#include "ap/Documents.h"
#include "db/core/DbCore.h"

namespace KxDesktop {

class DrawingEdit {
public:
    DrawingEdit(AcApDocument& document, const wchar_t* name) : m_document(document)
    {
        if (document.isQuiescent())
            KxPlat::CoreOf(*document.database()).undo.Begin(name);
        acDocManager->lockDocument(&document, AcAp::kWrite);
    }
    ~DrawingEdit() { acDocManager->unlockDocument(&m_document); }
    DrawingEdit(const DrawingEdit&) = delete;

private:
    AcApDocument& m_document;
};

// Opens an object for as long as the guard lives.
template <class T>
class OpenObject {
public:
    OpenObject(AcDbObjectId id, AcDb::OpenMode mode) : m_status(acdbOpenObject(m_object, id, mode)) {}
    ~OpenObject()
    {
        if (m_object != nullptr)
            m_object->close();
    }
    OpenObject(const OpenObject&) = delete;
    explicit operator bool() const { return m_object != nullptr; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    Acad::ErrorStatus status() const { return m_status; }

private:
    T* m_object = nullptr;
    Acad::ErrorStatus m_status;
};

}   // namespace KxDesktop
