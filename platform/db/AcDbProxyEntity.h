// An entity of a class that nobody here knows: its layer and colour can be changed, all other groups are kept as they
// are.
#pragma once
#include "AcDbEntity.h"
#include <string>
#include <string_view>

class AcDbProxyEntity : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbProxyEntity);

    const ACHAR* originalClassName() const { return m_className; }
    const ACHAR* originalDxfName() const { return m_className; }
    const ACHAR* applicationDescription() const { return L""; }
    AcRxObject* clone() const override;

    // The record's type in files.
    const std::string& dxfName() const { return m_dxfName; }
    void setDxfName(std::string_view name);

private:
    std::string m_dxfName = "ACAD_PROXY_ENTITY";
    CString m_className = L"ACAD_PROXY_ENTITY";
};
