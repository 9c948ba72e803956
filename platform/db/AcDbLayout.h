// A sheet, or the model's own page: a name on a tab, plot settings, and the block that holds its entities.
#pragma once
#include "AcDbObject.h"

// Plot settings: their groups are kept as the file has them, save the names that callers ask for.
class AcDbPlotSettings : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbPlotSettings);

    Acad::ErrorStatus getPlotSettingsName(const ACHAR*& name) const;
    Acad::ErrorStatus getPlotCfgName(const ACHAR*& name) const;
    Acad::ErrorStatus getCanonicalMediaName(const ACHAR*& name) const;
    Acad::ErrorStatus getCurrentStyleSheet(const ACHAR*& name) const;
    // Millimetres.
    Acad::ErrorStatus getPlotPaperSize(double& width, double& height) const;
    bool modelType() const { return (m_flags & 1024) != 0; }

protected:
    CString m_name;
    CString m_configuration;
    CString m_media;
    CString m_view;
    CString m_styleSheet;
    double m_paperWidth = 297;
    double m_paperHeight = 210;
    int16_t m_flags = 688;
};

class AcDbLayout : public AcDbPlotSettings {
public:
    ACDB_DECLARE_MEMBERS(AcDbLayout);

    Acad::ErrorStatus getLayoutName(ACHAR*& name) const;
    Acad::ErrorStatus getLayoutName(const ACHAR*& name) const;
    Acad::ErrorStatus setLayoutName(const ACHAR* name);
    int getTabOrder() const { return m_tabOrder; }
    void setTabOrder(int order);
    AcDbObjectId getBlockTableRecordId() const { return m_block; }
    virtual Acad::ErrorStatus setBlockTableRecordId(AcDbObjectId block);

    // For a layout not yet in a database.
    void build(const wchar_t* name, int tabOrder, AcDbObjectId block);

private:
    CString m_layoutName;
    AcDbObjectId m_block;
    int16_t m_layoutFlags = 1;
    int16_t m_tabOrder = 0;
};
