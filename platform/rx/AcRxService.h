// A named service that a module offers to others.
#pragma once
#include "AcRxObject.h"

class AcRxService : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxService);
    AcRxService() = default;
    void addDependency() { ++m_dependencies; }
    void removeDependency() { --m_dependencies; }
    bool unloadable() const { return m_dependencies == 0; }

private:
    int m_dependencies = 0;
};

// Registers a service of the module; null when the name is taken.
AcRxService* acrxRegisterService(const ACHAR* name);
