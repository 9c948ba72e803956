// How far apart points and vectors may lie and still count as equal.
#pragma once

class AcGeTol {
public:
    double equalPoint() const { return m_point; }
    double equalVector() const { return m_vector; }
    void setEqualPoint(double value) { m_point = value; }
    void setEqualVector(double value) { m_vector = value; }

private:
    double m_point = 1.0e-10;
    double m_vector = 1.0e-10;
};

struct AcGeContext {
    static AcGeTol gTol;   // used where a call gives no tolerance
};

namespace AcGe {
enum ErrorCondition {
    kOk,
    k0This,
    k0Arg1,
    k0Arg2,
    kPerpendicularArg1Arg2,
    kEqualArg1Arg2,
    kEqualArg1Arg3,
    kEqualArg2Arg3
};
}
