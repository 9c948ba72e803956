// Tells what happens to documents. Whoever adds a reactor removes it before it dies.
#pragma once
#include "../rx/AcRxObject.h"
#include "AcApDocLockMode.h"

class AcApDocument;

class AcApDocManagerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);

    virtual void documentCreateStarted(AcApDocument* document) {}
    virtual void documentCreated(AcApDocument* document) {}
    virtual void documentToBeDestroyed(AcApDocument* document) {}
    virtual void documentDestroyed(const ACHAR* fileName) {}
    virtual void documentCreateCanceled(AcApDocument* document) {}
    virtual void documentLockModeWillChange(AcApDocument* document, AcAp::DocLockMode myCurrentMode,
                                            AcAp::DocLockMode myNewMode, AcAp::DocLockMode currentMode,
                                            const ACHAR* globalCmdName)
    {
    }
    virtual void documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode myPreviousMode,
                                         AcAp::DocLockMode myCurrentMode, AcAp::DocLockMode currentMode,
                                         const ACHAR* globalCmdName)
    {
    }
    virtual void documentBecameCurrent(AcApDocument* document) {}
    virtual void documentToBeActivated(AcApDocument* activating) {}
    virtual void documentActivated(AcApDocument* activated) {}
    virtual void documentToBeDeactivated(AcApDocument* deactivating) {}
    virtual void documentTitleUpdated(AcApDocument* document) {}
};
