#pragma once
#include "AcDb2dPolyline.h"
