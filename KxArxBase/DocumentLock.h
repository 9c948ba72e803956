// Holds the document of a database locked for writing, and puts the lock that was there back on every way out.
#pragma once
#include "KxAcDb.h"

namespace KxArxBase {

class DocumentLock {
public:
    explicit DocumentLock(CKxAcDb& db) : m_db(db), m_status(db.LockAcDbDoc(AcAp::kWrite, &m_previous)) {}
    ~DocumentLock()
    {
        if (m_status == Acad::eOk)
            m_db.LockAcDbDoc(m_previous);
    }
    DocumentLock(const DocumentLock&) = delete;
    DocumentLock& operator=(const DocumentLock&) = delete;
    Acad::ErrorStatus status() const { return m_status; }

private:
    CKxAcDb& m_db;
    AcAp::DocLockMode m_previous = AcAp::kNone;
    Acad::ErrorStatus m_status;
};

}   // namespace KxArxBase
