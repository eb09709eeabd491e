#pragma once

#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>

#include "maxtypes.h"

using CompareFnc = int (*)(const void*, const void*);

// Whether a Tab may hold a type. The SDK itself keeps one class with constructors in a
// Tab and says so beside that class.
template <class T>
inline constexpr bool kMovesAsBits = std::is_trivially_copyable_v<T>;

// A growing array that copies its elements bit by bit: no constructor and no
// destructor ever runs on them, so they must be plain types.
template <class T>
class Tab {
    static_assert(kMovesAsBits<T>, "elements are copied bit by bit");

public:
    Tab() = default;
    Tab(const Tab& other) { Append(other.m_Count, other.m_Items); }
    Tab& operator=(const Tab& other)
    {
        if (this != &other) {
            ZeroCount();
            Append(other.m_Count, other.m_Items);
        }
        return *this;
    }
    ~Tab() { std::free(m_Items); }

    int Count() const { return m_Count; }
    void ZeroCount() { m_Count = 0; }
    // New elements hold whatever the memory held.
    void SetCount(int count, BOOL resize = TRUE)
    {
        if (resize || count > m_Room)
            Resize(count);
        m_Count = count;
    }
    int Resize(int room)
    {
        if (room == 0) {
            std::free(m_Items);
            m_Items = nullptr;
        } else {
            void* items = std::realloc(static_cast<void*>(m_Items), sizeof(T) * static_cast<size_t>(room));
            if (!items)
                throw std::bad_alloc();
            m_Items = static_cast<T*>(items);
        }
        m_Room = room;
        m_Count = m_Count < room ? m_Count : room;
        return TRUE;
    }
    void Shrink() { Resize(m_Count); }

    // Answers the index of the first new element.
    int Append(int count, T* items, int allocExtra = 0) { return Insert(m_Count, count, items, allocExtra); }
    int Insert(int at, int count, T* items) { return Insert(at, count, items, 0); }
    int Delete(int start, int count)
    {
        std::memmove(static_cast<void*>(m_Items + start), m_Items + start + count,
                     sizeof(T) * static_cast<size_t>(m_Count - start - count));
        m_Count -= count;
        return m_Count;
    }

    T* Addr(INT_PTR i) const { return m_Items + i; }
    T& operator[](const INT_PTR i) const { return m_Items[i]; }
    void Sort(CompareFnc compare) { std::qsort(m_Items, static_cast<size_t>(m_Count), sizeof(T), compare); }

private:
    int Insert(int at, int count, T* items, int allocExtra)
    {
        if (count <= 0)
            return at;
        if (m_Count + count > m_Room)
            Resize(m_Count + count + (allocExtra > 0 ? allocExtra : m_Count / 2));
        std::memmove(static_cast<void*>(m_Items + at + count), m_Items + at,
                     sizeof(T) * static_cast<size_t>(m_Count - at));
        std::memcpy(static_cast<void*>(m_Items + at), items, sizeof(T) * static_cast<size_t>(count));
        m_Count += count;
        return at;
    }

    T* m_Items = nullptr;
    int m_Count = 0;
    int m_Room = 0;
};
