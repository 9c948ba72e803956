// Loads and unloads modules. The one linker stands in the system registry as "DynamicLinker".
#pragma once
#include "AcRxDictionary.h"

class AcRxDLinkerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDLinkerReactor);
    virtual void rxAppWillBeLoaded(const ACHAR* moduleName) {}
    virtual void rxAppLoaded(const ACHAR* moduleName) {}
    virtual void rxAppLoadAborted(const ACHAR* moduleName) {}
    virtual void rxAppWillBeUnloaded(const ACHAR* moduleName) {}
    virtual void rxAppUnloaded(const ACHAR* moduleName) {}
    virtual void rxAppUnloadAborted(const ACHAR* moduleName) {}
};

class AcRxDynamicLinker : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);

    // A module by its path, or by a file name that is looked for on the support path. Loading what is loaded succeeds.
    virtual bool loadModule(const ACHAR* fileName, bool printit = true, bool asCmd = false) = 0;
    virtual bool unloadModule(const ACHAR* fileName, bool asCmd = false) = 0;

    // `appId` is what the module received with kInitAppMsg. A new module is locked: it stays until the host ends.
    virtual bool unlockApplication(void* appId) const = 0;
    virtual bool lockApplication(void* appId) const = 0;
    virtual bool isApplicationLocked(const ACHAR* modulePath) const = 0;

    virtual bool registerAppMDIAware(void* appId) const = 0;
    virtual bool registerAppNotMDIAware(void* appId) const = 0;
    virtual bool isAppMDIAware(const ACHAR* modulePath) const = 0;

    // The address of an exported name of a loaded module, or null.
    virtual void* getSymbolAddress(void* appId, const ACHAR* symbol) const = 0;

    virtual void addReactor(AcRxDLinkerReactor* reactor) = 0;
    virtual void removeReactor(AcRxDLinkerReactor* reactor) = 0;
};

#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))
