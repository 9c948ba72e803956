#include "AcDbLayout.h"
#include "../rx/acutads.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbPlotSettings, AcDbObject, 0, 0, 0, PLOTSETTINGS, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbLayout, AcDbPlotSettings, 0, 0, 0, LAYOUT, AcDb)

const ClassSchema& AcDbPlotSettings::fieldSchema()
{
    using Settings = AcDbPlotSettings;
    static const ClassSchema schema(&AcDbObject::fieldSchema(), "PLOTSETTINGS", "AcDbPlotSettings",
                                    {
                                        Text(1, &Settings::m_name).always(),
                                        Text(2, &Settings::m_configuration).always(),
                                        Text(4, &Settings::m_media).always(),
                                        Text(6, &Settings::m_view).always(),
                                        Real(44, &Settings::m_paperWidth).always(),
                                        Real(45, &Settings::m_paperHeight).always(),
                                        Int16(70, &Settings::m_flags).always(),
                                        Text(7, &Settings::m_styleSheet).always(),
                                    });
    return schema;
}

const ClassSchema& AcDbLayout::fieldSchema()
{
    static const ClassSchema schema(&AcDbPlotSettings::fieldSchema(), "LAYOUT", "AcDbLayout",
                                    {
                                        Text(1, &AcDbLayout::m_layoutName).always(),
                                        Int16(70, &AcDbLayout::m_layoutFlags).always(),
                                        Int16(71, &AcDbLayout::m_tabOrder).always(),
                                        Id(330, &AcDbLayout::m_block).always(),
                                    });
    return schema;
}

Acad::ErrorStatus AcDbPlotSettings::getPlotSettingsName(const ACHAR*& name) const
{
    name = m_name;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::getPlotCfgName(const ACHAR*& name) const
{
    name = m_configuration;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::getCanonicalMediaName(const ACHAR*& name) const
{
    name = m_media;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::getCurrentStyleSheet(const ACHAR*& name) const
{
    name = m_styleSheet;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPlotSettings::getPlotPaperSize(double& width, double& height) const
{
    width = m_paperWidth;
    height = m_paperHeight;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::getLayoutName(ACHAR*& name) const
{
    name = nullptr;
    return acutNewString(m_layoutName, name);
}

Acad::ErrorStatus AcDbLayout::getLayoutName(const ACHAR*& name) const
{
    name = m_layoutName;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::setLayoutName(const ACHAR* name)
{
    if (name == nullptr || *name == 0)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_layoutName = name;
    return status;
}

void AcDbLayout::setTabOrder(int order)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_tabOrder = int16_t(order);
}

Acad::ErrorStatus AcDbLayout::setBlockTableRecordId(AcDbObjectId block)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_block = block;
    return status;
}

void AcDbLayout::build(const wchar_t* name, int tabOrder, AcDbObjectId block)
{
    m_layoutName = name;
    m_tabOrder = int16_t(tabOrder);
    m_block = block;
    m_flags = int16_t(tabOrder == 0 ? m_flags | 1024 : m_flags);
}
