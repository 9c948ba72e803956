// An object of a class that nobody here knows: its groups are kept as they are.
#pragma once
#include "AcDbObject.h"
#include <string>
#include <string_view>

class AcDbProxyObject : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbProxyObject);

    const ACHAR* originalClassName() const { return m_className; }
    const ACHAR* originalDxfName() const { return m_className; }
    const ACHAR* applicationDescription() const { return L""; }
    AcRxObject* clone() const override;

    // The record's type in files.
    const std::string& dxfName() const { return m_dxfName; }
    void setDxfName(std::string_view name);

private:
    std::string m_dxfName = "ACAD_PROXY_OBJECT";
    CString m_className = L"ACAD_PROXY_OBJECT";
};
