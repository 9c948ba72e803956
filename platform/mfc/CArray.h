// MFC's arrays: contiguous, counted by INT_PTR, growing at the end. An index outside of the array is a fault of the
// caller: it throws std::out_of_range, which commands report at their edge.
#pragma once
#include "CObject.h"
#include <stdexcept>
#include <vector>

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
public:
    INT_PTR GetSize() const { return INT_PTR(m_items.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    bool IsEmpty() const { return m_items.empty(); }
    INT_PTR GetUpperBound() const { return GetSize() - 1; }
    // `growBy` is how many items are made room for at least when the array is full.
    void SetSize(INT_PTR size, INT_PTR growBy = -1)
    {
        if (size < 0)
            throw std::out_of_range("array size");
        if (growBy > 0)
            m_items.reserve(size_t(size + growBy));
        m_items.resize(size_t(size));
    }
    void FreeExtra() { m_items.shrink_to_fit(); }
    void RemoveAll()
    {
        m_items.clear();
        FreeExtra();
    }

    const TYPE& GetAt(INT_PTR index) const { return m_items[Checked(index)]; }
    TYPE& GetAt(INT_PTR index) { return m_items[Checked(index)]; }
    TYPE& ElementAt(INT_PTR index) { return m_items[Checked(index)]; }
    const TYPE& ElementAt(INT_PTR index) const { return m_items[Checked(index)]; }
    const TYPE& operator[](INT_PTR index) const { return GetAt(index); }
    TYPE& operator[](INT_PTR index) { return GetAt(index); }
    void SetAt(INT_PTR index, ARG_TYPE item) { m_items[Checked(index)] = item; }
    const TYPE* GetData() const { return m_items.data(); }
    TYPE* GetData() { return m_items.data(); }

    void SetAtGrow(INT_PTR index, ARG_TYPE item)
    {
        const TYPE copy(item);
        if (index >= GetSize())
            SetSize(index + 1);
        m_items[Checked(index)] = copy;
    }
    INT_PTR Add(ARG_TYPE item)
    {
        m_items.push_back(item);
        return GetUpperBound();
    }
    INT_PTR Append(const CArray& other)
    {
        const INT_PTR oldSize = GetSize();
        m_items.reserve(m_items.size() + other.m_items.size());
        for (size_t i = 0, count = other.m_items.size(); i < count; ++i)
            m_items.push_back(other.m_items[i]);
        return oldSize;
    }
    void Copy(const CArray& other) { m_items = other.m_items; }
    // Past the end the gap is filled with default items.
    void InsertAt(INT_PTR index, ARG_TYPE item, INT_PTR count = 1)
    {
        if (index < 0)
            throw std::out_of_range("array index");
        const TYPE copy(item);
        if (index > GetSize())
            SetSize(index);
        m_items.insert(m_items.begin() + index, size_t(count), copy);
    }
    void RemoveAt(INT_PTR index, INT_PTR count = 1)
    {
        if (count <= 0)
            return;
        Checked(index);
        Checked(index + count - 1);
        m_items.erase(m_items.begin() + index, m_items.begin() + index + count);
    }

private:
    size_t Checked(INT_PTR index) const
    {
        if (index < 0 || index >= GetSize())
            throw std::out_of_range("array index");
        return size_t(index);
    }
    std::vector<TYPE> m_items;
};

class CByteArray : public CArray<BYTE, BYTE> {};
class CWordArray : public CArray<WORD, WORD> {};
class CDWordArray : public CArray<DWORD, DWORD> {};
class CUIntArray : public CArray<UINT, UINT> {};
class CPtrArray : public CArray<void*, void*> {};
