#include "max/Matrix.h"

namespace VKTMax {

RowMatrix ToRowMatrix(const Matrix3& matrix)
{
    RowMatrix out;
    for (int row = 0; row < 4; ++row) {
        const Point3 values = matrix.GetRow(row);
        out.m[row][0] = values.x;
        out.m[row][1] = values.y;
        out.m[row][2] = values.z;
    }
    return out;
}

}  // namespace VKTMax
