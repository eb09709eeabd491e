#include "VKT/base/Matrix.h"

#include <cmath>

namespace VKT {

void MatrixMultiply(XMatrix& out, const XMatrix& a, const XMatrix& b)
{
    for (int c = 0; c < 4; ++c)
        for (int r = 0; r < 4; ++r)
            out[4 * c + r] = a[r] * b[4 * c] + a[4 + r] * b[4 * c + 1] + a[8 + r] * b[4 * c + 2] +
                             a[12 + r] * b[4 * c + 3];
}

void MatrixMultiplyAffine(XMatrix& out, const XMatrix& a, const XMatrix& b)
{
    for (int c = 0; c < 4; ++c)
        for (int r = 0; r < 4; ++r)
            out[4 * c + r] = a[r] * b[4 * c] + a[4 + r] * b[4 * c + 1] + a[8 + r] * b[4 * c + 2];
    for (int r = 0; r < 3; ++r)
        out[12 + r] += a[12 + r];
    out[3] = out[7] = out[11] = 0.0f;
    out[15] = 1.0f;
}

void XQuaternionToMatrix(const XQuaternion& q, XMatrix& m)
{
    const auto [x, y, z, w] = q;
    m = {{1 - 2 * (y * y + z * z), 2 * (x * y + w * z), 2 * (x * z - w * y), 0,  //
          2 * (x * y - w * z), 1 - 2 * (x * x + z * z), 2 * (y * z + w * x), 0,  //
          2 * (x * z + w * y), 2 * (y * z - w * x), 1 - 2 * (x * x + y * y), 0,  //
          0, 0, 0, 1}};
}

XMatrix TranslationMatrix(const XVector3& offset)
{
    return {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, offset.x, offset.y, offset.z, 1}};
}

XMatrix ScaleMatrix(const XVector3& scale)
{
    return {{scale.x, 0, 0, 0, 0, scale.y, 0, 0, 0, 0, scale.z, 0, 0, 0, 0, 1}};
}

XMatrix Transposed(const XMatrix& m)
{
    XMatrix out;
    for (int c = 0; c < 4; ++c)
        for (int r = 0; r < 4; ++r)
            out[4 * r + c] = m[4 * c + r];
    return out;
}

XVector3 TransformPoint(const XMatrix& m, const XVector3& p)
{
    return {m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12], m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13],
            m[2] * p.x + m[6] * p.y + m[10] * p.z + m[14], 0.0f};
}

bool XMatrixInverse(XMatrix& out, const XMatrix& m)
{
    // The twelve 2 by 2 minors of the upper and the lower two columns, from which all
    // sixteen cofactors are made.
    const f32 a0 = m[0] * m[5] - m[1] * m[4], b0 = m[8] * m[13] - m[9] * m[12];
    const f32 a1 = m[0] * m[6] - m[2] * m[4], b1 = m[8] * m[14] - m[10] * m[12];
    const f32 a2 = m[0] * m[7] - m[3] * m[4], b2 = m[8] * m[15] - m[11] * m[12];
    const f32 a3 = m[1] * m[6] - m[2] * m[5], b3 = m[9] * m[14] - m[10] * m[13];
    const f32 a4 = m[1] * m[7] - m[3] * m[5], b4 = m[9] * m[15] - m[11] * m[13];
    const f32 a5 = m[2] * m[7] - m[3] * m[6], b5 = m[10] * m[15] - m[11] * m[14];

    const f32 determinant = a0 * b5 - a1 * b4 + a2 * b3 + a3 * b2 - a4 * b1 + a5 * b0;
    if (std::fabs(determinant) < 0.0005f)
        return false;

    const XMatrix cofactors{{
        m[5] * b5 - m[6] * b4 + m[7] * b3,
        -m[1] * b5 + m[2] * b4 - m[3] * b3,
        m[13] * a5 - m[14] * a4 + m[15] * a3,
        -m[9] * a5 + m[10] * a4 - m[11] * a3,
        -m[4] * b5 + m[6] * b2 - m[7] * b1,
        m[0] * b5 - m[2] * b2 + m[3] * b1,
        -m[12] * a5 + m[14] * a2 - m[15] * a1,
        m[8] * a5 - m[10] * a2 + m[11] * a1,
        m[4] * b4 - m[5] * b2 + m[7] * b0,
        -m[0] * b4 + m[1] * b2 - m[3] * b0,
        m[12] * a4 - m[13] * a2 + m[15] * a0,
        -m[8] * a4 + m[9] * a2 - m[11] * a0,
        -m[4] * b3 + m[5] * b1 - m[6] * b0,
        m[0] * b3 - m[1] * b1 + m[2] * b0,
        -m[12] * a3 + m[13] * a1 - m[14] * a0,
        m[8] * a3 - m[9] * a1 + m[10] * a0,
    }};
    for (int i = 0; i < 16; ++i)
        out[i] = cofactors[i] / determinant;
    return true;
}

}  // namespace VKT
