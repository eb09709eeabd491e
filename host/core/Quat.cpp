#include "quat.h"

#include <cmath>

// The entries of a matrix that the quaternion names: m12 - m21 and its cyclic
// neighbours carry x, y, z with the sign that makes the rotation left-handed.
Quat::Quat(const Matrix3& m)
{
    const MRow* row = m.GetAddr();
    const auto at = [&](int r, int c) { return static_cast<double>(row[r][c]); };
    const double trace = at(0, 0) + at(1, 1) + at(2, 2);
    double q[4];
    if (trace > 0.0) {
        const double s = std::sqrt(trace + 1.0);
        q[3] = s / 2.0;
        for (int i = 0; i < 3; ++i) {
            const int j = (i + 1) % 3, k = (i + 2) % 3;
            q[i] = (at(k, j) - at(j, k)) / (2.0 * s);
        }
    } else {
        int i = at(1, 1) > at(0, 0) ? 1 : 0;
        if (at(2, 2) > at(i, i))
            i = 2;
        const int j = (i + 1) % 3, k = (i + 2) % 3;
        const double s = std::sqrt(at(i, i) - at(j, j) - at(k, k) + 1.0);
        q[i] = s / 2.0;
        q[j] = (at(i, j) + at(j, i)) / (2.0 * s);
        q[k] = (at(i, k) + at(k, i)) / (2.0 * s);
        q[3] = (at(k, j) - at(j, k)) / (2.0 * s);
    }
    *this = Quat(q[0], q[1], q[2], q[3]);
    Normalize();
}

Quat::Quat(const AngAxis& aa)
{
    const float s = std::sin(aa.angle / 2.0f);
    *this = Quat(aa.axis.x * s, aa.axis.y * s, aa.axis.z * s, std::cos(aa.angle / 2.0f));
}

void Quat::Identity()
{
    *this = Quat();
}

void Quat::Normalize()
{
    const float length = std::sqrt(x * x + y * y + z * z + w * w);
    if (length != 0.0f)
        *this = Quat(x / length, y / length, z / length, w / length);
    else
        Identity();
}

Quat& Quat::Invert()
{
    return *this = Quat(-x, -y, -z, w);
}

Quat Quat::operator*(const Quat& after) const
{
    const Quat& q = after;
    return Quat(w * q.x + x * q.w + y * q.z - z * q.y, w * q.y + y * q.w + z * q.x - x * q.z,
                w * q.z + z * q.w + x * q.y - y * q.x, w * q.w - x * q.x - y * q.y - z * q.z);
}

void Quat::MakeMatrix(Matrix3& mat, bool flag) const
{
    const double squared = static_cast<double>(x) * x + static_cast<double>(y) * y +
                           static_cast<double>(z) * z + static_cast<double>(w) * w;
    const double s = squared > 0.0 ? 2.0 / squared : 0.0;
    const double xs = x * s, ys = y * s, zs = z * s;
    const double wx = w * xs, wy = w * ys, wz = w * zs;
    const double xx = x * xs, xy = x * ys, xz = x * zs;
    const double yy = y * ys, yz = y * zs, zz = z * zs;
    const double rows[3][3] = {
        {1.0 - (yy + zz), xy - wz, xz + wy},
        {xy + wz, 1.0 - (xx + zz), yz - wx},
        {xz - wy, yz + wx, 1.0 - (xx + yy)},
    };
    mat.IdentityMatrix();
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            mat.GetAddr()[i][j] = static_cast<float>(flag ? rows[j][i] : rows[i][j]);
    mat.ClearIdentFlag(ROT_IDENT);
}

Quat Inverse(const Quat& q)
{
    return Quat(q).Invert();
}

// Along the shorter way.
Quat Slerp(const Quat& p, const Quat& q, float t)
{
    double cosine = static_cast<double>(p.x) * q.x + static_cast<double>(p.y) * q.y +
                    static_cast<double>(p.z) * q.z + static_cast<double>(p.w) * q.w;
    const double sign = cosine < 0.0 ? -1.0 : 1.0;
    cosine *= sign;
    double fromP = 1.0 - t;
    double fromQ = t;
    if (cosine < 0.999999) {
        const double angle = std::acos(cosine);
        fromP = std::sin(fromP * angle) / std::sin(angle);
        fromQ = std::sin(fromQ * angle) / std::sin(angle);
    }
    fromQ *= sign;
    return Quat(p.x * fromP + q.x * fromQ, p.y * fromP + q.y * fromQ, p.z * fromP + q.z * fromQ,
                p.w * fromP + q.w * fromQ);
}

void RotateMatrix(Matrix3& m, const Quat& q)
{
    Matrix3 rotation;
    q.MakeMatrix(rotation);
    m = m * rotation;
}

void PreRotateMatrix(Matrix3& m, const Quat& q)
{
    Matrix3 rotation;
    q.MakeMatrix(rotation);
    m = rotation * m;
}
