// What a database asks of the editor around it.
#pragma once
#include "../db/AcDbHostApplicationServices.h"

namespace KxPlat {

class HostServices : public AcDbHostApplicationServices {
public:
    // Files of drawings are looked for as those of programs are: beside the drawing, on the support path.
    Acad::ErrorStatus findFile(ACHAR* found, int length, const ACHAR* name, AcDbDatabase* database,
                               FindFileHint hint) override;
};

}   // namespace KxPlat
