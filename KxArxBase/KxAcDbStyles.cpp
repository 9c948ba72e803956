// Linetypes, text styles and dimension styles by name.
#include "KxAcDb.h"
#include "KxMessages.h"
#include "Opened.h"

namespace KxArxBase {

Acad::ErrorStatus CKxAcDb::LineType(const wchar_t* name, const wchar_t* file)
{
    return GetAcDb()->loadLineTypeFile(name, file);
}

Acad::ErrorStatus CKxAcDb::TextStyle(const wchar_t* name, const wchar_t* font, const wchar_t* bigFont, double height,
                                     double xScale, int fontIsFile, AcDbObjectId* id, int create)
{
    if (id != nullptr)
        id->setNull();
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es = Reported(
        [&] { return OpenRecWithEntyName(name, AcDbTextStyleTable::desc(), opened, AcDb::kForWrite, create); });
    if (es != Acad::eOk)
        return es;
    Opened<AcDbTextStyleTableRecord> style(static_cast<AcDbTextStyleTableRecord*>(opened), es);
    if (fontIsFile != 0) {
        style->setFileName(font);
        style->setBigFontFileName(bigFont);
    } else {
        const int kDefaultCharset = 1;
        const int kVariablePitch = 16;
        style->setIsShapeFile(false);
        style->setFont(font, false, false, kDefaultCharset, kVariablePitch);
        style->setBigFontFileName(L"");
    }
    style->setName(name);
    style->setTextSize(height);
    const Acad::ErrorStatus scaled = style->setXScale(xScale);
    if (id != nullptr)
        *id = style->objectId();
    return scaled;
}

Acad::ErrorStatus CKxAcDb::DimStyle(const wchar_t* name, AcDbObjectId* id, int create)
{
    if (id != nullptr)
        id->setNull();
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es =
        Reported([&] { return OpenRecWithEntyName(name, AcDbDimStyleTable::desc(), opened, AcDb::kForRead, create); });
    if (es != Acad::eOk)
        return es;
    Opened<AcDbSymbolTableRecord> style(opened, es);
    if (id != nullptr)
        *id = style->objectId();
    return style.Close();
}

}   // namespace KxArxBase
