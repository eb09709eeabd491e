#pragma once

#include "matrix3.h"

// A turn about an axis, left-handed against the rotation matrices.
class CoreExport AngAxis {
public:
    Point3 axis;
    float angle;

    AngAxis() {}  // leaves the values unset
    AngAxis(const Point3& ax, float ang) : axis(ax), angle(ang) {}
};

// Turns by the left-hand rule relative to the rotation matrices: the quaternion of
// axis Z and angle a means RotateZMatrix(-a). Need not be of unit length.
class CoreExport Quat {
public:
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
    float w = 1.0f;

    Quat() = default;
    Quat(float X, float Y, float Z, float W) : x(X), y(Y), z(Z), w(W) {}
    Quat(double X, double Y, double Z, double W)
        : x(static_cast<float>(X)),
          y(static_cast<float>(Y)),
          z(static_cast<float>(Z)),
          w(static_cast<float>(W))
    {
    }
    Quat(float values[4]) : x(values[0]), y(values[1]), z(values[2]), w(values[3]) {}
    Quat(const Matrix3& m);
    Quat(const AngAxis& aa);
    Quat(const Point3& axis, float angle) : Quat(AngAxis(axis, angle)) {}

    float& operator[](int i) { return (&x)[i]; }
    const float& operator[](int i) const { return (&x)[i]; }

    void Identity();
    void Normalize();
    Quat& Invert();
    // The turn of this, then that of `after`: MakeMatrix of a product is the product
    // of the matrices.
    Quat operator*(const Quat& after) const;
    int operator==(const Quat& q) const { return x == q.x && y == q.y && z == q.z && w == q.w; }

    // With `flag` the transposed rotation: what a right-handed quaternion means for
    // row vectors.
    void MakeMatrix(Matrix3& mat, bool flag = false) const;
};

CoreExport Quat Inverse(const Quat& q);
CoreExport Quat Slerp(const Quat& p, const Quat& q, float t);
CoreExport void RotateMatrix(Matrix3& m, const Quat& q);     // on the right
CoreExport void PreRotateMatrix(Matrix3& m, const Quat& q);  // on the left
