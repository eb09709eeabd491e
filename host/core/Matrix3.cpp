#include "matrix3.h"

#include <algorithm>
#include <cmath>

namespace {

const Point3 kUnitRows[4] = {Point3(1, 0, 0), Point3(0, 1, 0), Point3(0, 0, 1), Point3(0, 0, 0)};

double Determinant(const Matrix3& m)
{
    const auto at = [&](int row, int column) { return static_cast<double>(m[row][column]); };
    return at(0, 0) * (at(1, 1) * at(2, 2) - at(1, 2) * at(2, 1)) -
           at(0, 1) * (at(1, 0) * at(2, 2) - at(1, 2) * at(2, 0)) +
           at(0, 2) * (at(1, 0) * at(2, 1) - at(1, 1) * at(2, 0));
}

// The turn in the plane of two axes, `first` towards `second`.
Matrix3 PlaneRotation(int first, int second, float angle)
{
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    Matrix3 m(TRUE);
    MRow* rows = m.GetAddr();
    rows[first][first] = c;
    rows[first][second] = s;
    rows[second][first] = -s;
    rows[second][second] = c;
    m.ClearIdentFlag(ROT_IDENT);
    return m;
}

}  // namespace

Matrix3::Matrix3(float (*rows)[3])
{
    for (int i = 0; i < 4; ++i)
        m[i] = Point3(rows[i]);
}

Matrix3::Matrix3(const Point3& U, const Point3& V, const Point3& N, const Point3& T)
{
    SetRow(0, U);
    SetRow(1, V);
    SetRow(2, N);
    SetRow(3, T);
}

void Matrix3::ValidateFlags()
{
    flags = m[3] == kUnitRows[3] ? POS_IDENT : 0;
    if (m[0] == kUnitRows[0] && m[1] == kUnitRows[1] && m[2] == kUnitRows[2])
        flags |= ROT_IDENT | SCL_IDENT;
}

void Matrix3::IdentityMatrix()
{
    std::copy_n(kUnitRows, 4, m);
    flags = MAT_IDENT;
}

void Matrix3::Zero()
{
    std::fill_n(m, 4, Point3(0, 0, 0));
    flags = 0;
}

void Matrix3::SetRow(int i, Point3 p)
{
    m[i] = p;
    ClearIdentFlag(i == 3 ? POS_IDENT : ROT_IDENT | SCL_IDENT);
}

void Matrix3::SetTrans(int axis, float value)
{
    Point3 translation = GetTrans();
    translation[axis] = value;
    SetTrans(translation);
}

void Matrix3::NoTrans()
{
    m[3] = Point3(0, 0, 0);
    flags |= POS_IDENT;
}

void Matrix3::NoRot()
{
    for (int i = 0; i < 3; ++i) {
        const float length = GetRow(i).Length();
        m[i] = Point3(0, 0, 0);
        m[i][i] = length;
    }
    flags |= ROT_IDENT;
}

void Matrix3::NoScale()
{
    for (int i = 0; i < 3; ++i)
        m[i].Unify();
    flags |= SCL_IDENT;
}

void Matrix3::Translate(const Point3& p)
{
    m[3] += p;
    ClearIdentFlag(POS_IDENT);
}

void Matrix3::RotateX(float angle)
{
    *this *= RotateXMatrix(angle);
}

void Matrix3::RotateY(float angle)
{
    *this *= RotateYMatrix(angle);
}

void Matrix3::RotateZ(float angle)
{
    *this *= RotateZMatrix(angle);
}

void Matrix3::Scale(const Point3& s, BOOL trans)
{
    for (int i = 0; i < (trans ? 4 : 3); ++i)
        m[i] = m[i] * s;
    ClearIdentFlag(SCL_IDENT | ROT_IDENT);
}

void Matrix3::PreTranslate(const Point3& p)
{
    m[3] = PointTransform(p);
    ClearIdentFlag(POS_IDENT);
}

void Matrix3::PreRotateX(float angle)
{
    *this = RotateXMatrix(angle) * *this;
}

void Matrix3::PreRotateY(float angle)
{
    *this = RotateYMatrix(angle) * *this;
}

void Matrix3::PreRotateZ(float angle)
{
    *this = RotateZMatrix(angle) * *this;
}

void Matrix3::PreScale(const Point3& s, BOOL)
{
    for (int i = 0; i < 3; ++i)
        m[i] *= s[i];
    ClearIdentFlag(SCL_IDENT);
}

Matrix3 Matrix3::operator*(const Matrix3& after) const
{
    if (after.IsIdentity())
        return *this;
    if (IsIdentity())
        return after;
    Matrix3 product;
    for (int i = 0; i < 3; ++i)
        product[i] = after.VectorTransform(m[i]);
    product[3] = after.PointTransform(m[3]);
    product.flags = flags & after.flags;
    return product;
}

int Matrix3::operator==(const Matrix3& other) const
{
    for (int i = 0; i < 4; ++i)
        if (m[i] != other[i])
            return FALSE;
    return TRUE;
}

void Matrix3::Invert()
{
    if (IsIdentity())
        return;
    const double determinant = Determinant(*this);
    if (determinant == 0.0) {
        IdentityMatrix();
        return;
    }
    Point3 inverse[4];
    for (int column = 0; column < 3; ++column) {
        double moved = 0.0;
        for (int row = 0; row < 3; ++row) {
            // The cofactor of the transposed place; indices run on cyclically, which
            // takes care of the sign.
            const int r1 = (column + 1) % 3, r2 = (column + 2) % 3;
            const int c1 = (row + 1) % 3, c2 = (row + 2) % 3;
            const double entry =
                (static_cast<double>(m[r1][c1]) * m[r2][c2] - static_cast<double>(m[r1][c2]) * m[r2][c1]) /
                determinant;
            inverse[row][column] = static_cast<float>(entry);
            moved -= m[3][row] * entry;
        }
        inverse[3][column] = static_cast<float>(moved);
    }
    std::copy_n(inverse, 4, m);
}

BOOL Matrix3::Parity() const
{
    return Determinant(*this) < 0.0;
}

Point3 Matrix3::PointTransform(const Point3& p) const
{
    return VectorTransform(p) + m[3];
}

Point3 Matrix3::VectorTransform(const Point3& p) const
{
    return m[0] * p.x + m[1] * p.y + m[2] * p.z;
}

Matrix3 RotateXMatrix(float angle)
{
    return PlaneRotation(1, 2, angle);
}

Matrix3 RotateYMatrix(float angle)
{
    return PlaneRotation(2, 0, angle);
}

Matrix3 RotateZMatrix(float angle)
{
    return PlaneRotation(0, 1, angle);
}

Matrix3 TransMatrix(const Point3& p)
{
    Matrix3 m(TRUE);
    m.SetTrans(p);
    return m;
}

Matrix3 ScaleMatrix(const Point3& s)
{
    Matrix3 m(TRUE);
    m.PreScale(s);
    return m;
}

Matrix3 Inverse(const Matrix3& m)
{
    Matrix3 inverse(m);
    inverse.Invert();
    return inverse;
}

Point3 operator*(const Matrix3& m, const Point3& p)
{
    return m.PointTransform(p);
}

Point3 operator*(const Point3& p, const Matrix3& m)
{
    return m.PointTransform(p);
}

Point3 VectorTransform(const Matrix3& m, const Point3& p)
{
    return m.VectorTransform(p);
}

Point3 VectorTransform(const Point3& p, const Matrix3& m)
{
    return m.VectorTransform(p);
}
