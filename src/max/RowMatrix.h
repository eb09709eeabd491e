#pragma once

namespace VKTMax {

// A transform as the host has them, in double precision: it acts on row vectors, row 3 is
// the translation, and in a x b the transform a acts first.
struct RowMatrix {
    double m[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};

struct Vector3d {
    double x, y, z;
};

RowMatrix operator*(const RowMatrix& a, const RowMatrix& b);
Vector3d TransformPoint(const Vector3d& point, const RowMatrix& matrix);

// The triple product of rows 0 to 2: negative for a mirror.
double Determinant(const RowMatrix& matrix);
// The inverse of a matrix whose last column is 0, 0, 0, 1; the identity when its
// determinant is exactly 0.
RowMatrix AffineInverse(const RowMatrix& matrix);

// The lengths of rows 0 to 2, along which the matrix scales.
Vector3d RowLengths(const RowMatrix& matrix);

}  // namespace VKTMax
