#include "host/controllers/AffineParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace maxhost {

namespace {

using Rows = std::array<std::array<double, 3>, 3>;

constexpr Rows kUnit = {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
constexpr double kPi = 3.14159265358979323846;

Rows operator*(const Rows& a, const Rows& b)
{
    Rows product{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            for (std::size_t k = 0; k < 3; ++k)
                product[i][j] += a[i][k] * b[k][j];
    return product;
}

Rows Transposed(const Rows& m)
{
    Rows result{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            result[i][j] = m[j][i];
    return result;
}

double Determinant(const Rows& m)
{
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
           m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
           m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

// Below this part of the axes' lengths, shear is the rounding of single precision.
constexpr double kNoShear = 1e-6;

// Turns a symmetric matrix into a diagonal one by Jacobi's rotations. Answers the
// axes, as rows: axes * m * Transposed(axes) is what stays in `m`. A matrix that is
// diagonal already keeps the unit axes.
Rows Diagonalise(Rows& m)
{
    Rows axes = kUnit;
    for (int sweep = 0; sweep < 50; ++sweep) {
        bool turned = false;
        for (const auto& [p, q] : {std::pair<std::size_t, std::size_t>{0, 1}, {0, 2}, {1, 2}}) {
            if (!(std::abs(m[p][q]) > kNoShear * std::sqrt(std::abs(m[p][p] * m[q][q]))))
                continue;
            turned = true;
            const double angle = 0.5 * std::atan2(2.0 * m[p][q], m[p][p] - m[q][q]);
            Rows turn = kUnit;
            turn[p][p] = turn[q][q] = std::cos(angle);
            turn[p][q] = std::sin(angle);
            turn[q][p] = -turn[p][q];
            m = turn * m * Transposed(turn);
            axes = turn * axes;
        }
        if (!turned)
            break;
    }
    return axes;
}

using Row = std::array<double, 3>;

double Dot(const Row& a, const Row& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// Makes a row square to others and one long. False when nothing of it remains.
bool MakeSquare(Row& row, const Rows& others, const std::array<bool, 3>& done)
{
    for (std::size_t i = 0; i < 3; ++i) {
        if (!done[i])
            continue;
        const double along = Dot(row, others[i]);
        for (std::size_t k = 0; k < 3; ++k)
            row[k] -= along * others[i][k];
    }
    const double length = std::sqrt(Dot(row, row));
    if (!(length > 1e-6))
        return false;
    for (double& value : row)
        value /= length;
    return true;
}

// Makes three rows a rotation. Rows without length are chosen to complete it.
Rows Orthonormal(Rows m)
{
    std::array<bool, 3> done{};
    for (std::size_t i = 0; i < 3; ++i)
        done[i] = MakeSquare(m[i], m, done);
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t axis = 0; axis < 3 && !done[i]; ++axis) {
            m[i] = kUnit[(i + axis) % 3];
            if (!MakeSquare(m[i], m, done))
                continue;
            done[i] = true;
            if (done[0] && done[1] && done[2] && Determinant(m) < 0.0)
                for (double& value : m[i])
                    value = -value;
        }
        if (!done[i])
            return kUnit;  // not numbers
    }
    return m;
}

Matrix3 ToMatrix(const Rows& rows)
{
    Matrix3 m(TRUE);
    for (int i = 0; i < 3; ++i) {
        const auto& row = rows[static_cast<std::size_t>(i)];
        m.SetRow(i, Point3(row[0], row[1], row[2]));
    }
    return m;
}

Rows FromMatrix(const Matrix3& m)
{
    Rows rows;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            rows[i][j] = m.GetAddr()[i][j];
    return rows;
}

float Unwrapped(double angle, float nearby)
{
    return static_cast<float>(angle - 2.0 * kPi * std::round((angle - nearby) / (2.0 * kPi)));
}

float DistanceBetween(const Point3& a, const Point3& b)
{
    return std::abs(a.x - b.x) + std::abs(a.y - b.y) + std::abs(a.z - b.z);
}

}  // namespace

// Polar decomposition: the square of the stretch is M * Transposed(M); along its axes
// it is a plain scale, and what is left of M without the stretch is the rotation.
AffineParts TakeApart(const Matrix3& tm)
{
    const Rows m = FromMatrix(tm);
    Rows squared = m * Transposed(m);
    const Rows axes = Diagonalise(squared);
    const double sign = Determinant(m) < 0.0 ? -1.0 : 1.0;

    Rows turned = axes * m;
    AffineParts parts;
    for (std::size_t i = 0; i < 3; ++i) {
        const double length = std::sqrt(std::max(squared[i][i], 0.0)) * sign;
        parts.scale.s[static_cast<int>(i)] = static_cast<float>(length);
        if (length != 0.0)
            for (double& value : turned[i])
                value /= length;
    }
    parts.position = tm.GetTrans();
    parts.rotation = Quat(ToMatrix(Transposed(axes) * Orthonormal(turned)));
    parts.scale.q = Quat(ToMatrix(axes));
    return parts;
}

Point3 EulerAnglesNear(const Matrix3& rotation, const Point3& nearby)
{
    const Rows m = FromMatrix(rotation);
    const double cosine = std::hypot(m[0][0], m[0][1]);
    double x, y, z;
    y = std::atan2(-m[0][2], cosine);
    if (cosine > 1e-6) {
        x = std::atan2(m[1][2], m[2][2]);
        z = std::atan2(m[0][1], m[0][0]);
    } else {
        // X and Z turn about one axis: Z keeps what it has.
        z = nearby.z;
        const double along = m[0][2] < 0.0 ? z : -z;
        x = std::atan2(-m[2][1], m[1][1]) + along;
    }
    const Point3 one(Unwrapped(x, nearby.x), Unwrapped(y, nearby.y), Unwrapped(z, nearby.z));
    const Point3 other(Unwrapped(x + kPi, nearby.x), Unwrapped(kPi - y, nearby.y),
                       Unwrapped(z + kPi, nearby.z));
    return DistanceBetween(other, nearby) < DistanceBetween(one, nearby) ? other : one;
}

}  // namespace maxhost
