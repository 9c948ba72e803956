#pragma once
#include "AcGiWorldDraw.h"
