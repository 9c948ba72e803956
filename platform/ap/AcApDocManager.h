// The open documents, which of them is current, and their locks.
#pragma once
#include "../win/KxWinTypes.h"
#include "AcApDocManagerReactor.h"
#include "AcApDocument.h"

class AcApDocManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);

    AcApDocument* curDocument() const;         // of the code that runs now
    AcApDocument* mdiActiveDocument() const;   // of the user's input
    // Null for a database that is no document's.
    AcApDocument* document(const AcDbDatabase* database) const;
    AcApDocumentIterator* newAcApDocumentIterator();
    int documentCount() const;
    bool isApplicationContext() const;   // no command runs

    // Locks pile up: each one is taken back by one unlocking. The end of a command takes back what it left.
    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                   const ACHAR* globalCmdName = nullptr, const ACHAR* localCmdName = nullptr,
                                   bool prompt = true);
    Acad::ErrorStatus unlockDocument(AcApDocument* document);

    Acad::ErrorStatus setCurDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kNone,
                                     bool activate = false);
    Acad::ErrorStatus activateDocument(AcApDocument* document, bool passScript = false);

    // Queues text for the document's command line; it is taken once the running command has ended or asks for input.
    Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text, bool activate = true,
                                          bool wrapUpInactiveDoc = false, bool echo = true);

    // eInvalidContext while a command runs; the drawing that comes up is the active one.
    Acad::ErrorStatus appContextNewDocument(const ACHAR* templateName);
    Acad::ErrorStatus appContextOpenDocument(const ACHAR* fileName);
    Acad::ErrorStatus newDocument();
    Acad::ErrorStatus openDocument();   // asks for the file
    // Without saving. eTargetDocNotQuiescent while a command runs in it.
    Acad::ErrorStatus closeDocument(AcApDocument* document);

    void addReactor(AcApDocManagerReactor* reactor);
    void removeReactor(AcApDocManagerReactor* reactor);

    // Where dialogs are looked for first, above the host's own resources.
    void pushResourceHandle(HINSTANCE resources);
    void pushAcadResourceHandle();   // the host's own
    void popResourceHandle();

private:
    friend AcApDocManager* acDocManagerPtr();
    AcApDocManager() = default;
};

AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()
#define curDoc() (acDocManagerPtr()->curDocument())
