#include "KxReferenceFiler.h"

namespace KxArxBase {

namespace {

const wchar_t kClassName[] = L"CKxReferenceFiler";
const wchar_t kParentName[] = L"AcDbDwgFiler";

AcRxObject* NewFiler()
{
    return new CKxReferenceFiler;
}

Acad::ErrorStatus Keep(AcDbObjectIdArray& ids, const AcDbObjectId& id)
{
    if (!id.isNull())
        ids.append(id);
    return Acad::eOk;
}

// The host forgets the class when the library goes.
class ClassLife {
public:
    ~ClassLife()
    {
        deleteAcRxClass(CKxReferenceFiler::gpDesc);
        CKxReferenceFiler::gpDesc = nullptr;
    }
} g_classLife;

}   // namespace

AcRxClass* CKxReferenceFiler::gpDesc = nullptr;

AcRxClass* CKxReferenceFiler::desc()
{
    if (gpDesc == nullptr)
        rxInit();
    return gpDesc;
}

AcRxClass* CKxReferenceFiler::isA() const
{
    return desc();
}

void CKxReferenceFiler::rxInit()
{
    AcRxDictionary* classes = AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_CLASS_DICTIONARY));
    AcRxObject* known = classes == nullptr ? nullptr : classes->at(kClassName);
    if (known != nullptr && known == gpDesc)
        return;
    if (known != nullptr)
        acrx_abort(L"Class mismatch");
    AcDbDwgFiler::desc();   // the parent is found by its name
    gpDesc = newAcRxClass(kClassName, kParentName, 0, 0, 0, &NewFiler);
}

CKxReferenceFiler::CKxReferenceFiler()
    : m_hardPointers(0, 8), m_softPointers(0, 8), m_hardOwnerships(0, 8), m_softOwnerships(0, 8)
{
}

void CKxReferenceFiler::Reset()
{
    for (AcDbObjectIdArray* ids : {&m_hardPointers, &m_softPointers, &m_hardOwnerships, &m_softOwnerships})
        ids->setLogicalLength(0);
}

Acad::ErrorStatus CKxReferenceFiler::writeHardOwnershipId(const AcDbHardOwnershipId& id)
{
    return Keep(m_hardOwnerships, id);
}

Acad::ErrorStatus CKxReferenceFiler::writeSoftOwnershipId(const AcDbSoftOwnershipId& id)
{
    return Keep(m_softOwnerships, id);
}

Acad::ErrorStatus CKxReferenceFiler::writeHardPointerId(const AcDbHardPointerId& id)
{
    return Keep(m_hardPointers, id);
}

Acad::ErrorStatus CKxReferenceFiler::writeSoftPointerId(const AcDbSoftPointerId& id)
{
    return Keep(m_softPointers, id);
}

}   // namespace KxArxBase
