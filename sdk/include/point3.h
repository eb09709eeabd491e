#pragma once

#include <cmath>

#include "maxtypes.h"

class Point3 {
public:
    float x, y, z;

    Point3() {}  // leaves the values unset
    Point3(float X, float Y, float Z) : x(X), y(Y), z(Z) {}
    Point3(double X, double Y, double Z)
        : x(static_cast<float>(X)), y(static_cast<float>(Y)), z(static_cast<float>(Z))
    {
    }
    Point3(int X, int Y, int Z) : x(static_cast<float>(X)), y(static_cast<float>(Y)), z(static_cast<float>(Z))
    {
    }
    Point3(float values[3]) : x(values[0]), y(values[1]), z(values[2]) {}

    operator float*() { return &x; }
    float& operator[](int i) { return (&x)[i]; }
    const float& operator[](int i) const { return (&x)[i]; }

    Point3 operator-() const { return Point3(-x, -y, -z); }
    Point3 operator+(const Point3& p) const { return Point3(x + p.x, y + p.y, z + p.z); }
    Point3 operator-(const Point3& p) const { return Point3(x - p.x, y - p.y, z - p.z); }
    Point3 operator*(const Point3& p) const { return Point3(x * p.x, y * p.y, z * p.z); }
    Point3 operator/(const Point3& p) const { return Point3(x / p.x, y / p.y, z / p.z); }
    Point3& operator+=(const Point3& p) { return *this = *this + p; }
    Point3& operator-=(const Point3& p) { return *this = *this - p; }
    Point3& operator*=(float f) { return *this = Point3(x * f, y * f, z * f); }
    Point3& operator/=(float f) { return *this = Point3(x / f, y / f, z / f); }

    float operator%(const Point3& p) const { return x * p.x + y * p.y + z * p.z; }  // dot
    Point3 operator^(const Point3& p) const                                         // cross
    {
        return Point3(y * p.z - z * p.y, z * p.x - x * p.z, x * p.y - y * p.x);
    }
    int operator==(const Point3& p) const { return x == p.x && y == p.y && z == p.z; }
    int operator!=(const Point3& p) const { return !(*this == p); }

    float Length() const { return std::sqrt(*this % *this); }
    float FLength() const { return Length(); }
    // In place; a vector of no length stays as it is.
    Point3& Unify()
    {
        const float length = Length();
        if (length != 0.0f)
            *this /= length;
        return *this;
    }
    Point3 Normalize() const { return Point3(*this).Unify(); }
};

inline Point3 operator*(const Point3& p, float f)
{
    return Point3(p.x * f, p.y * f, p.z * f);
}
inline Point3 operator*(float f, const Point3& p)
{
    return p * f;
}
inline Point3 operator/(const Point3& p, float f)
{
    return Point3(p.x / f, p.y / f, p.z / f);
}
inline Point3 operator+(const Point3& p, float f)
{
    return Point3(p.x + f, p.y + f, p.z + f);
}
inline Point3 operator-(const Point3& p, float f)
{
    return Point3(p.x - f, p.y - f, p.z - f);
}
inline Point3 Normalize(const Point3& p)
{
    return p.Normalize();
}
inline float Length(const Point3& p)
{
    return p.Length();
}
inline float DotProd(const Point3& a, const Point3& b)
{
    return a % b;
}
inline Point3 CrossProd(const Point3& a, const Point3& b)
{
    return a ^ b;
}

using UVVert = Point3;
using VertColor = Point3;
