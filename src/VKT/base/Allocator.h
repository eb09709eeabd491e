#pragma once

#include "VKT/base/Types.h"

namespace VKT {

// Where all vectors of the library take their storage. One object serves the whole
// process; blocks are 16-byte aligned, because vectors and matrices are.
class XAllocator {
public:
    virtual ~XAllocator() = default;

    // A block of at least `bytes` bytes, or null when there is no memory left.
    virtual void* Allocate(std::size_t bytes) = 0;
    // The same, filled with zeroes.
    virtual void* AllocateZeroed(std::size_t bytes) = 0;
    // Takes a block back; null is allowed.
    virtual void Free(void* block) = 0;
};

// The process-wide allocator. It is built on first use and never destroyed, so that
// static objects may hold vectors. Containers keep the answer they got when they
// were built.
XAllocator* XGetAllocator();

// Installs another allocator for vectors built from now on, or the default one for
// null. The caller keeps ownership and outlives every such vector.
void XSetAllocator(XAllocator* allocator);

}  // namespace VKT
