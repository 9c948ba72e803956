// What a database asks of the program around it: the working database, files on the search path, progress.
#pragma once
#include "../rx/acadstrc.h"
#include "../rx/AdeskTypes.h"

class AcDbDatabase;

class AcDbHostApplicationServices {
public:
    enum FindFileHint {
        kDefault = 0,
        kFontFile,
        kCompiledShapeFile,
        kTrueTypeFontFile,
        kEmbeddedImageFile,
        kXRefDrawing,
        kPatternFile,
        kARXApplication,
        kFontMapFile
    };

    virtual ~AcDbHostApplicationServices() = default;

    AcDbDatabase* workingDatabase() const { return m_working; }
    void setWorkingDatabase(AcDbDatabase* database) { m_working = database; }

    // Puts the full path into `found`, of `length` characters; eFileNotFound when the name is nowhere on the path.
    virtual Acad::ErrorStatus findFile(ACHAR* found, int length, const ACHAR* name, AcDbDatabase* database = nullptr,
                                       FindFileHint hint = kDefault);
    virtual const ACHAR* program() { return L"kxcad"; }

private:
    AcDbDatabase* m_working = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
// Null puts the plain one back, which finds files by their path only.
Acad::ErrorStatus acdbSetHostApplicationServices(AcDbHostApplicationServices* services);
