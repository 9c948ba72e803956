#pragma once
#include "AcDbRasterImage.h"
