#pragma once
#include "AcGeLine3d.h"
