#include "DbFiles.h"
#include "GiPick.h"
#include "KxMessages.h"
#include <memory>
#include <new>

namespace KxArxBase::Db {

namespace {

const int kDenyWrite = 32;   // share mode

Acad::ErrorStatus DoInDocument(AcApDocument* document, void* userData, FileFunction fn, const wchar_t* command)
{
    if (document == nullptr)
        return Acad::eNoDocument;
    Acad::ErrorStatus es = acDocManager->lockDocument(document, AcAp::kWrite);
    if (es != Acad::eOk)
        return es;
    if (fn != nullptr)
        es = fn(document->database(), userData);
    if (command != nullptr)
        acDocManager->sendStringToExecute(document, command, true, false, true);
    acDocManager->unlockDocument(document);
    return es;
}

Acad::ErrorStatus SaveBack(AcDbDatabase& db, const wchar_t* file, void* userData, FileFunction fn, bool backUp)
{
    if (fn != nullptr)
        fn(&db, userData);
    return db.saveAs(file, backUp, AcDb::kDHL_1024);
}

}   // namespace

Acad::ErrorStatus OpenAcDbFileDoFun(const wchar_t* file, void* userData, FileFunction fn, int inEditor,
                                    const wchar_t* command)
{
    if (inEditor != 0) {
        if (!acDocManager->isApplicationContext())
            return Acad::eInvalidContext;
        const Acad::ErrorStatus es = acDocManager->appContextOpenDocument(file);
        if (es != Acad::eOk) {
            MessageError(es, 1, 0, L"Error: ");
            return es;
        }
        return DoInDocument(Gi::GetAcApDocument(file), userData, fn, command);
    }
    const std::unique_ptr<AcDbDatabase> db(new (std::nothrow) AcDbDatabase(false, true));
    if (db == nullptr)
        return Acad::eOutOfMemory;
    const Acad::ErrorStatus es = db->readDwgFile(file, kDenyWrite);
    return es == Acad::eOk ? SaveBack(*db, file, userData, fn, true) : es;
}

Acad::ErrorStatus NewAcDbFileDoFun(const wchar_t* file, void* userData, FileFunction fn, int inEditor,
                                   const wchar_t* command)
{
    if (inEditor != 0) {
        if (!acDocManager->isApplicationContext())
            return Acad::eInvalidContext;
        const Acad::ErrorStatus es = acDocManager->appContextNewDocument(file);
        if (es != Acad::eOk) {
            MessageError(es, 1, 0, L"Error: ");
            return es;
        }
        return DoInDocument(acDocManager->mdiActiveDocument(), userData, fn, command);
    }
    const std::unique_ptr<AcDbDatabase> db(new (std::nothrow) AcDbDatabase(true, true));
    return db != nullptr ? SaveBack(*db, file, userData, fn, false) : Acad::eOutOfMemory;
}

}   // namespace KxArxBase::Db
