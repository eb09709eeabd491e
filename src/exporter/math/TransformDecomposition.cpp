#include "exporter/math/TransformDecomposition.h"

#include <cmath>

namespace VKTMax {
namespace {

using VKT::f32;
using VKT::XQuaternion;
using VKT::XVector3;

using Rows = double[4][4];

struct Quaterniond {
    double q[3] = {0, 0, 0};
    double w = 0;
};

double Dot(const double (&a)[4], const double (&b)[4])
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// A row of no length stays.
void Normalise(double (&row)[4])
{
    const double length = std::sqrt(Dot(row, row));
    if (length == 0.0)
        return;
    for (int i = 0; i < 3; ++i)
        row[i] /= length;
}

void Orthonormalise(Rows& m)
{
    Normalise(m[0]);
    const double projection = Dot(m[1], m[0]);
    for (int i = 0; i < 3; ++i)
        m[1][i] -= projection * m[0][i];
    Normalise(m[1]);
    m[2][0] = m[0][1] * m[1][2] - m[0][2] * m[1][1];
    m[2][1] = m[0][2] * m[1][0] - m[0][0] * m[1][2];
    m[2][2] = m[0][0] * m[1][1] - m[0][1] * m[1][0];
    Normalise(m[2]);
}

Quaterniond QuaternionOf(const Rows& m)
{
    Quaterniond out;
    const double trace = m[0][0] + m[1][1] + m[2][2];
    if (trace > 0.0) {
        const double s = std::sqrt(trace + 1.0);
        const double r = 0.5 / s;
        out.w = s / 2.0;
        out.q[0] = (m[1][2] - m[2][1]) * r;
        out.q[1] = (m[2][0] - m[0][2]) * r;
        out.q[2] = (m[0][1] - m[1][0]) * r;
        return out;
    }
    // Kept on purpose: the last comparison is with m11 and not with the larger of both,
    // so that m22 can win where m00 is the largest.
    int i = 0;
    if (m[1][1] > m[0][0])
        i = 1;
    if (m[2][2] > m[1][1])
        i = 2;
    const int j = (i + 1) % 3;
    const int k = (i + 2) % 3;
    const double s = std::sqrt(m[i][i] - m[j][j] - m[k][k] + 1.0);
    const double r = s != 0.0 ? 0.5 / s : 0.0;
    out.q[i] = s / 2.0;
    out.w = (m[j][k] - m[k][j]) * r;
    out.q[j] = (m[i][j] + m[j][i]) * r;
    out.q[k] = (m[i][k] + m[k][i]) * r;
    return out;
}

Quaterniond Normalised(Quaterniond in)
{
    const double length = std::sqrt(in.q[0] * in.q[0] + in.q[1] * in.q[1] + in.q[2] * in.q[2] + in.w * in.w);
    if (length == 0.0)
        return {{0, 0, 0}, 1};
    for (double& component : in.q)
        component /= length;
    in.w /= length;
    return in;
}

f32 NumberOrZero(double value)
{
    return std::isnan(value) ? 0.0f : static_cast<f32>(value);
}

XVector3 NumbersOrZero(const Vector3d& v)
{
    return {NumberOrZero(v.x), NumberOrZero(v.y), NumberOrZero(v.z), 0.0f};
}

// Single precision on purpose: the host's matrices hold floats.
f32 FloatLength(const double (&row)[4])
{
    const f32 x = static_cast<f32>(row[0]), y = static_cast<f32>(row[1]), z = static_cast<f32>(row[2]);
    return std::sqrt(x * x + y * y + z * z);
}

}  // namespace

TransformParts DecomposeTransform(const RowMatrix& child, const RowMatrix& parent, const ScaleRules& rules)
{
    RowMatrix local = child * AffineInverse(parent);
    auto& m = local.m;

    Vector3d scale = RowLengths(local);
    if (Determinant(local) < 0.0)
        for (double& component : m[0])
            component = -component;
    Vector3d translation{m[3][0] * rules.factor, m[3][1] * rules.factor, m[3][2] * rules.factor};
    if (rules.removeScale) {
        translation.x *= FloatLength(parent.m[0]);
        translation.y *= FloatLength(parent.m[1]);
        translation.z *= FloatLength(parent.m[2]);
        scale = {1.0, 1.0, 1.0};
    }
    Orthonormalise(m);
    const Quaterniond rotation = Normalised(QuaternionOf(m));

    TransformParts parts;
    parts.rotation = {NumberOrZero(rotation.q[0]), NumberOrZero(rotation.q[1]), NumberOrZero(rotation.q[2]),
                      static_cast<f32>(rotation.w)};
    parts.translation = NumbersOrZero(translation);
    parts.scale = NumbersOrZero(scale);
    return parts;
}

Vector3d VertexScale(const RowMatrix& node, const ScaleRules& rules)
{
    Vector3d scale{rules.factor, rules.factor, rules.factor};
    if (!rules.removeScale)
        return scale;
    const Vector3d lengths = RowLengths(node);
    scale = {scale.x * lengths.x, scale.y * lengths.y, scale.z * lengths.z};
    if (Determinant(node) < 0.0)
        scale.x = -scale.x;
    return scale;
}

}  // namespace VKTMax
