#include "VKT/support/AllocationMeter.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#include "VKT/support/Sanitizers.h"

namespace VKT::Test {
namespace {

bool isWatching = false;
std::ptrdiff_t held = 0;  // since the meter was set up
std::ptrdiff_t peak = 0;
std::size_t untilFailure = 0;
bool hasFailed = false;

}  // namespace

AllocationMeter::AllocationMeter(std::size_t failing)
{
    held = peak = 0;
    untilFailure = failing;
    hasFailed = false;
    isWatching = true;
}

AllocationMeter::~AllocationMeter()
{
    isWatching = false;
}

std::size_t AllocationMeter::Peak() const
{
    return static_cast<std::size_t>(peak);
}

bool AllocationMeter::HasFailed() const
{
    return hasFailed;
}

#ifndef VKT_ADDRESS_SANITIZER
namespace {

// Stands in front of each block.
struct Label {
    void* start;
    std::size_t bytes;
};

void* Allocate(std::size_t bytes, std::size_t alignment = alignof(std::max_align_t)) noexcept
{
    if (isWatching && untilFailure > 0 && --untilFailure == 0) {
        hasFailed = true;
        return nullptr;
    }
    alignment = std::max(alignment, sizeof(Label));
    if (bytes > SIZE_MAX - 2 * alignment)
        return nullptr;
    void* const start = std::malloc(bytes + 2 * alignment);
    if (!start)
        return nullptr;
    const auto address =
        (reinterpret_cast<std::uintptr_t>(start) + 2 * alignment - 1) / alignment * alignment;
    const Label label{start, bytes};
    std::memcpy(reinterpret_cast<void*>(address - sizeof label), &label, sizeof label);
    if (isWatching) {
        held += static_cast<std::ptrdiff_t>(bytes);
        peak = std::max(peak, held);
    }
    return reinterpret_cast<void*>(address);
}

void* AllocateOrThrow(std::size_t bytes, std::size_t alignment = alignof(std::max_align_t))
{
    void* const block = Allocate(bytes, alignment);
    if (!block)
        throw std::bad_alloc();
    return block;
}

void Free(void* block) noexcept
{
    if (!block)
        return;
    Label label;
    std::memcpy(&label, static_cast<char*>(block) - sizeof label, sizeof label);
    if (isWatching)
        held -= static_cast<std::ptrdiff_t>(label.bytes);
    std::free(label.start);
}

std::size_t Number(std::align_val_t alignment)
{
    return static_cast<std::size_t>(alignment);
}

}  // namespace
#endif

}  // namespace VKT::Test

#ifndef VKT_ADDRESS_SANITIZER
using namespace VKT::Test;

// clang-format off
void* operator new(std::size_t n) { return AllocateOrThrow(n); }
void* operator new[](std::size_t n) { return AllocateOrThrow(n); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return Allocate(n); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return Allocate(n); }
void* operator new(std::size_t n, std::align_val_t a) { return AllocateOrThrow(n, Number(a)); }
void* operator new[](std::size_t n, std::align_val_t a) { return AllocateOrThrow(n, Number(a)); }
void* operator new(std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept { return Allocate(n, Number(a)); }
void* operator new[](std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept { return Allocate(n, Number(a)); }
void operator delete(void* p) noexcept { Free(p); }
void operator delete[](void* p) noexcept { Free(p); }
void operator delete(void* p, std::size_t) noexcept { Free(p); }
void operator delete[](void* p, std::size_t) noexcept { Free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { Free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { Free(p); }
void operator delete(void* p, std::align_val_t) noexcept { Free(p); }
void operator delete[](void* p, std::align_val_t) noexcept { Free(p); }
void operator delete(void* p, std::size_t, std::align_val_t) noexcept { Free(p); }
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept { Free(p); }
void operator delete(void* p, std::align_val_t, const std::nothrow_t&) noexcept { Free(p); }
void operator delete[](void* p, std::align_val_t, const std::nothrow_t&) noexcept { Free(p); }
// clang-format on
#endif
