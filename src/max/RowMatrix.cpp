#include "max/RowMatrix.h"

#include <cmath>

namespace VKTMax {
namespace {

double Length(const double (&row)[4])
{
    return std::sqrt(row[0] * row[0] + row[1] * row[1] + row[2] * row[2]);
}

}  // namespace

RowMatrix operator*(const RowMatrix& a, const RowMatrix& b)
{
    RowMatrix product;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) {
            double sum = 0;
            for (int k = 0; k < 4; ++k)
                sum += a.m[row][k] * b.m[k][column];
            product.m[row][column] = sum;
        }
    return product;
}

Vector3d TransformPoint(const Vector3d& p, const RowMatrix& matrix)
{
    const auto& m = matrix.m;
    return {p.x * m[0][0] + p.y * m[1][0] + p.z * m[2][0] + m[3][0],
            p.x * m[0][1] + p.y * m[1][1] + p.z * m[2][1] + m[3][1],
            p.x * m[0][2] + p.y * m[1][2] + p.z * m[2][2] + m[3][2]};
}

double Determinant(const RowMatrix& matrix)
{
    const auto& m = matrix.m;
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) +
           m[0][1] * (m[1][2] * m[2][0] - m[1][0] * m[2][2]) +
           m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

RowMatrix AffineInverse(const RowMatrix& matrix)
{
    const double determinant = Determinant(matrix);
    if (determinant == 0.0)
        return {};
    const auto& m = matrix.m;
    RowMatrix inverse;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column) {
            // The cofactor of the transposed place, its sign in the cyclic order of indices.
            const int r1 = (column + 1) % 3, r2 = (column + 2) % 3;
            const int c1 = (row + 1) % 3, c2 = (row + 2) % 3;
            inverse.m[row][column] = (m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1]) / determinant;
        }
    for (int column = 0; column < 3; ++column)
        inverse.m[3][column] = -(m[3][0] * inverse.m[0][column] + m[3][1] * inverse.m[1][column] +
                                 m[3][2] * inverse.m[2][column]);
    return inverse;
}

Vector3d RowLengths(const RowMatrix& matrix)
{
    return {Length(matrix.m[0]), Length(matrix.m[1]), Length(matrix.m[2])};
}

}  // namespace VKTMax
