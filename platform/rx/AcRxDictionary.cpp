#include "AcRxDictionary.h"
#include "../win/CharTables.h"
#include <map>
#include <memory>

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxIterator, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionaryIterator, AcRxIterator)
ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)

namespace {

struct KeyOrder {
    bool isCaseSensitive = true;
    bool operator()(const std::wstring& left, const std::wstring& right) const
    {
        return isCaseSensitive ? left < right : KxPlat::CompareNoCase(left, right) < 0;
    }
};

// Keys in order, and the same entries by their numbers, which rise with each new key and are never used again.
class Dictionary : public AcRxDictionary {
public:
    Dictionary(bool deletesObjects, bool isCaseSensitive)
        : m_byKey(KeyOrder{isCaseSensitive}), m_deletesObjects(deletesObjects)
    {
    }
    ~Dictionary() override
    {
        if (!m_deletesObjects)
            return;
        for (const auto& [key, entry] : m_byKey)
            delete entry.object;
    }

    AcRxObject* at(const ACHAR* key) const override { return at(idAt(key)); }
    AcRxObject* at(Adesk::UInt32 id) const override { return has(id) ? m_byId.at(id)->second.object : nullptr; }
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object, Adesk::UInt32& id) override;
    bool resetKey(const ACHAR* oldKey, const ACHAR* newKey) override { return resetKey(idAt(oldKey), newKey); }
    bool resetKey(Adesk::UInt32 id, const ACHAR* newKey) override;
    bool atKeyAndIdPut(const ACHAR* newKey, Adesk::UInt32 id, AcRxObject* object) override;
    AcRxObject* remove(const ACHAR* key) override { return remove(idAt(key)); }
    AcRxObject* remove(Adesk::UInt32 id) override;
    bool has(const ACHAR* key) const override { return idAt(key) != 0; }
    bool has(Adesk::UInt32 id) const override { return m_byId.find(id) != m_byId.end(); }
    Adesk::UInt32 idAt(const ACHAR* key) const override;
    const ACHAR* keyAt(Adesk::UInt32 id) const override { return has(id) ? m_byId.at(id)->first.c_str() : nullptr; }
    Adesk::UInt32 numEntries() const override { return Adesk::UInt32(m_byKey.size()); }
    AcRxDictionaryIterator* newIterator(AcRx::DictIterType type) override;
    Adesk::Boolean deletesObjects() const override { return m_deletesObjects; }
    Adesk::Boolean isCaseSensitive() const override { return m_byKey.key_comp().isCaseSensitive; }
    Adesk::Boolean isSorted() const override { return Adesk::kTrue; }

private:
    struct Entry {
        AcRxObject* object = nullptr;
        Adesk::UInt32 id = 0;
    };
    using ByKey = std::map<std::wstring, Entry, KeyOrder>;
    using ById = std::map<Adesk::UInt32, ByKey::iterator>;
    template <class Rows>
    class Walk;

    AcRxObject* Replaced(AcRxObject*& place, AcRxObject* object);

    ByKey m_byKey;
    ById m_byId;
    Adesk::UInt32 m_lastId = 0;
    bool m_deletesObjects;
};

template <class Rows>
class Dictionary::Walk : public AcRxDictionaryIterator {
public:
    explicit Walk(const Rows& rows) : m_rows(rows), m_at(rows.begin()) {}
    bool done() const override { return m_at == m_rows.end(); }
    bool next() override
    {
        if (!done())
            ++m_at;
        return !done();
    }
    AcRxObject* object() const override { return done() ? nullptr : Row().second.object; }
    const ACHAR* key() const override { return done() ? nullptr : Row().first.c_str(); }
    Adesk::UInt32 id() const override { return done() ? 0 : Row().second.id; }

private:
    const ByKey::value_type& Row() const
    {
        if constexpr (std::is_same_v<Rows, ById>)
            return *m_at->second;
        else
            return *m_at;
    }
    const Rows& m_rows;
    typename Rows::const_iterator m_at;
};

AcRxObject* Dictionary::Replaced(AcRxObject*& place, AcRxObject* object)
{
    AcRxObject* before = place;
    place = object;
    if (!m_deletesObjects || before == object)
        return before;
    delete before;
    return nullptr;
}

AcRxObject* Dictionary::atPut(const ACHAR* key, AcRxObject* object, Adesk::UInt32& id)
{
    const auto [place, isNew] = m_byKey.try_emplace(key);
    if (isNew) {
        place->second.id = ++m_lastId;
        m_byId.emplace(m_lastId, place);
    }
    id = place->second.id;
    return Replaced(place->second.object, object);
}

bool Dictionary::resetKey(Adesk::UInt32 id, const ACHAR* newKey)
{
    const auto found = m_byId.find(id);
    if (found == m_byId.end() || newKey == nullptr || has(newKey))
        return false;
    auto node = m_byKey.extract(found->second);
    node.key() = newKey;
    found->second = m_byKey.insert(std::move(node)).position;
    return true;
}

bool Dictionary::atKeyAndIdPut(const ACHAR* newKey, Adesk::UInt32 id, AcRxObject* object)
{
    const auto found = m_byId.find(id);
    if (found == m_byId.end())
        return false;
    if (idAt(newKey) != id && !resetKey(id, newKey))
        return false;
    Replaced(found->second->second.object, object);
    return true;
}

AcRxObject* Dictionary::remove(Adesk::UInt32 id)
{
    const auto found = m_byId.find(id);
    if (found == m_byId.end())
        return nullptr;
    AcRxObject* object = found->second->second.object;
    m_byKey.erase(found->second);
    m_byId.erase(found);
    return object;
}

Adesk::UInt32 Dictionary::idAt(const ACHAR* key) const
{
    const auto found = key == nullptr ? m_byKey.end() : m_byKey.find(key);
    return found == m_byKey.end() ? 0 : found->second.id;
}

AcRxDictionaryIterator* Dictionary::newIterator(AcRx::DictIterType type)
{
    if (type == AcRx::kDictCollated)
        return new Walk<ById>(m_byId);
    return new Walk<ByKey>(m_byKey);
}

}   // namespace

AcRxDictionary* KxPlat::NewDictionary(bool deletesObjects, bool isCaseSensitive)
{
    return new Dictionary(deletesObjects, isCaseSensitive);
}

AcRxDictionary* acrxSysRegistry()
{
    static Dictionary services(false, false);
    static Dictionary registry(false, false);
    if (registry.numEntries() == 0) {
        Adesk::UInt32 id = 0;
        registry.atPut(ACRX_SERVICE_DICTIONARY, &services, id);
        registry.atPut(ACRX_CLASS_DICTIONARY, &KxPlat::ClassDictionary(), id);
    }
    return &registry;
}
