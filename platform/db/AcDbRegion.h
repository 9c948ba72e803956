#pragma once
#include "AcDbBodies.h"
