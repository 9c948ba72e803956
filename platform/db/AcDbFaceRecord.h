#pragma once
#include "AcDbVertex.h"
