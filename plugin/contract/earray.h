#pragma once

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>

#include "plugin/contract/tagged_block.h"

/// A flat array of records in a tagged block: grown by copying bytes, never shrunk, its elements
/// neither constructed nor destroyed. New memory is zero; SetSize within the capacity leaves what
/// stood there before.
template <class T>
class EArray {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);
    static_assert(alignof(T) <= 4, "a tagged block is aligned to 4 bytes only");

public:
    /// Starts with room for `grow` elements, or 128 if that is below 1. Growing later adds `grow`
    /// elements to what is asked for, none if it is negative. Without memory the capacity is 0.
    explicit EArray(int grow) : m_nGrow(grow) {
        const int capacity = grow < 1 ? 128 : grow;
        m_pData = Allocate(capacity);
        m_nCapacity = m_pData ? capacity : 0;
    }
    virtual ~EArray() { FreeTaggedBlock(m_pData); }
    EArray(const EArray&) = delete;
    EArray& operator=(const EArray&) = delete;

    T* GetData() { return m_pData; }
    const T* GetData() const { return m_pData; }
    int GetCount() const { return m_nCount; }

    /// Makes the count `n` and answers it. When the memory for that cannot be had, the count
    /// becomes the capacity. A negative `n` counts as 0.
    int SetSize(int n) {
        if (n > m_nCapacity && !Grow(n)) n = m_nCapacity;
        m_nCount = std::max(n, 0);
        return m_nCount;
    }

    /// Zeroes the elements in use; the capacity stays.
    void RemoveAll() {
        if (m_nCount > 0) std::memset(static_cast<void*>(m_pData), 0, Bytes(m_nCount));
        m_nCount = 0;
    }

private:
    static std::size_t Bytes(int count) { return static_cast<std::size_t>(count) * sizeof(T); }

    static T* Allocate(long long count) {
        constexpr long long kMost = std::numeric_limits<int>::max() / static_cast<int>(sizeof(T));
        if (count > kMost) return nullptr;
        return static_cast<T*>(
            AllocTaggedBlock(static_cast<int>(count * static_cast<int>(sizeof(T)))));
    }

    bool Grow(int n) {
        const long long capacity = static_cast<long long>(n) + std::max(m_nGrow, 0);
        T* data = Allocate(capacity);
        if (!data) return false;
        if (m_nCount > 0) std::memcpy(static_cast<void*>(data), m_pData, Bytes(m_nCount));
        FreeTaggedBlock(m_pData);
        m_pData = data;
        m_nCapacity = static_cast<int>(capacity);
        return true;
    }

    T* m_pData = nullptr;
    int m_nCapacity = 0;
    int m_nCount = 0;
    int m_nGrow;
};
