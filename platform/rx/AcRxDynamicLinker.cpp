#include "AcRxDynamicLinker.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDLinkerReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject)
