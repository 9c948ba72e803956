#pragma once
#include "AcDbRay.h"
