// Texts.
#include "Finite.h"
#include "KxAcDraw.h"
#include "Opened.h"
#include <new>

namespace KxArxBase {

Acad::ErrorStatus CKxAcDraw::DrawTextW(const AcGePoint3d& position, const wchar_t* text, double height, double rotation,
                                       double widthFactor, const wchar_t* style, int color, const wchar_t* layer,
                                       const wchar_t* linetype, AcDb::TextHorzMode horizontal,
                                       AcDb::TextVertMode vertical)
{
    if (!AreFinite(position, height, rotation, widthFactor) || text == nullptr)
        return Acad::eInvalidInput;
    AcDbObjectId styleId;
    if (style != nullptr && m_db.FindRec(style, AcDbTextStyleTableRecord::desc(), styleId)) {
        const Opened<AcDbTextStyleTableRecord> record(styleId, AcDb::kForRead);
        if (record && height <= 0)
            height = record->textSize();
        if (record && widthFactor <= 0)
            widthFactor = record->xScale();
    }
    auto* entity = new (std::nothrow) AcDbText(position, text, styleId, std::fabs(height), rotation);
    if (entity == nullptr)
        return Acad::eOutOfMemory;
    entity->setDatabaseDefaults(GetAcDb());
    entity->setHorizontalMode(horizontal);
    entity->setVerticalMode(vertical);
    entity->setAlignmentPoint(position);
    if (widthFactor > 0)
        entity->setWidthFactor(widthFactor);
    if (!styleId.isNull())
        entity->setTextStyle(styleId);
    entity->adjustAlignment(GetAcDb());
    return Finish(entity, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawMText(AcDbObjectId style, const wchar_t* contents, double height, double width,
                                       const AcGePoint3d& location, const AcGeVector3d& direction,
                                       AcDbMText::AttachmentPoint attachment, AcDbMText::FlowDirection flow,
                                       double spacing, int color, const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(height, width, location, direction, spacing) || contents == nullptr || !(height > 0))
        return Acad::eInvalidInput;
    auto* entity = new (std::nothrow) AcDbMText;
    if (entity == nullptr)
        return Acad::eOutOfMemory;
    if (style.isNull() && GetAcDb() != nullptr)
        style = GetAcDb()->textstyle();
    entity->setTextStyle(style);
    entity->setContents(contents);
    entity->setTextHeight(height);
    entity->setWidth(width > 0 ? width : 0);
    entity->setLocation(location);
    entity->setDirection(direction);
    entity->setAttachment(attachment);
    entity->setFlowDirection(flow);
    entity->setLineSpacingFactor(spacing);
    return Finish(entity, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawAttributeDefinition(const AcGePoint3d& position, const wchar_t* text,
                                                     const wchar_t* tag, const wchar_t* prompt, AcDbObjectId style,
                                                     int color, const wchar_t* layer, const wchar_t* linetype)
{
    if (!IsFinite(position) || tag == nullptr || *tag == 0)
        return Acad::eInvalidInput;
    auto* entity = new (std::nothrow)
        AcDbAttributeDefinition(position, text == nullptr ? L"" : text, tag, prompt == nullptr ? L"" : prompt, style);
    if (entity == nullptr)
        return Acad::eOutOfMemory;
    const AcDbDatabase* db = GetAcDb();
    const Opened<AcDbTextStyleTableRecord> record(style, AcDb::kForRead);
    const double fixed = record ? record->textSize() : 0;
    entity->setHeight(fixed > 0 ? fixed : db != nullptr ? db->textsize() : 2.5);
    return Finish(entity, color, layer, linetype);
}

}   // namespace KxArxBase
