#pragma once

#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>

#include "maxtypes.h"

using CompareFnc = int (*)(const void*, const void*);

// A growing array that copies its elements bit by bit: no constructor and no
// destructor ever runs on them, so they must be plain types.
template <class T>
class Tab {
    static_assert(std::is_trivially_copyable_v<T>, "elements are copied bit by bit");

public:
    Tab() = default;
    Tab(const Tab& other) { Append(other.m_count, other.m_items); }
    Tab& operator=(const Tab& other)
    {
        if (this != &other) {
            ZeroCount();
            Append(other.m_count, other.m_items);
        }
        return *this;
    }
    ~Tab() { std::free(m_items); }

    int Count() const { return m_count; }
    void ZeroCount() { m_count = 0; }
    // New elements hold whatever the memory held.
    void SetCount(int count, BOOL resize = TRUE)
    {
        if (resize || count > m_room)
            Resize(count);
        m_count = count;
    }
    int Resize(int room)
    {
        if (room == 0) {
            std::free(m_items);
            m_items = nullptr;
        } else {
            void* items = std::realloc(static_cast<void*>(m_items), sizeof(T) * static_cast<size_t>(room));
            if (!items)
                throw std::bad_alloc();
            m_items = static_cast<T*>(items);
        }
        m_room = room;
        m_count = m_count < room ? m_count : room;
        return TRUE;
    }
    void Shrink() { Resize(m_count); }

    // Answers the index of the first new element.
    int Append(int count, T* items, int allocExtra = 0) { return Insert(m_count, count, items, allocExtra); }
    int Insert(int at, int count, T* items) { return Insert(at, count, items, 0); }
    int Delete(int start, int count)
    {
        std::memmove(static_cast<void*>(m_items + start), m_items + start + count,
                     sizeof(T) * static_cast<size_t>(m_count - start - count));
        m_count -= count;
        return m_count;
    }

    T* Addr(INT_PTR i) const { return m_items + i; }
    T& operator[](const INT_PTR i) const { return m_items[i]; }
    void Sort(CompareFnc compare) { std::qsort(m_items, static_cast<size_t>(m_count), sizeof(T), compare); }

private:
    int Insert(int at, int count, T* items, int allocExtra)
    {
        if (count <= 0)
            return at;
        if (m_count + count > m_room)
            Resize(m_count + count + (allocExtra > 0 ? allocExtra : m_count / 2));
        std::memmove(static_cast<void*>(m_items + at + count), m_items + at,
                     sizeof(T) * static_cast<size_t>(m_count - at));
        std::memcpy(static_cast<void*>(m_items + at), items, sizeof(T) * static_cast<size_t>(count));
        m_count += count;
        return at;
    }

    T* m_items = nullptr;
    int m_count = 0;
    int m_room = 0;
};
