// The HEADER section: named variables in file order, each one or more groups. System variables, defaults of new
// objects and the file writer read and change them here.
#pragma once
#include "../../ge/AcGePoint3d.h"
#include "GroupValue.h"
#include <string>
#include <string_view>
#include <unordered_map>

namespace KxPlat {

struct HeaderVar {
    std::string name;   // "$CLAYER"
    GroupList groups;
};

class HeaderVars {
public:
    const std::vector<HeaderVar>& All() const { return m_vars; }
    const HeaderVar* Find(std::string_view name) const;
    // The variable of this name; added at the end when missing.
    HeaderVar& Get(std::string_view name);
    void Remove(std::string_view name);
    void Clear();

    double Real(std::string_view name, double byDefault = 0) const;
    int64_t Integer(std::string_view name, int64_t byDefault = 0) const;
    CString Text(std::string_view name, const wchar_t* byDefault = L"") const;
    AcGePoint3d Point(std::string_view name) const;

    void SetReal(std::string_view name, int code, double value);
    void SetInteger(std::string_view name, int code, int64_t value);
    void SetText(std::string_view name, int code, const CString& value);
    void SetPoint(std::string_view name, const AcGePoint3d& value);
    void SetId(std::string_view name, int code, AcDbObjectId value);

private:
    GroupValue& Only(std::string_view name, int code);

    std::vector<HeaderVar> m_vars;
    std::unordered_map<std::string, size_t> m_index;
};

}   // namespace KxPlat
