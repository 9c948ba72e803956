#include "HeaderVars.h"

namespace KxPlat {

const HeaderVar* HeaderVars::Find(std::string_view name) const
{
    auto place = m_index.find(std::string(name));
    return place == m_index.end() ? nullptr : &m_vars[place->second];
}

HeaderVar& HeaderVars::Get(std::string_view name)
{
    auto [place, isNew] = m_index.try_emplace(std::string(name), m_vars.size());
    if (isNew)
        m_vars.push_back({std::string(name), {}});
    return m_vars[place->second];
}

void HeaderVars::Remove(std::string_view name)
{
    auto place = m_index.find(std::string(name));
    if (place == m_index.end())
        return;
    m_vars.erase(m_vars.begin() + std::ptrdiff_t(place->second));
    m_index.clear();
    for (size_t i = 0; i < m_vars.size(); ++i)
        m_index.emplace(m_vars[i].name, i);
}

void HeaderVars::Clear()
{
    m_vars.clear();
    m_index.clear();
}

double HeaderVars::Real(std::string_view name, double byDefault) const
{
    const HeaderVar* var = Find(name);
    return var == nullptr || var->groups.empty() ? byDefault : var->groups[0].real();
}

int64_t HeaderVars::Integer(std::string_view name, int64_t byDefault) const
{
    const HeaderVar* var = Find(name);
    return var == nullptr || var->groups.empty() ? byDefault : var->groups[0].integer();
}

CString HeaderVars::Text(std::string_view name, const wchar_t* byDefault) const
{
    const HeaderVar* var = Find(name);
    return var == nullptr || var->groups.empty() ? CString(byDefault) : var->groups[0].text();
}

AcGePoint3d HeaderVars::Point(std::string_view name) const
{
    AcGePoint3d point;
    if (const HeaderVar* var = Find(name))
        for (const GroupValue& group : var->groups) {
            if (group.code == 10)
                point.x = group.real();
            else if (group.code == 20)
                point.y = group.real();
            else if (group.code == 30)
                point.z = group.real();
        }
    return point;
}

// The variable's one group; a code that the file already uses for it stays.
GroupValue& HeaderVars::Only(std::string_view name, int code)
{
    HeaderVar& var = Get(name);
    if (var.groups.empty()) {
        var.groups.emplace_back();
        var.groups[0].code = int16_t(code);
    }
    return var.groups[0];
}

void HeaderVars::SetReal(std::string_view name, int code, double value)
{
    Only(name, code).value = value;
}

void HeaderVars::SetInteger(std::string_view name, int code, int64_t value)
{
    Only(name, code).value = value;
}

void HeaderVars::SetText(std::string_view name, int code, const CString& value)
{
    Only(name, code).value = value;
}

void HeaderVars::SetId(std::string_view name, int code, AcDbObjectId value)
{
    Only(name, code).value = value;
}

void HeaderVars::SetPoint(std::string_view name, const AcGePoint3d& value)
{
    HeaderVar& var = Get(name);
    const bool isFlat = var.groups.size() == 2;   // limits and the like have no Z
    var.groups.clear();
    const double coordinates[] = {value.x, value.y, value.z};
    for (int i = 0; i < (isFlat ? 2 : 3); ++i) {
        var.groups.emplace_back();
        var.groups.back().code = int16_t(10 + 10 * i);
        var.groups.back().value = coordinates[i];
    }
}

}   // namespace KxPlat
