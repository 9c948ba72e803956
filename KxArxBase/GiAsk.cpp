#include "GiAsk.h"
#include "GiPick.h"
#include "KxMessages.h"
#include <memory>

namespace KxArxBase::Gi {

namespace {

const int kLongestInput = 512;

// A point as the host's calls take it, or null.
class Base {
public:
    explicit Base(const AcGePoint3d* point) : m_isGiven(point != nullptr)
    {
        for (unsigned axis = 0; axis < 3; ++axis)
            m_point[axis] = point == nullptr ? 0 : (*point)[axis];
    }
    const ads_real* get() const { return m_isGiven ? m_point : nullptr; }

private:
    ads_point m_point;
    bool m_isGiven;
};

// Hands the keyword over that the last question got.
int WithKeyword(int answer, CString* keyword)
{
    if (answer == RTKWORD && keyword != nullptr) {
        wchar_t text[kLongestInput] = {};
        acedGetInput(text);
        *keyword = text;
    }
    return answer;
}

}   // namespace

int PickPoint(const wchar_t* prompt, AcGePoint3d& point, const AcGePoint3d* base, int bits, const wchar_t* keywords,
              CString* keyword)
{
    acedInitGet(bits, keywords);
    ads_point given = {};
    const int answer = WithKeyword(acedGetPoint(Base(base).get(), prompt, given), keyword);
    if (answer == RTNORM)
        point.set(given[0], given[1], given[2]);
    return answer;
}

int PickDistance(const wchar_t* prompt, double& distance, const AcGePoint3d* base, int bits, const wchar_t* keywords,
                 CString* keyword)
{
    acedInitGet(bits, keywords);
    double given = 0;
    const int answer = WithKeyword(acedGetDist(Base(base).get(), prompt, &given), keyword);
    if (answer == RTNORM)
        distance = given;
    return answer;
}

int PickAngle(const wchar_t* prompt, double& radians, const AcGePoint3d* base, int bits, const wchar_t* keywords,
              CString* keyword)
{
    acedInitGet(bits, keywords);
    double given = 0;
    const int answer = WithKeyword(acedGetAngle(Base(base).get(), prompt, &given), keyword);
    if (answer == RTNORM)
        radians = given;
    return answer;
}

int PickOneEntity(const wchar_t* prompt, AcDbObjectId& id, AcGePoint3d& point, AcRxClass* cls)
{
    id.setNull();
    ads_name picked;
    ads_point at = {};
    const int answer = acedEntSel(prompt, picked, at);
    AcDbObjectId found;
    if (answer != RTNORM)
        return answer;
    if (acdbGetObjectId(found, picked) != Acad::eOk || found.objectClass() == nullptr ||
        (cls != nullptr && !found.objectClass()->isDerivedFrom(cls)))
        return RTERROR;
    id = found;
    point.set(at[0], at[1], at[2]);
    return RTNORM;
}

int AskInt(const wchar_t* prompt, int& value, int bits)
{
    acedInitGet(bits, nullptr);
    int given = 0;
    const int answer = acedGetInt(prompt, &given);
    if (answer == RTNORM)
        value = given;
    return answer;
}

int AskReal(const wchar_t* prompt, double& value, int bits)
{
    acedInitGet(bits, nullptr);
    double given = 0;
    const int answer = acedGetReal(prompt, &given);
    if (answer == RTNORM)
        value = given;
    return answer;
}

int AskString(const wchar_t* prompt, CString& text, int allowBlanks)
{
    wchar_t given[kLongestInput] = {};
    const int answer = acedGetString(allowBlanks, prompt, given);
    if (answer == RTNORM)
        text = given;
    return answer;
}

int AskKeyword(const wchar_t* prompt, const wchar_t* keywords, CString& keyword, int bits)
{
    acedInitGet(bits, keywords);
    wchar_t given[kLongestInput] = {};
    const int answer = acedGetKword(prompt, given);
    if (answer == RTNORM)
        keyword = given;
    return answer;
}

Acad::ErrorStatus SelectAll(AcDbObjectIdArray& ids, const resbuf* filter)
{
    ids.setLogicalLength(0);
    ads_name set;
    if (acedSSGet(L"_X", nullptr, nullptr, filter, set) != RTNORM)
        return AsStatus(KxAcad::eNoObject);
    const Acad::ErrorStatus es = GetObjectIdsWithAdsName(set, ids);
    acedSSFree(set);
    return es;
}

Acad::ErrorStatus SetPickSet(const AcDbObjectIdArray& ids)
{
    if (ids.isEmpty())
        return acedSSSetFirst(nullptr, nullptr) == RTNORM ? Acad::eOk : Acad::eInvalidInput;
    ads_name set;
    const Acad::ErrorStatus es = GetAdsNameWithObjectIds(ids, set);
    if (es != Acad::eOk)
        return es;
    const int answer = acedSSSetFirst(nullptr, set);
    acedSSFree(set);
    return answer == RTNORM ? Acad::eOk : Acad::eInvalidInput;
}

void GetDocuments(AcArray<AcApDocument*>& documents)
{
    documents.setLogicalLength(0);
    const std::unique_ptr<AcApDocumentIterator> it(acDocManager->newAcApDocumentIterator());
    for (; it != nullptr && !it->done(); it->step())
        documents.append(it->document());
}

AcApDocument* CurrentDocument()
{
    return acDocManager->curDocument();
}

}   // namespace KxArxBase::Gi
