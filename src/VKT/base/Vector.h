#pragma once

#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

#include "VKT/base/Allocator.h"

namespace VKT {

// Lets a standard vector live on an `XAllocator`. The object's address is taken when
// the vector is built and stays with it.
//
// Elements made by `resize` are default-initialised, not zeroed: a read is about to
// overwrite them, and the first touch of fresh memory costs more than the parsing.
// Ask for `resize(n, T{})` where zeroes are wanted.
template <class T>
class XStlAllocator {
public:
    using value_type = T;
    using propagate_on_container_move_assignment = std::true_type;
    using propagate_on_container_swap = std::true_type;

    XStlAllocator() : m_Allocator(XGetAllocator()) {}
    template <class U>
    XStlAllocator(const XStlAllocator<U>& other) : m_Allocator(other.GetAllocator())
    {
    }

    T* allocate(std::size_t count)
    {
        if (count > static_cast<std::size_t>(-1) / sizeof(T))
            throw std::bad_array_new_length();
        void* block = m_Allocator->Allocate(count * sizeof(T));
        if (!block)
            throw std::bad_alloc();
        return static_cast<T*>(block);
    }
    void deallocate(T* block, std::size_t) { m_Allocator->Free(block); }

    template <class U>
    void construct(U* place) noexcept(std::is_nothrow_default_constructible_v<U>)
    {
        ::new (static_cast<void*>(place)) U;
    }
    template <class U, class... Args>
    void construct(U* place, Args&&... args)
    {
        std::construct_at(place, std::forward<Args>(args)...);
    }

    XAllocator* GetAllocator() const { return m_Allocator; }
    template <class U>
    bool operator==(const XStlAllocator<U>& other) const
    {
        return m_Allocator == other.GetAllocator();
    }

private:
    XAllocator* m_Allocator;
};

// The vector of the library.
template <class T>
using XVector = std::vector<T, XStlAllocator<T>>;

}  // namespace VKT
