#pragma once

namespace maxhost::io {

// The arithmetic of scene files: double precision, right-handed, no host type.
// Products read from right to left: in `a * b` it is b that acts first.

struct Vector {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

Vector operator+(const Vector& a, const Vector& b);
Vector operator-(const Vector& a, const Vector& b);
Vector operator*(const Vector& v, double factor);
double Dot(const Vector& a, const Vector& b);
Vector Cross(const Vector& a, const Vector& b);
double Length(const Vector& v);

// Turns by the right-hand rule. Operations that need a unit quaternion say so.
struct Quaternion {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double w = 1.0;
};

Quaternion operator*(const Quaternion& a, const Quaternion& b);
Quaternion Conjugate(const Quaternion& q);
// A quaternion of length 0, or one that holds a NaN, becomes the identity.
Quaternion Normalized(const Quaternion& q);
// Of unit quaternions: the shorter way round, constant angular speed, unit result.
Quaternion Slerp(const Quaternion& a, const Quaternion& b, double part);
// The angle in radians, 0 to pi, between the orientations that two unit quaternions give.
double AngleBetween(const Quaternion& a, const Quaternion& b);
// The shortest turn that takes the unit vector `from` to the unit vector `to`.
Quaternion TurnBetween(const Vector& from, const Vector& to);

// An affine map, told by what it does: where the three unit axes and the origin
// go. These are the columns of a matrix for column vectors, and the rows of one
// for row vectors, so no reader has to know which convention the other end uses.
struct Matrix {
    Vector x{1.0, 0.0, 0.0};
    Vector y{0.0, 1.0, 0.0};
    Vector z{0.0, 0.0, 1.0};
    Vector origin;
};

Matrix operator*(const Matrix& a, const Matrix& b);
Vector MapPoint(const Matrix& m, const Vector& point);
Vector MapDirection(const Matrix& m, const Vector& direction);
double Determinant(const Matrix& m);
bool IsFinite(const Matrix& m);
// Of a unit quaternion; the origin stays.
Matrix RotationMatrix(const Quaternion& q);

// Stretches along the axes of `scaleAxes`, then turns, then moves. `scaleAxes` is
// the identity unless the matrix it came from holds shear; a mirrored one has
// three negative scales.
struct Transform {
    Vector translation;
    Quaternion rotation;
    Vector scale{1.0, 1.0, 1.0};
    Quaternion scaleAxes;
};

Matrix ToMatrix(const Transform& t);
// Every affine matrix can be had, shear and mirroring included; where an axis has
// collapsed to nothing, the rotation takes any direction that completes a frame.
Transform ToTransform(const Matrix& m);
bool HasShear(const Transform& t);
bool IsIdentity(const Transform& t);

}  // namespace maxhost::io
