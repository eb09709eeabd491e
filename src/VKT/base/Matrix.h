#pragma once

#include "VKT/base/Quaternion.h"

namespace VKT {

// A transform. Elements 0 to 3 are the first column of the matrix that acts on column
// vectors, 12 to 14 are the translation, 15 is 1: element (column c, row r) stands at
// 4c + r. Read as rows, the same sixteen numbers are the row-vector form.
struct alignas(16) XMatrix {
    f32 m[16];
    f32& operator[](std::size_t i) { return m[i]; }
    f32 operator[](std::size_t i) const { return m[i]; }
    bool operator==(const XMatrix&) const = default;
};

inline constexpr XMatrix kIdentityMatrix{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};

// out = a x b in column-vector form, so b acts first: out[c][r] is the sum over k of
// a[k][r] x b[c][k]. `out` must be distinct from both inputs.
void MatrixMultiply(XMatrix& out, const XMatrix& a, const XMatrix& b);

// The same for transforms: the last row of both is taken as 0, 0, 0, 1 and written as
// such. `out` must be distinct from both inputs.
void MatrixMultiplyAffine(XMatrix& out, const XMatrix& a, const XMatrix& b);

// a x b as a new matrix, by the affine rule: b acts first.
inline XMatrix operator*(const XMatrix& a, const XMatrix& b)
{
    XMatrix out;
    MatrixMultiplyAffine(out, a, b);
    return out;
}

// The rotation matrix of a quaternion, which is taken as normalised.
void XQuaternionToMatrix(const XQuaternion& q, XMatrix& m);
inline XMatrix RotationMatrix(const XQuaternion& q)
{
    XMatrix m;
    XQuaternionToMatrix(q, m);
    return m;
}

XMatrix TranslationMatrix(const XVector3& offset);
XMatrix ScaleMatrix(const XVector3& scale);
XMatrix Transposed(const XMatrix& m);

// The point `p` moved by `m`: rotated, scaled and translated.
XVector3 TransformPoint(const XMatrix& m, const XVector3& p);

// Inverts the 4 by 4 matrix `m` into `out`.
//
// errors   false when |determinant| < 0.0005, `out` untouched: a bone scaled to
//          almost nothing keeps its last inverse. Nothing is logged.
// source   Cramer's rule: cofactors over determinant. The threshold is behaviour that
//          files depend on, not a tolerance to tune.
bool XMatrixInverse(XMatrix& out, const XMatrix& m);

}  // namespace VKT
