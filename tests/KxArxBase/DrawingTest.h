// A new drawing with a builder on it, and the promise that nothing stays open.
#pragma once
#include "db/core/Stub.h"
#include "KxArxBase/KxAcDraw.h"
#include "KxArxBase/Opened.h"
#include "TestUi.h"
#include <gtest/gtest.h>

namespace KxTest {

using namespace KxArxBase;

class Builder : public CKxAcDraw {
public:
    using CKxAcDraw::CKxAcDraw;
    using CKxAcDraw::DrawEntity;
};

class Drawing : public testing::Test {
protected:
    Drawing() : m_open(KxPlat::OpenObjectCount()), db(&drawing, 0), draw(&drawing, nullptr) {}
    void TearDown() override { EXPECT_EQ(KxPlat::OpenObjectCount(), m_open); }

    // Adds what waits; the only one of its class is opened.
    template <class T>
    Opened<T> Added()
    {
        AcDbObjectIdArray ids;
        EXPECT_EQ(draw.AddEntsToDb(nullptr, &ids), Acad::eOk);
        EXPECT_EQ(ids.length(), 1);
        return Opened<T>(ids.isEmpty() ? AcDbObjectId() : ids[0], AcDb::kForRead);
    }

    TestUi ui;
    AcDbDatabase drawing;

private:
    long m_open;

protected:
    CKxAcDb db;
    Builder draw;
};

inline AcGePoint2dArray Flat(std::initializer_list<AcGePoint2d> points)
{
    AcGePoint2dArray array;
    for (const AcGePoint2d& point : points)
        array.append(point);
    return array;
}

inline AcGePoint3dArray Points(std::initializer_list<AcGePoint3d> points)
{
    AcGePoint3dArray array;
    for (const AcGePoint3d& point : points)
        array.append(point);
    return array;
}

inline CArray<double, double>& Fill(CArray<double, double>& array, std::initializer_list<double> values)
{
    for (const double value : values)
        array.Add(value);
    return array;
}

inline int Number(Acad::ErrorStatus status)
{
    return static_cast<int>(status);
}

}   // namespace KxTest
