#pragma once
#include "AcGeCircArc2d.h"
