#include "AcGiDrawable.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcGiDrawable, AcRxObject)
