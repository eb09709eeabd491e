#include "VKT/base/Allocator.h"

#include <cstring>
#include <new>

namespace VKT {
namespace {

class DefaultAllocator final : public XAllocator {
public:
    void* Allocate(std::size_t bytes) override
    {
        return ::operator new (bytes, std::align_val_t{16}, std::nothrow);
    }

    void* AllocateZeroed(std::size_t bytes) override
    {
        void* block = Allocate(bytes);
        return block ? std::memset(block, 0, bytes) : nullptr;
    }

    void Free(void* block) override { ::operator delete (block, std::align_val_t{16}); }
};

XAllocator* s_Installed = nullptr;

}  // namespace

XAllocator* XGetAllocator()
{
    // Placed in storage that is never torn down: vectors of static objects outlive
    // every destructor that could run here.
    alignas(DefaultAllocator) static std::byte storage[sizeof(DefaultAllocator)];
    static XAllocator* const standard = new (storage) DefaultAllocator;
    return s_Installed ? s_Installed : standard;
}

void XSetAllocator(XAllocator* allocator)
{
    s_Installed = allocator;
}

}  // namespace VKT
