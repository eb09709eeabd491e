#include "host/io/Transform.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace maxhost::io {

namespace {

// Axes this close to square are taken as such: matrices of single precision that
// went through a file's text come back skewed by this much.
constexpr double kShearTolerance = 1e-5;
// A stretch below this part of the largest one has no direction of its own.
constexpr double kCollapsed = 1e-12;

Vector Scaled(const Vector& v, double length)
{
    return length > 0.0 ? v * (1.0 / length) : Vector{};
}

// Any unit vector square to the unit vector `v`.
Vector SquareTo(const Vector& v)
{
    const Vector other = std::abs(v.x) < 0.6 ? Vector{1.0, 0.0, 0.0} : Vector{0.0, 1.0, 0.0};
    const Vector result = Cross(v, other);
    return Scaled(result, Length(result));
}

// Makes three axes of one turn out of directions of which some may be null: a
// null axis is filled in from the others, the rest is made square in order.
void CompleteFrame(std::array<Vector, 3>& axes)
{
    const auto given = [&](int i) { return Length(axes[static_cast<std::size_t>(i)]) > 0.5; };
    const int count = given(0) + given(1) + given(2);
    if (count == 0) {
        axes = {Vector{1.0, 0.0, 0.0}, Vector{0.0, 1.0, 0.0}, Vector{0.0, 0.0, 1.0}};
        return;
    }
    int first = 0;
    while (!given(first))
        ++first;
    const auto at = [&](int i) -> Vector& { return axes[static_cast<std::size_t>(i % 3)]; };
    int second = first + 1;
    while (second < first + 3 && !given(second % 3))
        ++second;
    if (second == first + 3) {
        second = first + 1;
        at(second) = SquareTo(at(first));
    }
    Vector& a = at(first);
    Vector& b = at(second);
    b = b - a * Dot(a, b);
    b = Length(b) > 1e-6 ? Scaled(b, Length(b)) : SquareTo(a);
    const bool neighbours = (second - first) % 3 == 1;
    at(neighbours ? second + 1 : first + 1) = neighbours ? Cross(a, b) : Cross(b, a);
}

Quaternion ToQuaternion(const std::array<Vector, 3>& axes)
{
    const auto& [a, b, c] = axes;
    const double trace = a.x + b.y + c.z;
    Quaternion q;
    if (trace > 0.0)
        q = {b.z - c.y, c.x - a.z, a.y - b.x, trace + 1.0};
    else if (a.x >= b.y && a.x >= c.z)
        q = {a.x - b.y - c.z + 1.0, a.y + b.x, c.x + a.z, b.z - c.y};
    else if (b.y >= c.z)
        q = {a.y + b.x, b.y - a.x - c.z + 1.0, b.z + c.y, c.x - a.z};
    else
        q = {c.x + a.z, b.z + c.y, c.z - a.x - b.y + 1.0, a.y - b.x};
    return Normalized(q);
}

// The eigenvectors of a symmetric matrix by Jacobi's rotations; on return its
// diagonal holds the eigenvalues.
std::array<Vector, 3> Eigenvectors(std::array<std::array<double, 3>, 3>& s)
{
    std::array<std::array<double, 3>, 3> v{{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
    constexpr int kSweeps = 32;
    for (int sweep = 0; sweep < kSweeps; ++sweep) {
        for (std::size_t p = 0; p < 2; ++p) {
            for (std::size_t q = p + 1; q < 3; ++q) {
                if (s[p][q] == 0.0)
                    continue;
                const double theta = (s[q][q] - s[p][p]) / (2.0 * s[p][q]);
                const double t = (theta < 0.0 ? -1.0 : 1.0) / (std::abs(theta) + std::hypot(theta, 1.0));
                const double cosine = 1.0 / std::hypot(t, 1.0);
                const double sine = t * cosine;
                for (std::size_t i = 0; i < 3; ++i) {
                    const double ip = s[i][p], iq = s[i][q];
                    s[i][p] = cosine * ip - sine * iq;
                    s[i][q] = sine * ip + cosine * iq;
                }
                for (std::size_t i = 0; i < 3; ++i) {
                    const double pi = s[p][i], qi = s[q][i];
                    s[p][i] = cosine * pi - sine * qi;
                    s[q][i] = sine * pi + cosine * qi;
                    const double vp = v[i][p], vq = v[i][q];
                    v[i][p] = cosine * vp - sine * vq;
                    v[i][q] = sine * vp + cosine * vq;
                }
            }
        }
    }
    std::array<Vector, 3> axes;
    for (std::size_t k = 0; k < 3; ++k)
        axes[k] = {v[0][k], v[1][k], v[2][k]};
    if (Dot(Cross(axes[0], axes[1]), axes[2]) < 0.0)
        axes[2] = axes[2] * -1.0;
    return axes;
}

}  // namespace

Vector operator+(const Vector& a, const Vector& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Vector operator-(const Vector& a, const Vector& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Vector operator*(const Vector& v, double factor)
{
    return {v.x * factor, v.y * factor, v.z * factor};
}

double Dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector Cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double Length(const Vector& v)
{
    return std::sqrt(Dot(v, v));
}

Quaternion operator*(const Quaternion& a, const Quaternion& b)
{
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

Quaternion Conjugate(const Quaternion& q)
{
    return {-q.x, -q.y, -q.z, q.w};
}

Quaternion Normalized(const Quaternion& q)
{
    const double length = std::sqrt(q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w);
    if (!(length > 0.0) || !std::isfinite(length))
        return {};
    return {q.x / length, q.y / length, q.z / length, q.w / length};
}

Quaternion Slerp(const Quaternion& a, const Quaternion& b, double part)
{
    const double cosine = a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w;
    const double sign = cosine < 0.0 ? -1.0 : 1.0;
    const double angle = std::acos(std::min(1.0, std::abs(cosine)));
    const double sine = std::sin(angle);
    // Below this the two weights are the linear ones to the last digit.
    constexpr double kStraight = 1e-9;
    const double wa = sine > kStraight ? std::sin((1.0 - part) * angle) / sine : 1.0 - part;
    const double wb = sign * (sine > kStraight ? std::sin(part * angle) / sine : part);
    return Normalized({wa * a.x + wb * b.x, wa * a.y + wb * b.y, wa * a.z + wb * b.z, wa * a.w + wb * b.w});
}

double AngleBetween(const Quaternion& a, const Quaternion& b)
{
    // By the sine: the cosine has no digits left for small angles.
    const Quaternion turn = a * Conjugate(b);
    return 2.0 * std::atan2(Length({turn.x, turn.y, turn.z}), std::abs(turn.w));
}

Quaternion TurnBetween(const Vector& from, const Vector& to)
{
    const double cosine = Dot(from, to);
    if (cosine < -0.999999999) {
        const Vector axis = SquareTo(from);
        return {axis.x, axis.y, axis.z, 0.0};
    }
    const Vector axis = Cross(from, to);
    return Normalized({axis.x, axis.y, axis.z, 1.0 + cosine});
}

Matrix operator*(const Matrix& a, const Matrix& b)
{
    return {MapDirection(a, b.x), MapDirection(a, b.y), MapDirection(a, b.z), MapPoint(a, b.origin)};
}

Vector MapPoint(const Matrix& m, const Vector& point)
{
    return MapDirection(m, point) + m.origin;
}

Vector MapDirection(const Matrix& m, const Vector& d)
{
    return m.x * d.x + m.y * d.y + m.z * d.z;
}

double Determinant(const Matrix& m)
{
    return Dot(Cross(m.x, m.y), m.z);
}

bool IsFinite(const Matrix& m)
{
    const auto finite = [](const Vector& v) {
        return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
    };
    return finite(m.x) && finite(m.y) && finite(m.z) && finite(m.origin);
}

Matrix RotationMatrix(const Quaternion& q)
{
    const double xx = q.x * q.x, yy = q.y * q.y, zz = q.z * q.z;
    const double xy = q.x * q.y, xz = q.x * q.z, yz = q.y * q.z;
    const double xw = q.x * q.w, yw = q.y * q.w, zw = q.z * q.w;
    return {{1.0 - 2.0 * (yy + zz), 2.0 * (xy + zw), 2.0 * (xz - yw)},
            {2.0 * (xy - zw), 1.0 - 2.0 * (xx + zz), 2.0 * (yz + xw)},
            {2.0 * (xz + yw), 2.0 * (yz - xw), 1.0 - 2.0 * (xx + yy)},
            {}};
}

Matrix ToMatrix(const Transform& t)
{
    Matrix stretch{{t.scale.x, 0.0, 0.0}, {0.0, t.scale.y, 0.0}, {0.0, 0.0, t.scale.z}, {}};
    if (HasShear(t))
        stretch = RotationMatrix(t.scaleAxes) * stretch * RotationMatrix(Conjugate(t.scaleAxes));
    Matrix result = RotationMatrix(t.rotation) * stretch;
    result.origin = t.translation;
    return result;
}

Transform ToTransform(const Matrix& m)
{
    Transform result;
    result.translation = m.origin;
    const std::array<Vector, 3> columns{m.x, m.y, m.z};
    std::array<double, 3> stretch{Length(m.x), Length(m.y), Length(m.z)};
    const double largest = std::max({stretch[0], stretch[1], stretch[2]});
    const auto square = [&](std::size_t i, std::size_t j) {
        return std::abs(Dot(columns[i], columns[j])) <= kShearTolerance * stretch[i] * stretch[j];
    };

    std::array<Vector, 3> scaleAxes{Vector{1.0, 0.0, 0.0}, Vector{0.0, 1.0, 0.0}, Vector{0.0, 0.0, 1.0}};
    if (!(square(0, 1) && square(0, 2) && square(1, 2))) {
        std::array<std::array<double, 3>, 3> gram;
        for (std::size_t i = 0; i < 3; ++i)
            for (std::size_t j = 0; j < 3; ++j)
                gram[i][j] = Dot(columns[i], columns[j]) / (largest * largest);
        scaleAxes = Eigenvectors(gram);
        for (std::size_t k = 0; k < 3; ++k)
            stretch[k] = largest * std::sqrt(std::max(0.0, gram[k][k]));
        result.scaleAxes = ToQuaternion(scaleAxes);
    }

    const double sign = Determinant(m) < 0.0 ? -1.0 : 1.0;
    std::array<Vector, 3> turned;
    for (std::size_t k = 0; k < 3; ++k)
        if (stretch[k] > kCollapsed * largest)
            turned[k] = MapDirection({m.x, m.y, m.z, {}}, scaleAxes[k]) * (sign / stretch[k]);
    CompleteFrame(turned);
    result.rotation = Normalized(ToQuaternion(turned) * Conjugate(result.scaleAxes));
    result.scale = Vector{stretch[0], stretch[1], stretch[2]} * sign;
    return result;
}

bool HasShear(const Transform& t)
{
    return t.scaleAxes.x != 0.0 || t.scaleAxes.y != 0.0 || t.scaleAxes.z != 0.0;
}

bool IsIdentity(const Transform& t)
{
    const auto is = [](const Vector& v, double value) {
        return v.x == value && v.y == value && v.z == value;
    };
    return is(t.translation, 0.0) && is({t.rotation.x, t.rotation.y, t.rotation.z}, 0.0) && is(t.scale, 1.0);
}

}  // namespace maxhost::io
