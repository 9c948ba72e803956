// A named entry of one of the nine symbol tables.
#pragma once
#include "AcDbObject.h"

class AcDbSymbolTableRecord : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbSymbolTableRecord);

    // A new string that the caller frees with acutDelString.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    // Refuses an empty or illegal name, one that the table already has, and the name of an xref-dependent record.
    Acad::ErrorStatus setName(const ACHAR* name);
    // Came with an xref, and is named after it: "xref|name".
    virtual bool isDependent() const { return (m_flags & 16) != 0; }
    bool isResolved() const { return (m_flags & 32) != 0; }
    bool isRenamable() const;
    // False for what every drawing keeps, such as layer 0.
    bool isPurgeable() const { return isErasable(); }

    const CString& nameText() const { return m_name; }
    // For readers of files, before the record joins its table: takes any name.
    void takeName(const CString& name) { m_name = name; }
    virtual void setDependent(bool dependent) { m_flags = int16_t(dependent ? m_flags | 48 : m_flags & ~48); }

protected:
    Acad::ErrorStatus subErase(bool erasing) override;
    // False for a record that the drawing cannot do without.
    virtual bool isErasable() const { return true; }

    CString m_name;
    int16_t m_flags = 0;   // bits of group 70
};
