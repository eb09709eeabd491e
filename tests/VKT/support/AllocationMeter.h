#pragma once

#include <cstddef>

namespace VKT::Test {

// Watches every allocation of the test program, those of the library's vectors included.
// One at a time; the program's own `operator new` tells it.
//
// Under the address sanitizer, which brings its own, it sees nothing: `Peak` is 0 and no
// allocation fails.
class AllocationMeter {
public:
    // From now on; with `failing` above 0 the allocation of that number fails, once.
    explicit AllocationMeter(std::size_t failing = 0);
    ~AllocationMeter();
    AllocationMeter(const AllocationMeter&) = delete;
    AllocationMeter& operator=(const AllocationMeter&) = delete;

    // The most bytes that were held at one time beyond what was held at the start.
    std::size_t Peak() const;
    // Whether the allocation that was to fail was asked for.
    bool HasFailed() const;
};

}  // namespace VKT::Test
