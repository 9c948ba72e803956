#include "AcRxObject.h"

AcRxObject::~AcRxObject() = default;

AcRxClass* AcRxObject::desc()
{
    static AcRxClass* const described =
        KxPlat::DescribeClass(L"AcRxObject", nullptr, nullptr, 0, 0, 0, nullptr, nullptr);
    return described;
}

void AcRxObject::rxInit()
{
    desc();
}

AcRxClass* AcRxObject::isA() const
{
    return desc();
}

bool AcRxObject::isKindOf(const AcRxClass* aClass) const
{
    return isA()->isDerivedFrom(aClass);
}

AcRxObject* AcRxObject::queryX(const AcRxClass* protocol) const
{
    return isA()->queryX(protocol);
}

AcRxObject* AcRxObject::clone() const
{
    return nullptr;
}

Acad::ErrorStatus AcRxObject::copyFrom(const AcRxObject*)
{
    return Acad::eNotImplementedYet;
}

Adesk::Boolean AcRxObject::isEqualTo(const AcRxObject* other) const
{
    return other == this;
}

AcRx::Ordering AcRxObject::comparedTo(const AcRxObject* other) const
{
    return isEqualTo(other) ? AcRx::kEqual : AcRx::kNotOrderable;
}
