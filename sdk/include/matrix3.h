#pragma once

#include "point3.h"

#define POS_IDENT 1
#define ROT_IDENT 2
#define SCL_IDENT 4
#define MAT_IDENT (POS_IDENT | ROT_IDENT | SCL_IDENT)

using MRow = float[3];

// Four rows of three, for row vectors: p * M = p.x row0 + p.y row1 + p.z row2 + row3.
// A * B lets A act first. The flags tell which parts are known to be identity;
// they are hints that only save work.
class CoreExport Matrix3 {
public:
    Matrix3() {}                         // leaves the values unset
    Matrix3(BOOL) { IdentityMatrix(); }  // whatever the argument
    Matrix3(float (*rows)[3]);
    Matrix3(const Point3& U, const Point3& V, const Point3& N, const Point3& T);

    const Point3& operator[](int i) const { return m[i]; }
    // Whoever writes through this calls SetNotIdent or ValidateFlags afterwards.
    MRow* GetAddr() { return reinterpret_cast<MRow*>(m); }
    const MRow* GetAddr() const { return reinterpret_cast<const MRow*>(m); }
    void ClearIdentFlag(DWORD f) { flags &= ~f; }
    void SetIdentFlags(DWORD f)
    {
        flags &= ~static_cast<DWORD>(MAT_IDENT);
        flags |= f;
    }
    DWORD GetIdentFlags() const { return flags; }
    void SetNotIdent() { flags &= ~static_cast<DWORD>(MAT_IDENT); }
    int IsIdentity() const { return (flags & MAT_IDENT) == MAT_IDENT; }
    void ValidateFlags();

    void IdentityMatrix();
    void Zero();
    Point3 GetRow(int i) const { return m[i]; }
    void SetRow(int i, Point3 p);
    void SetTrans(const Point3& p) { SetRow(3, p); }
    void SetTrans(int axis, float value);
    Point3 GetTrans() const { return GetRow(3); }
    void NoTrans();
    // Keeps the translation and the length of each axis.
    void NoRot();
    // Keeps the translation; the axes become one long.
    void NoScale();

    // On the right: after what the matrix does.
    void Translate(const Point3& p);
    void RotateX(float angle);
    void RotateY(float angle);
    void RotateZ(float angle);
    void Scale(const Point3& s, BOOL trans = FALSE);  // FALSE leaves the translation alone

    // On the left: in local space, before what the matrix does.
    void PreTranslate(const Point3& p);
    void PreRotateX(float angle);
    void PreRotateY(float angle);
    void PreRotateZ(float angle);
    void PreScale(const Point3& s, BOOL trans = FALSE);  // the translation is never touched

    Matrix3 operator*(const Matrix3& after) const;
    Matrix3& operator*=(const Matrix3& after) { return *this = *this * after; }
    int operator==(const Matrix3& other) const;

    // A singular matrix becomes the identity.
    void Invert();
    BOOL Parity() const;  // TRUE when left-handed
    Point3 PointTransform(const Point3& p) const;
    Point3 VectorTransform(const Point3& p) const;  // without the translation

private:
    Point3& operator[](int i) { return m[i]; }

    Point3 m[4];
    DWORD flags = 0;
};

CoreExport Matrix3 RotateXMatrix(float angle);
CoreExport Matrix3 RotateYMatrix(float angle);
CoreExport Matrix3 RotateZMatrix(float angle);
CoreExport Matrix3 TransMatrix(const Point3& p);
CoreExport Matrix3 ScaleMatrix(const Point3& s);
CoreExport Matrix3 Inverse(const Matrix3& m);

CoreExport Point3 operator*(const Matrix3& m, const Point3& p);
CoreExport Point3 operator*(const Point3& p, const Matrix3& m);  // the same
CoreExport Point3 VectorTransform(const Matrix3& m, const Point3& p);
CoreExport Point3 VectorTransform(const Point3& p, const Matrix3& m);
