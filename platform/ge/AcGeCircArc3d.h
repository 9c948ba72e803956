#pragma once
#include "AcGeEllipArc3d.h"
