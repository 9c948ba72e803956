// A growing array with the host's rules of growth: a full array grows by its growth length or by its own length,
// whichever is larger, and by no more than 65,536 bytes at a time.
#pragma once
#include "AdeskTypes.h"
#include <algorithm>
#include <cassert>
#include <memory>
#include <utility>

// How an array moves its items when it grows. Both names mean the same here: items are moved one by one.
template <class T>
struct AcArrayMemCopyReallocator {
};
template <class T>
struct AcArrayObjectCopyReallocator {
};

template <class T, class Reallocator = AcArrayMemCopyReallocator<T>>
class AcArray {
public:
    AcArray(int physicalLength = 0, int growLength = 8) : m_growLength(std::max(growLength, 1))
    {
        setPhysicalLength(physicalLength);
    }
    AcArray(const AcArray& other) : m_growLength(other.m_growLength) { *this = other; }
    AcArray(AcArray&& other) noexcept { swap(other); }
    AcArray& operator=(AcArray&& other) noexcept
    {
        swap(other);
        return *this;
    }
    AcArray& operator=(const AcArray& other)
    {
        if (this == &other)
            return *this;
        if (m_physicalLength < other.m_logicalLength)
            Reallocate(other.m_logicalLength, 0);
        std::copy(other.begin(), other.end(), m_items.get());
        m_logicalLength = other.m_logicalLength;
        return *this;
    }
    bool operator==(const AcArray& other) const
    {
        return m_logicalLength == other.m_logicalLength && std::equal(begin(), end(), other.begin());
    }

    T& operator[](int index) { return at(index); }
    const T& operator[](int index) const { return at(index); }
    T& at(int index)
    {
        assert(isValid(index));
        return m_items[size_t(index)];
    }
    const T& at(int index) const
    {
        assert(isValid(index));
        return m_items[size_t(index)];
    }
    AcArray& setAt(int index, const T& value)
    {
        at(index) = value;
        return *this;
    }
    AcArray& setAll(const T& value)
    {
        const T copy(value);
        std::fill(begin(), end(), copy);
        return *this;
    }
    T& first() { return at(0); }
    const T& first() const { return at(0); }
    T& last() { return at(m_logicalLength - 1); }
    const T& last() const { return at(m_logicalLength - 1); }

    // The index of the new last element.
    int append(const T& value)
    {
        insertAt(m_logicalLength, value);
        return m_logicalLength - 1;
    }
    AcArray& append(const AcArray& other)
    {
        const int count = other.m_logicalLength;   // `other` may be this array
        const int start = m_logicalLength;
        setLogicalLength(start + count);
        std::copy_n(other.m_items.get(), count, m_items.get() + start);
        return *this;
    }
    AcArray& insertAt(int index, const T& value)
    {
        assert(index >= 0 && index <= m_logicalLength);
        T copy(value);   // the value may lie in this array
        setLogicalLength(m_logicalLength + 1);
        std::move_backward(m_items.get() + index, end() - 1, end());
        m_items[size_t(index)] = std::move(copy);
        return *this;
    }
    AcArray& removeAt(int index) { return removeSubArray(index, index); }
    bool remove(const T& value, int start = 0)
    {
        const int index = findFrom(value, start);
        if (index < 0)
            return false;
        removeAt(index);
        return true;
    }
    AcArray& removeFirst() { return removeAt(0); }
    AcArray& removeLast() { return removeAt(m_logicalLength - 1); }
    AcArray& removeAll() { return setLogicalLength(0); }
    // Both ends belong to what is removed.
    AcArray& removeSubArray(int startIndex, int endIndex)
    {
        assert(isValid(startIndex) && isValid(endIndex) && startIndex <= endIndex);
        std::move(m_items.get() + endIndex + 1, end(), m_items.get() + startIndex);
        return setLogicalLength(m_logicalLength - (endIndex - startIndex + 1));
    }

    bool contains(const T& value, int start = 0) const { return findFrom(value, start) >= 0; }
    // -1 when there is none.
    int find(const T& value) const { return findFrom(value, 0); }
    int findFrom(const T& value, int start) const
    {
        for (int index = start; index < m_logicalLength; ++index) {
            if (m_items[size_t(index)] == value)
                return index;
        }
        return -1;
    }
    bool find(const T& value, int& foundAt, int start = 0) const
    {
        const int index = findFrom(value, start);
        if (index >= 0)
            foundAt = index;
        return index >= 0;
    }

    int length() const { return m_logicalLength; }
    bool isEmpty() const { return m_logicalLength == 0; }
    int logicalLength() const { return m_logicalLength; }
    int physicalLength() const { return m_physicalLength; }
    int growLength() const { return m_growLength; }
    // Elements that come up again after a shortening hold default values.
    AcArray& setLogicalLength(int length)
    {
        assert(length >= 0);
        if (length > m_physicalLength)
            Reallocate(std::max(length, m_physicalLength + Step()), m_logicalLength);
        for (int index = length; index < m_logicalLength; ++index)
            m_items[size_t(index)] = T();
        m_logicalLength = length;
        return *this;
    }
    AcArray& setPhysicalLength(int length)
    {
        if (length != m_physicalLength && length >= 0)
            Reallocate(length, std::min(length, m_logicalLength));
        return *this;
    }
    AcArray& setGrowLength(int growLength)
    {
        m_growLength = std::max(growLength, 1);
        return *this;
    }

    AcArray& reverse()
    {
        std::reverse(begin(), end());
        return *this;
    }
    AcArray& swap(int first, int second)
    {
        std::swap(at(first), at(second));
        return *this;
    }
    void swap(AcArray& other) noexcept
    {
        std::swap(m_items, other.m_items);
        std::swap(m_physicalLength, other.m_physicalLength);
        std::swap(m_logicalLength, other.m_logicalLength);
        std::swap(m_growLength, other.m_growLength);
    }

    T* asArrayPtr() { return m_items.get(); }
    const T* asArrayPtr() const { return m_items.get(); }
    T* begin() { return m_items.get(); }
    T* end() { return m_items.get() + m_logicalLength; }
    const T* begin() const { return m_items.get(); }
    const T* end() const { return m_items.get() + m_logicalLength; }

private:
    bool isValid(int index) const { return index >= 0 && index < m_logicalLength; }
    int Step() const
    {
        constexpr int kMostBytes = 65536;
        const int most = std::max(int(kMostBytes / sizeof(T)), 1);   // NOLINT(bugprone-sizeof-expression): pointers too
        return std::max(m_growLength, std::min(m_physicalLength, most));
    }
    void Reallocate(int physicalLength, int kept)
    {
        std::unique_ptr<T[]> items(physicalLength > 0 ? new T[size_t(physicalLength)]() : nullptr);
        std::move(m_items.get(), m_items.get() + kept, items.get());
        m_items = std::move(items);
        m_physicalLength = physicalLength;
        m_logicalLength = kept;
    }

    std::unique_ptr<T[]> m_items;
    int m_physicalLength = 0;
    int m_logicalLength = 0;
    int m_growLength = 8;
};
