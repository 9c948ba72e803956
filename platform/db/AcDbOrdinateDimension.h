#pragma once
#include "AcDbDimension.h"
