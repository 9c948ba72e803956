#include "AsdkBaseJig.h"

AsdkBaseJig::AsdkBaseJig(AcDbEntity* entity, const AcGePoint3d& base) : m_entity(entity), m_base(base), m_point(base) {}

AcEdJig::DragStatus AsdkBaseJig::StartDrag(const wchar_t* prompt, const wchar_t* keywords)
{
    const CString words(keywords == nullptr ? L"" : keywords);
    setKeywordList(words);
    setUserInputControls(UserInputControls(kNullResponseAccepted | kAccept3dCoordinates));
    for (;;) {
        setDispPrompt(L"%s", prompt == nullptr ? L"" : prompt);
        const DragStatus status = drag();
        if (status < kKW1)
            return status;
        int start = 0;
        CString word;
        for (int index = 0; index <= status - kKW1; ++index)
            word = words.Tokenize(L" ", start);
        if (!OnKeyword(status - kKW1, word))
            return status;
    }
}

AcEdJig::DragStatus AsdkBaseJig::sampler()
{
    AcGePoint3d point;
    const DragStatus status = acquirePoint(point, m_base);
    if (status != kNormal)
        return status;
    m_base = m_point;
    m_point = point;
    return kNormal;
}

Adesk::Boolean AsdkBaseJig::update()
{
    return m_entity != nullptr && Follow(*m_entity, m_base, m_point);
}

bool AsdkBaseJig::Follow(AcDbEntity& entity, const AcGePoint3d& from, const AcGePoint3d& to)
{
    return entity.transformBy(AcGeMatrix3d::translation(to - from)) == Acad::eOk;
}

AcDbObjectId AsdkBaseJig::Append()
{
    const AcDbObjectId id = append();
    if (!id.isNull())
        m_entity = nullptr;
    return id;
}
