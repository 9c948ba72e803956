// Opens an object for as long as the guard lives and closes it on every way out.
#pragma once
#include "KxHost.h"

namespace KxArxBase {

template <class T>
class Opened {
public:
    Opened(AcDbObjectId id, AcDb::OpenMode mode) : m_status(acdbOpenObject(m_object, id, mode)) {}
    // Takes over an object that a call of the host has opened, or null with the status of that call.
    Opened(T* object, Acad::ErrorStatus status) : m_object(object), m_status(status) {}
    ~Opened() { Close(); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    Acad::ErrorStatus status() const { return m_status; }
    explicit operator bool() const { return m_object != nullptr; }
    T* get() const { return m_object; }
    T* operator->() const { return m_object; }
    // Closes early; the status is that of the closing.
    Acad::ErrorStatus Close()
    {
        if (m_object == nullptr)
            return m_status;
        T* object = m_object;
        m_object = nullptr;
        return object->close();
    }
    T* Release()
    {
        T* object = m_object;
        m_object = nullptr;
        return object;
    }

private:
    T* m_object = nullptr;
    Acad::ErrorStatus m_status;
};

}   // namespace KxArxBase
