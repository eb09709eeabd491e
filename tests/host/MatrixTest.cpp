#include "HostTest.h"

namespace {

constexpr float kQuarter = 1.57079633f;

TEST(Matrix3, RotationsFollowTheRightHandForRowVectors)
{
    ExpectNear(Point3(0, 1, 0) * RotateXMatrix(kQuarter), Point3(0, 0, 1));
    ExpectNear(Point3(0, 0, 1) * RotateYMatrix(kQuarter), Point3(1, 0, 0));
    ExpectNear(Point3(1, 0, 0) * RotateZMatrix(kQuarter), Point3(0, 1, 0));
}

TEST(Matrix3, RowsOfARotationAboutX)
{
    const Matrix3 m = RotateXMatrix(0.5f);
    ExpectNear(m.GetRow(0), Point3(1, 0, 0));
    ExpectNear(m.GetRow(1), Point3(0.0f, 0.87758256f, 0.47942554f));
    ExpectNear(m.GetRow(2), Point3(0.0f, -0.47942554f, 0.87758256f));
}

TEST(Matrix3, RowsOfARotationAboutY)
{
    const Matrix3 m = RotateYMatrix(0.5f);
    ExpectNear(m.GetRow(0), Point3(0.87758256f, 0.0f, -0.47942554f));
    ExpectNear(m.GetRow(2), Point3(0.47942554f, 0.0f, 0.87758256f));
}

TEST(Matrix3, AProductLetsTheLeftSideActFirst)
{
    const Matrix3 moveThenTurn = TransMatrix(Point3(1, 0, 0)) * RotateZMatrix(kQuarter);
    ExpectNear(Point3(0, 0, 0) * moveThenTurn, Point3(0, 1, 0));
    const Matrix3 turnThenMove = RotateZMatrix(kQuarter) * TransMatrix(Point3(1, 0, 0));
    ExpectNear(Point3(0, 0, 0) * turnThenMove, Point3(1, 0, 0));
}

TEST(Matrix3, PreOperationsActInLocalSpace)
{
    Matrix3 m = RotateZMatrix(kQuarter);
    m.PreTranslate(Point3(2, 0, 0));
    ExpectNear(m.GetTrans(), Point3(0, 2, 0));
    m.PreScale(Point3(3, 1, 1));
    ExpectNear(Point3(1, 0, 0) * m, Point3(0, 5, 0));
    m.PreRotateZ(-kQuarter);
    ExpectNear(m.GetRow(1), Point3(0, 3, 0));
}

TEST(Matrix3, OperationsOnTheRightActInWorldSpace)
{
    Matrix3 m = TransMatrix(Point3(1, 2, 3));
    m.RotateZ(kQuarter);
    ExpectNear(m.GetTrans(), Point3(-2, 1, 3));
    m.Scale(Point3(2, 2, 2));
    ExpectNear(m.GetTrans(), Point3(-2, 1, 3));
    ExpectNear(m.GetRow(0), Point3(0, 2, 0));
    m.Scale(Point3(2, 2, 2), TRUE);
    ExpectNear(m.GetTrans(), Point3(-4, 2, 6));
    m.Translate(Point3(4, 0, 0));
    ExpectNear(m.GetTrans(), Point3(0, 2, 6));
}

TEST(Matrix3, TheInverseUndoesAnAffineMap)
{
    const Matrix3 m(Point3(1.0f, 2.0f, 0.5f), Point3(-1.0f, 3.0f, 0.0f), Point3(0.0f, 0.25f, 2.0f),
                    Point3(10.0f, -4.0f, 7.0f));
    ExpectNear(m * Inverse(m), Matrix3(TRUE));
    ExpectNear(Point3(3, 4, 5) * m * Inverse(m), Point3(3, 4, 5), 1e-4f);
}

TEST(Matrix3, TheInverseOfASingularMatrixIsTheIdentity)
{
    Matrix3 m(TRUE);
    m.PreScale(Point3(1, 0, 1));
    m.SetTrans(Point3(5, 5, 5));
    m.Invert();
    EXPECT_TRUE(m == Matrix3(TRUE));
}

TEST(Matrix3, ParityTellsAMirroredMatrix)
{
    Matrix3 m = RotateXMatrix(1.0f);
    EXPECT_FALSE(m.Parity());
    m.PreScale(Point3(1, -2, 1));
    EXPECT_TRUE(m.Parity());
}

TEST(Matrix3, VectorsAreNotMoved)
{
    Matrix3 m = RotateZMatrix(kQuarter);
    m.SetTrans(Point3(9, 9, 9));
    ExpectNear(m.VectorTransform(Point3(1, 0, 0)), Point3(0, 1, 0));
    ExpectNear(VectorTransform(Point3(1, 0, 0), m), Point3(0, 1, 0));
}

TEST(Matrix3, NoRotKeepsTranslationAndLengths)
{
    Matrix3 m = RotateZMatrix(0.7f);
    m.PreScale(Point3(2, 3, 4));
    m.SetTrans(Point3(1, 2, 3));
    m.NoRot();
    ExpectNear(m, Matrix3(Point3(2, 0, 0), Point3(0, 3, 0), Point3(0, 0, 4), Point3(1, 2, 3)));
}

TEST(Matrix3, NoScaleKeepsDirections)
{
    Matrix3 m = RotateZMatrix(0.7f);
    m.PreScale(Point3(2, 3, 4));
    m.NoScale();
    ExpectNear(m, RotateZMatrix(0.7f));
}

TEST(Matrix3, WritingThroughTheAddressCountsAfterTheFlagsAreCleared)
{
    Matrix3 m(TRUE);
    m.GetAddr()[3][0] = 5.0f;
    m.SetNotIdent();
    ExpectNear((m * TransMatrix(Point3(0, 1, 0))).GetTrans(), Point3(5, 1, 0));
    m.IdentityMatrix();
    m.GetAddr()[0][0] = 2.0f;
    m.ValidateFlags();
    EXPECT_EQ(m.GetIdentFlags(), static_cast<DWORD>(POS_IDENT));
}

TEST(Quat, IsLeftHandedAgainstTheMatrices)
{
    Matrix3 m;
    Quat(AngAxis(Point3(0, 0, 1), 0.5f)).MakeMatrix(m);
    ExpectNear(m, RotateZMatrix(-0.5f));
    Quat(AngAxis(Point3(1, 0, 0), 0.5f)).MakeMatrix(m);
    ExpectNear(m, RotateXMatrix(-0.5f));
}

TEST(Quat, WithTheFlagMeansARightHandedQuaternion)
{
    Matrix3 m;
    const float half = 0.25f;
    Quat(0.0f, 0.0f, std::sin(half), std::cos(half)).MakeMatrix(m, true);
    ExpectNear(m, RotateZMatrix(0.5f));
}

TEST(Quat, MatrixEntriesAreThoseOfTheFormula)
{
    // A quarter and a bit about a skew axis, all components different.
    const Quat q(0.1f, 0.2f, 0.4f, 0.8885f);
    Matrix3 m;
    q.MakeMatrix(m);
    const float s = 2.0f / (0.01f + 0.04f + 0.16f + 0.8885f * 0.8885f);
    ExpectNear(m.GetRow(0),
               Point3(1 - s * (0.04f + 0.16f), s * (0.02f - 0.4f * 0.8885f), s * (0.04f + 0.2f * 0.8885f)));
    ExpectNear(m.GetRow(1),
               Point3(s * (0.02f + 0.4f * 0.8885f), 1 - s * (0.01f + 0.16f), s * (0.08f - 0.1f * 0.8885f)));
    ExpectNear(m.GetRow(2),
               Point3(s * (0.04f - 0.2f * 0.8885f), s * (0.08f + 0.1f * 0.8885f), 1 - s * (0.01f + 0.04f)));
}

TEST(Quat, NeedsNotBeOfUnitLength)
{
    Matrix3 unit;
    Matrix3 longer;
    Quat(0.1f, 0.2f, 0.3f, 0.9f).MakeMatrix(unit);
    Quat(0.5f, 1.0f, 1.5f, 4.5f).MakeMatrix(longer);
    ExpectNear(longer, unit);
}

TEST(Quat, ComesBackFromItsMatrixInEveryQuadrant)
{
    const float angles[] = {0.0f, 0.4f, 1.5f, 3.0f, 3.14159265f, -2.5f};
    for (const Point3& axis : {Point3(1, 0, 0), Point3(0, 1, 0), Point3(0, 0, 1), Point3(0.6f, 0.0f, 0.8f),
                               Point3(-0.48f, 0.6f, 0.64f)})
        for (const float angle : angles) {
            Matrix3 expected;
            Matrix3 actual;
            Quat(AngAxis(axis, angle)).MakeMatrix(expected);
            Quat(expected).MakeMatrix(actual);
            ExpectNear(actual, expected, 1e-5f);
        }
}

TEST(Quat, OfARightHandedMatrixIsTheConjugate)
{
    const Quat q(RotateZMatrix(0.5f));
    EXPECT_NEAR(q.z, -std::sin(0.25f), 1e-6f);
    EXPECT_NEAR(q.w, std::cos(0.25f), 1e-6f);
}

TEST(Quat, AProductIsTheProductOfTheMatrices)
{
    const Quat a(AngAxis(Point3(1, 0, 0), 0.5f));
    const Quat b(AngAxis(Point3(0.0f, 0.6f, 0.8f), 1.1f));
    Matrix3 ma, mb, mab;
    a.MakeMatrix(ma);
    b.MakeMatrix(mb);
    (a * b).MakeMatrix(mab);
    ExpectNear(mab, ma * mb);
}

TEST(Quat, PreRotateMatrixWorksOnTheLeft)
{
    Matrix3 m = TransMatrix(Point3(1, 0, 0));
    const Quat q(AngAxis(Point3(0, 0, 1), kQuarter));
    PreRotateMatrix(m, q);
    ExpectNear(m.GetTrans(), Point3(1, 0, 0));
    RotateMatrix(m, q);
    ExpectNear(m.GetTrans(), Point3(0, -1, 0));
}

TEST(Quat, SlerpTakesTheShorterWay)
{
    const Quat a(AngAxis(Point3(0, 0, 1), 0.2f));
    Quat b(AngAxis(Point3(0, 0, 1), 1.0f));
    b = Quat(-b.x, -b.y, -b.z, -b.w);
    Matrix3 m;
    Slerp(a, b, 0.25f).MakeMatrix(m);
    ExpectNear(m, RotateZMatrix(-0.4f));
}

TEST(ApplyScaling, ScalesAlongTheAxesOfTheTurn)
{
    // Axes turned by 45 degrees about Z: a stretch along the diagonal.
    Matrix3 m = TransMatrix(Point3(7, 0, 0));
    ApplyScaling(m, ScaleValue(Point3(3, 1, 1), Quat(AngAxis(Point3(0, 0, 1), -kQuarter / 2))));
    ExpectNear(Point3(1, 1, 0) * m, Point3(10, 3, 0), 1e-4f);
    ExpectNear(Point3(1, -1, 0) * m, Point3(8, -1, 0), 1e-4f);
}

}  // namespace
