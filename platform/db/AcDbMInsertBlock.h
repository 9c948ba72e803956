#pragma once
#include "AcDbBlockReference.h"
