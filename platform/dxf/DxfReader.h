// Reads a drawing file into an empty database.
#pragma once
#include "DxfReport.h"
#include <string>

class AcDbDatabase;

namespace KxPlat {

// False when the file cannot be opened, is no drawing, or ends too early; the report then says why, and the database
// may hold a part of the drawing.
bool ReadDxf(AcDbDatabase& database, const std::string& hostPath, DxfReport& report);

}   // namespace KxPlat
