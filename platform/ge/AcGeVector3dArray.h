#pragma once
#include "AcGePoint3dArray.h"
