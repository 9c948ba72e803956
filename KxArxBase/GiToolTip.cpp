#include "GiToolTip.h"
#include "KxAcDb.h"
#include "Opened.h"
#include "ResBufChain.h"

namespace KxArxBase::Gi {

namespace {

const wchar_t* const g_application = L"KxToolTip";
const short kApplication = 1001;
const short kText = 1000;
const int kPiece = 125;   // characters; a text of extended data holds 255 bytes in the widest code page

Acad::ErrorStatus RegisterApplication(AcDbDatabase* database)
{
    CKxAcDb db(database, 0);
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es =
        db.OpenRecWithEntyName(g_application, AcDbRegAppTable::desc(), opened, AcDb::kForRead, 1);
    if (es == Acad::eOk)
        opened->close();
    return es;
}

bool BuildData(const CString& text, ResBufChain& chain)
{
    if (!chain.Append(acutBuildList(kApplication, g_application, 0)))
        return false;
    for (int at = 0; at < text.GetLength(); at += kPiece) {
        if (!chain.Append(acutBuildList(kText, text.Mid(at, kPiece).GetString(), 0)))
            return false;
    }
    return true;
}

}   // namespace

Acad::ErrorStatus AddToolTipDataToObject(const AcDbObjectIdArray& ids, const wchar_t* text)
{
    ResBufChain chain;
    if (!BuildData(text, chain))
        return Acad::eOutOfMemory;
    Acad::ErrorStatus result = Acad::eOk;
    for (const AcDbObjectId& id : ids) {
        Opened<AcDbObject> object(id, AcDb::kForWrite);
        Acad::ErrorStatus es = object.status();
        if (object)
            es = RegisterApplication(object->database());
        if (es == Acad::eOk)
            es = object->setXData(chain.get());
        if (es != Acad::eOk)
            result = es;
    }
    return result;
}

Acad::ErrorStatus RemoveToolTipData(const AcDbObjectIdArray& ids)
{
    return AddToolTipDataToObject(ids, L"");   // an application's name alone removes its data
}

Acad::ErrorStatus GetToolTipData(AcDbObjectId id, CString& text)
{
    const Opened<AcDbObject> object(id, AcDb::kForRead);
    if (!object)
        return object.status();
    const ResBufChain chain(object->xData(g_application));
    if (chain.get() == nullptr)
        return Acad::eKeyNotFound;
    CString joined;
    for (const resbuf* piece = chain.get()->rbnext; piece != nullptr; piece = piece->rbnext) {
        if (piece->restype == kText)
            joined += piece->resval.rstring;
    }
    text = joined;
    return Acad::eOk;
}

}   // namespace KxArxBase::Gi
