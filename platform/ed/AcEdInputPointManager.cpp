#include "AcEdInputPointManager.h"
#include "../ap/Documents.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdInputPointFilter, AcRxObject)

namespace {

struct InputPoints : KxPlat::DocumentPart {
    AcEdInputPointManager manager;
};

}   // namespace

Acad::ErrorStatus AcEdInputPointManager::registerPointFilter(AcEdInputPointFilter* filter)
{
    if (filter == nullptr)
        return Acad::eInvalidInput;
    m_filters.push_back(filter);
    return Acad::eOk;
}

Acad::ErrorStatus AcEdInputPointManager::revokePointFilter()
{
    if (m_filters.empty())
        return Acad::eNotApplicable;
    m_filters.pop_back();
    return Acad::eOk;
}

AcEdInputPointFilter* AcEdInputPointManager::currentPointFilter() const
{
    return m_filters.empty() ? nullptr : m_filters.back();
}

// Declared with the document, which knows nothing of input.
AcEdInputPointManager* AcApDocument::inputPointManager() const
{
    return &KxPlat::PartOf<InputPoints>(const_cast<AcApDocument&>(*this)).manager;
}
