// MFC's maps. Keys are hashed by HashKey and compared by CompareElements, which programs may specialise for the type
// that they look keys up by (ARG_KEY): a CString key is found by a const wchar_t*. Order: by bucket, the key put last
// coming first in its bucket, as programs that walk a map see it.
#pragma once
#include "CArray.h"
#include "CString.h"
#include <memory>
#include <type_traits>
#include <utility>

template <class ARG_KEY>
inline UINT HashKey(ARG_KEY key)
{
    if constexpr (std::is_pointer_v<ARG_KEY>)
        return UINT(reinterpret_cast<UINT_PTR>(key) >> 4);
    else if constexpr (std::is_integral_v<std::remove_reference_t<ARG_KEY>> && sizeof(ARG_KEY) > 4)
        return UINT(ULONGLONG(key) ^ (ULONGLONG(key) >> 32));
    else
        return UINT(DWORD_PTR(key) >> 4);
}

template <>
inline UINT HashKey<LPCWSTR>(LPCWSTR key)
{
    UINT hash = 2166136261U;
    for (; *key != L'\0'; ++key)
        hash = (hash ^ UINT(*key)) * 16777619U;
    return hash;
}

template <>
inline UINT HashKey<const CString&>(const CString& key)
{
    return HashKey<LPCWSTR>(key);
}

template <>
inline UINT HashKey<CString>(CString key)   // NOLINT(performance-unnecessary-value-param): as the template has it
{
    return HashKey<LPCWSTR>(key);
}

template <class TYPE, class ARG_TYPE>
inline BOOL CompareElements(const TYPE* element, const ARG_TYPE* argument)
{
    return *element == *argument;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject {
public:
    struct CPair {
        const KEY key;
        VALUE value;
    };

    // How many entries are expected to come at a time is a hint that needs no heeding here.
    explicit CMap(INT_PTR = 10) {}
    ~CMap() override { RemoveAll(); }

    INT_PTR GetCount() const { return m_count; }
    INT_PTR GetSize() const { return m_count; }
    BOOL IsEmpty() const { return m_count == 0; }
    UINT GetHashTableSize() const { return m_tableSize; }
    // Only while the map is empty. A prime number that exceeds the number of entries by a fifth is best.
    void InitHashTable(UINT size, BOOL allocateNow = TRUE)
    {
        if (m_count != 0 || size == 0)
            return;
        m_tableSize = size;
        m_table.reset();
        if (allocateNow)
            MakeTable();
    }

    BOOL Lookup(ARG_KEY key, VALUE& value) const
    {
        const Entry* entry = Find(key);
        if (entry == nullptr)
            return FALSE;
        value = entry->value;
        return TRUE;
    }
    const CPair* PLookup(ARG_KEY key) const { return Find(key); }
    CPair* PLookup(ARG_KEY key) { return Find(key); }
    VALUE& operator[](ARG_KEY key)
    {
        if (Entry* found = Find(key))
            return found->value;
        if (!m_table)
            MakeTable();
        Entry*& bucket = m_table[Bucket(key)];
        bucket = new Entry{{KEY(key), VALUE()}, bucket};
        ++m_count;
        return bucket->value;
    }
    void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }
    BOOL RemoveKey(ARG_KEY key)
    {
        if (!m_table)
            return FALSE;
        for (Entry** link = &m_table[Bucket(key)]; *link != nullptr; link = &(*link)->next) {
            if (!CompareElements(&(*link)->key, &key))
                continue;
            Entry* removed = *link;
            *link = removed->next;
            delete removed;
            --m_count;
            return TRUE;
        }
        return FALSE;
    }
    void RemoveAll()
    {
        for (UINT i = 0; m_table && i < m_tableSize; ++i) {
            while (Entry* entry = m_table[i]) {
                m_table[i] = entry->next;
                delete entry;
            }
        }
        m_table.reset();
        m_count = 0;
    }

    // A pair may be removed once the position has moved on.
    POSITION GetStartPosition() const { return const_cast<Entry*>(FirstFrom(0)); }
    void GetNextAssoc(POSITION& position, KEY& key, VALUE& value) const
    {
        const Entry* entry = static_cast<const Entry*>(position);
        key = entry->key;
        value = entry->value;
        position = const_cast<Entry*>(Next(entry));
    }
    const CPair* PGetFirstAssoc() const { return FirstFrom(0); }
    CPair* PGetFirstAssoc() { return const_cast<Entry*>(FirstFrom(0)); }
    const CPair* PGetNextAssoc(const CPair* pair) const { return Next(static_cast<const Entry*>(pair)); }
    CPair* PGetNextAssoc(const CPair* pair) { return const_cast<Entry*>(Next(static_cast<const Entry*>(pair))); }

private:
    struct Entry : CPair {
        Entry* next;
    };
    void MakeTable() { m_table = std::make_unique<Entry*[]>(m_tableSize); }
    UINT Bucket(ARG_KEY key) const { return HashKey<ARG_KEY>(key) % m_tableSize; }
    Entry* Find(ARG_KEY key) const
    {
        Entry* entry = m_table ? m_table[Bucket(key)] : nullptr;
        while (entry != nullptr && !CompareElements(&entry->key, &key))
            entry = entry->next;
        return entry;
    }
    const Entry* FirstFrom(UINT bucket) const
    {
        for (; m_table && bucket < m_tableSize; ++bucket) {
            if (m_table[bucket] != nullptr)
                return m_table[bucket];
        }
        return nullptr;
    }
    // The bucket of an entry follows from its key, looked up as ARG_KEY.
    const Entry* Next(const Entry* entry) const
    {
        if (entry->next != nullptr)
            return entry->next;
        return FirstFrom(Bucket(const_cast<KEY&>(entry->key)) + 1);
    }

    std::unique_ptr<Entry*[]> m_table;
    UINT m_tableSize = 17;
    INT_PTR m_count = 0;
};

class CMapStringToPtr : public CMap<CString, LPCWSTR, void*, void*> {
public:
    using CMap::CMap;
};

class CMapStringToString : public CMap<CString, LPCWSTR, CString, LPCWSTR> {
public:
    using CMap::CMap;
};
