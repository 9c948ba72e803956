// Writes an object to a filer of a program.
#pragma once

class AcDbDwgFiler;
class AcDbObject;

namespace KxPlat {

void FileOut(const AcDbObject& object, AcDbDwgFiler& filer);

}   // namespace KxPlat
