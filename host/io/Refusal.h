#pragma once

#include <stdexcept>

namespace maxhost::io {

// Thrown inside a reader where a file can't be read on; what() is the reason as
// the user sees it. Never leaves a Read function.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace maxhost::io
