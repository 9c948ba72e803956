#pragma once
#include "AcDbTrace.h"
