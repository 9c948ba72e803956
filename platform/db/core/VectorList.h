// A list field over a vector member of numbers or points: one group, or three, for each entry.
#pragma once
#include "Fields.h"
#include <vector>

namespace KxPlat {

template <class C>
class RealList : public ListField {
public:
    RealList(int code, std::vector<double> C::*member) : m_code(code), m_member(member) {}

    bool Starts(int code) const override { return code == m_code; }
    bool Continues(int code) const override { return code == m_code; }
    bool PutReal(AcDbObject& object, int, double value) const override
    {
        (static_cast<C&>(object).*m_member).push_back(value);
        return true;
    }
    void Put(AcDbObject& object, const GroupValue& group) const override { PutReal(object, m_code, group.real()); }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion) const override
    {
        for (const double value : static_cast<const C&>(object).*m_member)
            sink.Real(m_code, value);
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override
    {
        static_cast<C&>(to).*m_member = static_cast<const C&>(from).*m_member;
    }
    bool IsEmpty(const AcDbObject& object) const override { return (static_cast<const C&>(object).*m_member).empty(); }
    void Clear(AcDbObject& object) const override { (static_cast<C&>(object).*m_member).clear(); }

private:
    int m_code;
    std::vector<double> C::*m_member;
};

// Points of the plane have two groups each, points of space three.
template <class C, class P>
class PointList : public ListField {
public:
    PointList(int code, std::vector<P> C::*member) : m_code(code), m_member(member) {}

    bool Starts(int code) const override { return code == m_code; }
    bool Continues(int code) const override
    {
        return code == m_code || code == m_code + 10 || (code == m_code + 20 && kCount == 3);
    }
    bool PutReal(AcDbObject& object, int code, double value) const override
    {
        std::vector<P>& points = static_cast<C&>(object).*m_member;
        if (code == m_code)
            points.emplace_back();
        points.back()[unsigned(code - m_code) / 10] = value;
        return true;
    }
    void Put(AcDbObject& object, const GroupValue& group) const override { PutReal(object, group.code, group.real()); }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion) const override
    {
        for (const P& point : static_cast<const C&>(object).*m_member)
            for (unsigned index = 0; index < kCount; ++index)
                sink.Real(m_code + 10 * int(index), point[index]);
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override
    {
        static_cast<C&>(to).*m_member = static_cast<const C&>(from).*m_member;
    }
    bool IsEmpty(const AcDbObject& object) const override { return (static_cast<const C&>(object).*m_member).empty(); }
    void Clear(AcDbObject& object) const override { (static_cast<C&>(object).*m_member).clear(); }

private:
    static constexpr unsigned kCount = sizeof(P) / sizeof(double);
    int m_code;
    std::vector<P> C::*m_member;
};

}   // namespace KxPlat
