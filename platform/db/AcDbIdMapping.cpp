#include "AcDbIdMapping.h"

bool AcDbIdMapping::assign(const AcDbIdPair& pair)
{
    if (!m_index.try_emplace(pair.key(), m_pairs.size()).second)
        return false;
    m_pairs.push_back(pair);
    return true;
}

bool AcDbIdMapping::compute(AcDbIdPair& pair) const
{
    auto place = m_index.find(pair.key());
    if (place == m_index.end())
        return false;
    pair = m_pairs[place->second];
    return true;
}

bool AcDbIdMapping::del(AcDbObjectId key)
{
    auto place = m_index.find(key);
    if (place == m_index.end())
        return false;
    m_pairs.erase(m_pairs.begin() + std::ptrdiff_t(place->second));
    m_index.clear();
    for (std::size_t i = 0; i < m_pairs.size(); ++i)
        m_index.emplace(m_pairs[i].key(), i);
    return true;
}

AcDbObjectId AcDbIdMapping::find(AcDbObjectId key) const
{
    auto place = m_index.find(key);
    return place == m_index.end() ? AcDbObjectId() : m_pairs[place->second].value();
}

Acad::ErrorStatus AcDbIdMapping::destDb(AcDbDatabase*& database) const
{
    database = m_destination;
    return m_destination == nullptr ? Acad::eNoDatabase : Acad::eOk;
}
