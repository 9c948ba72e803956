// An object that only stands for its place in a dictionary, such as a plot style's name.
#pragma once
#include "AcDbObject.h"

class AcDbPlaceHolder : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbPlaceHolder);
};
