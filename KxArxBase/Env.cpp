#include "Env.h"

namespace KxArxBase::Env {

namespace {

Acad::ErrorStatus StatusOf(bool succeeded)
{
    return succeeded ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus Set(const wchar_t* name, const resbuf& value)
{
    return StatusOf(acedSetVar(name, &value) == RTNORM);
}

resbuf ValueOf(short type)
{
    resbuf value = {};
    value.restype = type;
    return value;
}

// A variable's value, freed at the end.
class Variable {
public:
    explicit Variable(const wchar_t* name) { m_answer = acedGetVar(name, &m_value); }
    ~Variable()
    {
        if (m_answer == RTNORM && m_value.restype == RTSTR)
            acutDelString(m_value.resval.rstring);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    bool Is(short type) const { return m_answer == RTNORM && m_value.restype == type; }
    const ads_u_val& value() const { return m_value.resval; }

private:
    resbuf m_value = {};
    int m_answer;
};

}   // namespace

Acad::ErrorStatus SetCadSysVar(const wchar_t* name, int number)
{
    resbuf value = ValueOf(RTSHORT);
    value.resval.rint = short(number);
    return number == value.resval.rint ? Set(name, value) : Acad::eInvalidInput;
}

Acad::ErrorStatus SetCadSysVar(const wchar_t* name, double number)
{
    resbuf value = ValueOf(RTREAL);
    value.resval.rreal = number;
    return Set(name, value);
}

Acad::ErrorStatus SetCadSysVar(const wchar_t* name, const wchar_t* text)
{
    CString copy = text;
    resbuf value = ValueOf(RTSTR);
    value.resval.rstring = copy.GetBuffer();
    return Set(name, value);
}

Acad::ErrorStatus SetCadSysVar(const wchar_t* name, AcGePoint3d point)
{
    resbuf value = ValueOf(RT3DPOINT);
    value.resval.rpoint[X] = point.x;
    value.resval.rpoint[Y] = point.y;
    value.resval.rpoint[Z] = point.z;
    return Set(name, value);
}

Acad::ErrorStatus SetCadSysVar(const wchar_t* name, AcGePoint2d point)
{
    resbuf value = ValueOf(RTPOINT);
    value.resval.rpoint[X] = point.x;
    value.resval.rpoint[Y] = point.y;
    return Set(name, value);
}

Acad::ErrorStatus GetCadSysVar(const wchar_t* name, int& number)
{
    const Variable variable(name);
    if (variable.Is(RTSHORT))
        number = variable.value().rint;
    return StatusOf(variable.Is(RTSHORT));
}

Acad::ErrorStatus GetCadSysVar(const wchar_t* name, double& number)
{
    const Variable variable(name);
    if (variable.Is(RTREAL))
        number = variable.value().rreal;
    return StatusOf(variable.Is(RTREAL));
}

Acad::ErrorStatus GetCadSysVar(const wchar_t* name, CString& text)
{
    const Variable variable(name);
    if (variable.Is(RTSTR))
        text = variable.value().rstring;
    return StatusOf(variable.Is(RTSTR));
}

Acad::ErrorStatus GetCadSysVar(const wchar_t* name, AcGePoint3d& point)
{
    const Variable variable(name);
    const ads_point& read = variable.value().rpoint;
    if (variable.Is(RT3DPOINT))
        point.set(read[X], read[Y], read[Z]);
    return StatusOf(variable.Is(RT3DPOINT));
}

Acad::ErrorStatus GetCadSysVar(const wchar_t* name, AcGePoint2d& point)
{
    const Variable variable(name);
    const ads_point& read = variable.value().rpoint;
    if (variable.Is(RTPOINT))
        point.set(read[X], read[Y]);
    return StatusOf(variable.Is(RTPOINT));
}

Acad::ErrorStatus GetCurACADVer(int& version)
{
    version = 0;
    CString text;
    const Acad::ErrorStatus es = GetCadSysVar(L"ACADVER", text);
    if (es == Acad::eOk)
        version = int(_wtof(text) * 10);
    return es;
}

}   // namespace KxArxBase::Env
