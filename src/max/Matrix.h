#pragma once

#include <max.h>

#include "max/RowMatrix.h"

namespace VKTMax {

// Widens the host's 4 rows of 3 floats; the last column becomes 0, 0, 0, 1.
RowMatrix ToRowMatrix(const Matrix3& matrix);

}  // namespace VKTMax
