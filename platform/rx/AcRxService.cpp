#include "AcRxService.h"
#include "AcRxDictionary.h"
#include <memory>

ACRX_CONS_DEFINE_MEMBERS(AcRxService, AcRxObject, 0)

namespace {

// Services live as long as the process, since whoever asked for one may keep it.
AcRxDictionary& Owned()
{
    static std::unique_ptr<AcRxDictionary> owned(KxPlat::NewDictionary(true, false));
    return *owned;
}

}   // namespace

AcRxService* acrxRegisterService(const ACHAR* name)
{
    AcRxDictionary* services = acrxServiceDictionary;
    if (name == nullptr || services == nullptr || services->has(name))
        return nullptr;
    auto* service = new AcRxService;
    Adesk::UInt32 id = 0;
    Owned().atPut(name, service, id);
    services->atPut(name, service, id);
    return service;
}
