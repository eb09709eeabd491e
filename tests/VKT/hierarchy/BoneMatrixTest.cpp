#include <array>
#include <cmath>

#include "VKT/hierarchy/Joint.h"
#include "VKT/support/NodeTest.h"

// The matrices of bones and joints, against formulas computed here in double precision.

using namespace VKT;
using namespace VKT::Test;

namespace {

// [row][column], acting on column vectors.
using Matrix = std::array<std::array<double, 4>, 4>;

Matrix Identity()
{
    return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
}

Matrix operator*(const Matrix& a, const Matrix& b)
{
    Matrix product{};
    for (std::size_t r = 0; r < 4; ++r)
        for (std::size_t c = 0; c < 4; ++c)
            for (std::size_t k = 0; k < 4; ++k)
                product[r][c] += a[r][k] * b[k][c];
    return product;
}

Matrix Translation(const XVector3& v, double sign = 1)
{
    Matrix m = Identity();
    m[0][3] = sign * v.x;
    m[1][3] = sign * v.y;
    m[2][3] = sign * v.z;
    return m;
}

Matrix Scale(const XVector3& v)
{
    Matrix m = Identity();
    m[0][0] = v.x;
    m[1][1] = v.y;
    m[2][2] = v.z;
    return m;
}

Matrix InverseScale(const XVector3& v)
{
    Matrix m = Identity();
    m[0][0] = 1.0 / v.x;
    m[1][1] = 1.0 / v.y;
    m[2][2] = 1.0 / v.z;
    return m;
}

Matrix Shear(const XVector3& v)
{
    Matrix m = Identity();
    m[0][1] = v.x;
    m[0][2] = v.y;
    m[1][2] = v.z;
    return m;
}

// The columns are the turned axes: q x axis x conjugate of q.
Matrix Rotation(const XQuaternion& quaternion)
{
    const double q[4] = {quaternion.x, quaternion.y, quaternion.z, quaternion.w};
    Matrix m = Identity();
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double v[3] = {0, 0, 0};
        v[axis] = 1;
        const double t[3] = {2 * (q[1] * v[2] - q[2] * v[1]), 2 * (q[2] * v[0] - q[0] * v[2]),
                             2 * (q[0] * v[1] - q[1] * v[0])};
        const double turned[3] = {v[0] + q[3] * t[0] + q[1] * t[2] - q[2] * t[1],
                                  v[1] + q[3] * t[1] + q[2] * t[0] - q[0] * t[2],
                                  v[2] + q[3] * t[2] + q[0] * t[1] - q[1] * t[0]};
        for (std::size_t r = 0; r < 3; ++r)
            m[r][axis] = turned[r];
    }
    return m;
}

Matrix LocalOf(const XBone& bone)
{
    return Translation(bone.GetTranslate(false)) * Translation(bone.GetRotatePivotTranslate()) *
           Translation(bone.GetRotatePivot()) * Rotation(bone.GetRotation(false)) *
           Rotation(bone.GetRotationOrient()) * Translation(bone.GetRotatePivot(), -1) *
           Translation(bone.GetScalePivotTranslate()) * Translation(bone.GetScalePivot()) *
           Shear(bone.GetShearing()) * Scale(bone.GetScale(false)) * Translation(bone.GetScalePivot(), -1);
}

Matrix LocalOf(const XJoint& joint, const Matrix& undoneScale)
{
    return Translation(joint.GetTranslate(false)) * undoneScale * Rotation(joint.GetJointOrient()) *
           Rotation(joint.GetRotation(false)) * Rotation(joint.GetRotationOrient()) *
           Scale(joint.GetScale(false));
}

void ExpectNear(const XMatrix& m, const Matrix& expected, double tolerance = 2e-5)
{
    for (std::size_t c = 0; c < 4; ++c)
        for (std::size_t r = 0; r < 4; ++r)
            EXPECT_NEAR(m[4 * c + r], expected[r][c], tolerance) << "row " << r << ", column " << c;
}

XQuaternion Turn(double x, double y, double z, double radians)
{
    const double length = std::sqrt(x * x + y * y + z * z);
    const double sine = std::sin(radians / 2) / length;
    return {static_cast<f32>(x * sine), static_cast<f32>(y * sine), static_cast<f32>(z * sine),
            static_cast<f32>(std::cos(radians / 2))};
}

// A pose in which every part matters, different for each seed.
void Pose(XBone& bone, f32 seed)
{
    bone.SetTranslate({1 + seed, -2, 3 - seed, 0});
    bone.SetRotation(Turn(1, 2, 3 + seed, 0.7 + seed));
    bone.SetScale({1.5f, 0.75f, 1.25f + seed, 0});
    bone.SetRotationOrient(Turn(-1, 1, 2, 0.4));
    bone.SetJointOrient(Turn(2, -1, 1 + seed, 1.1));
    bone.SetRotatePivot({0.5f, 0.25f, -0.75f, 0});
    bone.SetRotatePivotTranslate({0.1f, 0.2f, 0.3f + seed, 0});
    bone.SetScalePivot({-0.4f, 0.6f, 0.8f, 0});
    bone.SetScalePivotTranslate({0.7f, -0.9f, 0.15f, 0});
    bone.SetShearing({0.35f, -0.45f, 0.55f, 0});
}

class BoneMatrix : public NodeTest {
protected:
    template <class T = XBone>
    T& New(XBone* parent = nullptr)
    {
        T& bone = *m_Model.CreateNode<T>();
        if (parent)
            parent->AddChild(&bone);
        return bone;
    }
};

TEST_F(BoneMatrix, LocalIsTheProductOfAllParts)
{
    XBone& bone = New();
    Pose(bone, 0.5f);
    bone.UpdateWorldMatrix(kIdentityMatrix, false);
    ExpectNear(bone.GetLocal(false), LocalOf(bone));
    ExpectNear(bone.GetWorld(false), LocalOf(bone));
}

TEST_F(BoneMatrix, JointOrientTakesNoPartInABoneAndPivotsNoneInAJoint)
{
    XBone& bone = New();
    Pose(bone, 0.5f);
    bone.UpdateWorldMatrix(kIdentityMatrix, false);
    const XMatrix before = bone.GetLocal(false);
    bone.SetJointOrient({1, 0, 0, 0});
    bone.UpdateWorldMatrix(kIdentityMatrix, false);
    EXPECT_EQ(bone.GetLocal(false), before);

    XJoint& joint = New<XJoint>();
    Pose(joint, 0.5f);
    joint.UpdateWorldMatrix(kIdentityMatrix, false);
    const XMatrix withPivots = joint.GetLocal(false);
    joint.SetShearing({9, 9, 9, 0});
    joint.SetScalePivot({9, 9, 9, 0});
    joint.SetRotatePivot({9, 9, 9, 0});
    joint.SetScalePivotTranslate({9, 9, 9, 0});
    joint.SetRotatePivotTranslate({9, 9, 9, 0});
    joint.UpdateWorldMatrix(kIdentityMatrix, false);
    EXPECT_EQ(joint.GetLocal(false), withPivots);
}

TEST_F(BoneMatrix, RootJointHasNothingToUndo)
{
    XJoint& joint = New<XJoint>();
    Pose(joint, 0.25f);
    joint.UpdateWorldMatrix(kIdentityMatrix, false);
    ExpectNear(joint.GetLocal(false), LocalOf(joint, Identity()));
}

TEST_F(BoneMatrix, JointUndoesTheScaleOfItsParent)
{
    XBone& parent = New();
    Pose(parent, 0.5f);
    XJoint& joint = New<XJoint>(&parent);
    Pose(joint, 0.25f);
    parent.UpdateWorldMatrix(kIdentityMatrix, true);
    ExpectNear(joint.GetLocal(false), LocalOf(joint, InverseScale(parent.GetScale(false))));
    ExpectNear(joint.GetWorld(false), LocalOf(parent) * LocalOf(joint, InverseScale(parent.GetScale(false))),
               1e-4);

    joint.SetSegmentScaleCompensate(false);
    parent.UpdateWorldMatrix(kIdentityMatrix, true);
    ExpectNear(joint.GetLocal(false), LocalOf(joint, Identity()));
}

TEST_F(BoneMatrix, ScaleThatCannotBeInvertedIsNotUndone)
{
    XBone& parent = New();
    XJoint& joint = New<XJoint>(&parent);
    Pose(joint, 0.25f);
    for (const XVector3 scale : {XVector3{0, 1, 1, 0}, XVector3{0.07f, 0.07f, 0.07f, 0}}) {
        parent.SetScale(scale);
        parent.UpdateWorldMatrix(kIdentityMatrix, true);
        ExpectNear(joint.GetLocal(false), LocalOf(joint, Identity()));
    }
    parent.SetScale({0.08f, 0.08f, 0.08f, 0});  // determinant 0.000512
    parent.UpdateWorldMatrix(kIdentityMatrix, true);
    ExpectNear(joint.GetLocal(false), LocalOf(joint, InverseScale(parent.GetScale(false))), 1e-4);
}

TEST_F(BoneMatrix, InverseAndItsTransposeFollowTheWorld)
{
    XBone& parent = New();
    Pose(parent, 0.5f);
    XBone& bone = New(&parent);
    Pose(bone, 0.25f);
    parent.UpdateWorldMatrix(kIdentityMatrix, true);
    ExpectNear(bone.GetWorld(false) * bone.GetInverseWorld(false), Identity(), 1e-4);
    for (std::size_t c = 0; c < 4; ++c)
        for (std::size_t r = 0; r < 4; ++r)
            EXPECT_EQ(bone.GetInverseTransposeWorld(false)[4 * c + r],
                      bone.GetInverseWorld(false)[4 * r + c]);
}

TEST_F(BoneMatrix, BoneScaledToNothingKeepsItsLastInverse)
{
    XBone& bone = New();
    bone.SetScale({2, 4, 8, 0});
    bone.UpdateWorldMatrix(kIdentityMatrix, false);
    const XMatrix inverse = bone.GetInverseWorld(false);
    EXPECT_EQ(inverse, (XMatrix{{0.5f, 0, 0, 0, 0, 0.25f, 0, 0, 0, 0, 0.125f, 0, 0, 0, 0, 1}}));
    bone.SetScale({0, 4, 8, 0});
    bone.UpdateWorldMatrix(kIdentityMatrix, false);
    EXPECT_EQ(bone.GetWorld(false)[0], 0);
    EXPECT_EQ(bone.GetInverseWorld(false), inverse);
}

TEST_F(BoneMatrix, BoneThatInheritsNothingStillHandsItsWorldDown)
{
    XBone& parent = New();
    Pose(parent, 0.5f);
    XBone& bone = New(&parent);
    Pose(bone, 0.25f);
    bone.SetInheritsTransform(false);
    XBone& child = New(&bone);
    Pose(child, 0.75f);
    parent.UpdateWorldMatrix(kIdentityMatrix, true);
    ExpectNear(bone.GetWorld(false), LocalOf(bone));
    ExpectNear(child.GetWorld(false), LocalOf(bone) * LocalOf(child), 1e-4);
}

TEST_F(BoneMatrix, GivenParentMatrixComesFirst)
{
    XBone& bone = New();
    Pose(bone, 0.5f);
    XMatrix quarterTurn{{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1}};
    bone.UpdateWorldMatrix(quarterTurn, false);
    const Matrix turn{{{0, -1, 0, 10}, {1, 0, 0, 20}, {0, 0, 1, 30}, {0, 0, 0, 1}}};
    ExpectNear(bone.GetWorld(false), turn * LocalOf(bone));
}

TEST_F(BoneMatrix, WithoutRecursionChildrenStay)
{
    XBone& parent = New();
    XBone& child = New(&parent);
    parent.SetTranslate({1, 2, 3, 0});
    parent.UpdateWorldMatrix(kIdentityMatrix, false);
    EXPECT_EQ(child.GetWorld(false), kIdentityMatrix);
}

TEST_F(BoneMatrix, BindMatricesTakeNoPart)
{
    XBone& bone = New();
    Pose(bone, 0.5f);
    bone.UpdateWorldMatrix(kIdentityMatrix, true);
    EXPECT_EQ(bone.GetWorld(true), kIdentityMatrix);
    EXPECT_EQ(bone.GetLocal(true), kIdentityMatrix);
    bone.CopyMatricesToBind();
    EXPECT_EQ(bone.GetWorld(true), bone.GetWorld(false));
    EXPECT_EQ(bone.GetLocal(true), bone.GetLocal(false));
    EXPECT_EQ(bone.GetInverseWorld(true), bone.GetInverseWorld(false));
    EXPECT_EQ(bone.GetInverseTransposeWorld(true), bone.GetInverseTransposeWorld(false));
}

TEST_F(BoneMatrix, BindFromCurrentIsPlainScaleRotationTranslation)
{
    XBone& bone = New();
    Pose(bone, 0.5f);
    bone.SetBindFromCurrent();
    EXPECT_EQ(bone.GetRotation(true), bone.GetRotation(false));
    EXPECT_EQ(bone.GetTranslate(true), bone.GetTranslate(false));
    EXPECT_EQ(bone.GetScale(true), bone.GetScale(false));
    ExpectNear(bone.GetLocal(false), Translation(bone.GetTranslate(false)) *
                                         Rotation(bone.GetRotation(false)) * Scale(bone.GetScale(false)));
    EXPECT_EQ(bone.GetLocal(true), bone.GetLocal(false));
    EXPECT_EQ(bone.GetWorld(true), kIdentityMatrix);
}

TEST_F(BoneMatrix, BoneUnderTwoParentsEndsWithItsLastVisit)
{
    XBone& root = New();
    XBone& first = New(&root);
    XBone& second = New(&root);
    XBone& shared = New(&first);
    XBone& below = New(&shared);
    second.AddChildren({&shared});
    first.SetTranslate({1, 0, 0, 0});
    second.SetTranslate({2, 0, 0, 0});
    below.SetTranslate({0, 5, 0, 0});
    root.UpdateWorldMatrix(kIdentityMatrix, true);
    EXPECT_EQ(shared.GetWorld(false)[12], 2);
    // The edge below it is walked once, on the first visit.
    EXPECT_EQ(below.GetWorld(false)[12], 1);
    EXPECT_EQ(below.GetWorld(false)[13], 5);
}

TEST_F(BoneMatrix, RingEndsAfterEachOfItsEdges)
{
    XBone& a = New();
    XBone& b = New(&a);
    XBone& c = New(&b);
    c.AddChildren({&a});
    a.SetTranslate({1, 0, 0, 0});
    b.SetTranslate({2, 0, 0, 0});
    c.SetTranslate({4, 0, 0, 0});
    a.UpdateWorldMatrix(kIdentityMatrix, true);
    EXPECT_EQ(b.GetWorld(false)[12], 3);
    EXPECT_EQ(c.GetWorld(false)[12], 7);
    EXPECT_EQ(a.GetWorld(false)[12], 8);  // once more, below c

    XBone& own = New();
    own.SetTranslate({1, 0, 0, 0});
    own.AddChildren({&own, &own});
    own.UpdateWorldMatrix(kIdentityMatrix, true);
    EXPECT_EQ(own.GetWorld(false)[12], 2);
}

TEST_F(BoneMatrix, ChildrenThatAreNoBonesAreSkipped)
{
    const XBase* mesh = m_Model.CreateNode(kFnPolygonMesh);
    XBone& root = New();
    XBone& child = New();
    child.SetTranslate({3, 0, 0, 0});
    const std::string text = TextOf(root);
    const std::string ids = std::to_string(mesh->GetID()) + " 99 " + std::to_string(child.GetID());
    ASSERT_TRUE(ReadText(root, Replaced(text, "child_joints 0\n", "child_joints 3 " + ids + "\n")));
    root.SetTranslate({4, 0, 0, 0});
    root.UpdateWorldMatrix(kIdentityMatrix, true);
    EXPECT_EQ(child.GetWorld(false)[12], 7);
}

TEST_F(BoneMatrix, ChainOfManyBonesIsBuiltAndUpdatedWithoutRecursion)
{
    constexpr int kDepth = 100'000;
    XBone* bone = &New();
    XBone* const root = bone;
    for (int i = 1; i < kDepth; ++i) {
        XBone& child = New(bone);
        child.SetTranslate({1, 0, 0, 0});
        bone = &child;
    }
    root->UpdateWorldMatrix(kIdentityMatrix, true);
    EXPECT_EQ(bone->GetWorld(false)[12], kDepth - 1);
    EXPECT_TRUE(root->HasDescendant(bone));
}

}  // namespace
