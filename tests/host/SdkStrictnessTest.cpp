// What the vendor's headers refuse, ours must refuse: else a plug-in that builds here
// does not build there. Each refusal stands beside the form that is taken, so that none
// holds only because of a mistake in its wording.

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

// As plug-in sources do that only pass the pointer on.
class IObjParam;

#include "host/core/References.h"
#include "iparamb2.h"
#include "istdplug.h"
#include "max.h"
#include "modstack.h"
#include "stdmat.h"

namespace {

template <class A, class B>
concept Compared = requires(A a, B b)
{
    a == b;
};
template <class T>
concept AskedWhetherEmpty = requires(T value)
{
    value.Empty();
};
template <class T>
concept AskedForMaterial = requires(T face)
{
    face.getMatID();
};
template <class T>
concept AskedForVertex = requires(T face)
{
    face.getVert(0);
};
template <class T>
concept AskedForSmoothing = requires(T face)
{
    face.getSmGroup();
};
template <class T>
concept CutIntoTriangles = requires(T mesh, Mesh& out)
{
    mesh.OutToTri(out);
};
template <class T>
concept Deleted = requires(T* object)
{
    delete object;
};
template <class T>
concept EndedByItself = requires(T* object)
{
    object->DeleteThis();
};
template <class T>
concept ReferenceSet = requires(T* object)
{
    object->SetReference(0, nullptr);
};
template <class T>
concept ReferenceReplaced = requires(T* object)
{
    object->ReplaceReference(0, nullptr);
};
template <class T>
concept Notified = requires(T* object, PartID& part)
{
    object->NotifyRefChanged(FOREVER, nullptr, part, 0u);
};
template <class T>
concept NotifyingDependents = requires(T* object)
{
    object->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE, 0, TRUE, nullptr);
};

// Strings: against a literal, both conversions and both sides compete.
static_assert(!Compared<MSTR, const char (&)[2]>);
static_assert(!Compared<const MSTR&, const char (&)[2]>);
static_assert(Compared<MSTR, MSTR>);
static_assert(std::is_same_v<decltype(MSTR("a") + "b"), MSTR>);
static_assert(std::is_same_v<decltype(std::declval<const MSTR&>()[0]), char>);
static_assert(std::is_assignable_v<MSTR&, const wchar_t*>);

static_assert(!AskedWhetherEmpty<const Interval>);
static_assert(AskedWhetherEmpty<Interval>);
static_assert(!Compared<const Interval, Interval>);
static_assert(Compared<Interval, Interval>);

static_assert(!AskedForMaterial<const Face&> && AskedForMaterial<Face&>);
static_assert(!AskedForVertex<const Face&> && AskedForVertex<Face&>);
static_assert(!AskedForSmoothing<const Face&> && AskedForSmoothing<Face&>);
static_assert(!CutIntoTriangles<const MNMesh&> && CutIntoTriangles<MNMesh&>);
// A copy: what is assigned to it is lost.
static_assert(!std::is_reference_v<decltype(std::declval<MNMap&>().V(0))>);
static_assert(std::is_same_v<decltype(std::declval<MNMap&>().v), UVVert*>);

static_assert(!std::is_convertible_v<const Color, Point3> && std::is_convertible_v<Color&, Point3>);
static_assert(!std::is_convertible_v<const AColor, Color> && std::is_convertible_v<AColor&, Color>);
static_assert(!std::is_constructible_v<Point3, const float*> && std::is_constructible_v<Point3, float*>);
static_assert(!std::is_constructible_v<Quat, const float*> && std::is_constructible_v<Quat, float*>);
static_assert(!Compared<ScaleValue, ScaleValue> && Compared<Quat, Quat>);

// What is shared ends by DeleteThis or DeleteMe and has no copies.
static_assert(!Deleted<Animatable> && EndedByItself<Animatable>);
static_assert(!Deleted<ReferenceMaker> && EndedByItself<ReferenceMaker>);
static_assert(!Deleted<ReferenceTarget> && EndedByItself<ReferenceTarget>);
static_assert(!std::is_copy_constructible_v<TriObject> && std::is_default_constructible_v<TriObject>);
static_assert(!std::is_copy_assignable_v<PolyObject> && std::is_copy_assignable_v<MNMesh>);
static_assert(!ReferenceSet<ReferenceMaker> && ReferenceReplaced<ReferenceMaker>);
static_assert(!ReferenceSet<INode> && ReferenceReplaced<INode>);
static_assert(!Notified<ReferenceMaker> && !Notified<ReferenceTarget>);
static_assert(NotifyingDependents<ReferenceTarget>);

// An object that does not say what it does with messages is not finished.
template <class T>
struct Deaf : T {
    SClass_ID SuperClassID() override { return 0; }
};
template <class T>
struct Listening : Deaf<T> {
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }
};
static_assert(std::is_abstract_v<Deaf<ReferenceTarget>> && !std::is_abstract_v<Listening<ReferenceTarget>>);

static_assert(!std::is_convertible_v<Interface*, IObjParam*> &&
              std::is_convertible_v<IObjParam*, Interface*>);
static_assert(!std::is_base_of_v<InterfaceServer, ClassDesc>);
static_assert(
    std::is_same_v<decltype(std::declval<ClassDesc&>().GetInterface(Interface_ID())), FPInterface*>);
static_assert(std::is_void_v<decltype(std::declval<INode&>().SetTMController(nullptr))>);

// Results that an override must repeat to the letter.
static_assert(std::is_same_v<decltype(std::declval<INode&>().GetName()), char*>);
static_assert(std::is_same_v<decltype(std::declval<BaseObject&>().GetObjectName()), char*>);
static_assert(std::is_same_v<decltype(std::declval<BitmapTex&>().GetMapName()), char*>);
static_assert(std::is_same_v<decltype(std::declval<ClassDesc2&>().GetRsrcString(0)), char*>);
static_assert(std::is_same_v<decltype(std::declval<Interface&>().DeleteNode(nullptr)), unsigned int>);
static_assert(std::is_same_v<decltype(Class_ID() == Class_ID()), int>);

static_assert(std::is_base_of_v<BaseInterfaceServer, Mesh> &&
              std::is_base_of_v<InterfaceServer, LocalModData>);
static_assert(std::is_base_of_v<FPMixinInterface, BitmapTex>);
static_assert(!std::has_virtual_destructor_v<IKeyControl> && !std::has_virtual_destructor_v<IParamArray>);
static_assert(std::is_polymorphic_v<IKeyControl> && !std::is_destructible_v<IKeyControl>);

static_assert(ALL_CHANNELS == 0x800027FF);
static_assert(PART_ALL == static_cast<PartID>(static_cast<INT_PTR>(static_cast<INT>(0x800037FF))));
static_assert(MASTERBLOCK_SUPER_CLASS_ID == 0x9011);

#define TEXT_OF(...) TEXT_AS_IT_STANDS(__VA_ARGS__)
#define TEXT_AS_IT_STANDS(...) #__VA_ARGS__

TEST(SdkStrictness, TangentSettersAreBlocks)
{
    EXPECT_EQ(TEXT_OF(SetInTanType(f, 1))[0], '{');
    EXPECT_EQ(TEXT_OF(SetOutTanType(f, 1))[0], '{');
    DWORD flags = 0xffffffff;
    SetInTanType(flags, BEZKEY_LINEAR);
    SetOutTanType(flags, BEZKEY_FLAT);
    EXPECT_EQ(flags, 0xffffe000u | 6u << 10 | 1u << 7 | 0x7fu);
}

// The macro works in the type of its argument: a double keeps its digits.
TEST(SdkStrictness, TicksAreCountedInTheTypeOfTheSeconds)
{
    EXPECT_EQ(SecToTicks(100000.0001), 480000000);
    EXPECT_EQ(SecToTicks(3), 14400);
}

TEST(SdkStrictness, OnlyTheConstructorOfAnIntervalTurnsItsEnds)
{
    Interval turned(10, 5);
    EXPECT_EQ(turned.Start(), 5);
    EXPECT_EQ(turned.End(), 10);
    turned.Set(10, 5);
    EXPECT_EQ(turned.Start(), 10);
    EXPECT_EQ(turned.End(), 5);
    EXPECT_FALSE(Interval(TIME_NegInfinity, 0).InInterval(TIME_NegInfinity));
    EXPECT_TRUE(Interval(TIME_NegInfinity, 0).InInterval(-1));
}

TEST(SdkStrictness, AModifierIsSwitchedByItsBaseAlone)
{
    struct Mine final : Modifier {
        int IsEnabled() { return FALSE; }  // hides, and no virtual call ends here
        void ModifyObject(TimeValue, ModContext&, ObjectState*, INode*) override {}
        RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
        {
            return REF_SUCCEED;
        }
    } mine;
    EXPECT_FALSE(mine.IsEnabled());
    EXPECT_TRUE(static_cast<Modifier&>(mine).IsEnabled());
}

struct Data final : LocalModData {
    LocalModData* Clone() override { return new Data; }
};

TEST(SdkStrictness, AContextCopiesTheDataItIsGiven)
{
    Data data;
    const ModContext context(nullptr, nullptr, &data);
    EXPECT_NE(context.localData, nullptr);
    EXPECT_NE(context.localData, &data);
}

TEST(SdkStrictness, AMaterialAnswersItsSlots)
{
    Mtl* material = NewDefaultStdMat();
    EXPECT_EQ(material->GetInterface(I_SUBMAP), static_cast<ISubMap*>(material));
    EXPECT_EQ(material->GetInterface(I_CONTROL), nullptr);
    material->DeleteMe();
}

TEST(SdkStrictness, MessagesReachOneSuperClassWhenAskedFor)
{
    struct Hearer final : ReferenceMaker {
        SClass_ID SuperClassID() override { return MATERIAL_CLASS_ID; }
        RefResult NotifyRefChanged(Interval, RefTargetHandle target, PartID&, RefMessage) override
        {
            heard = target;
            return REF_SUCCEED;
        }
        RefTargetHandle heard = nullptr;
    } hearer;
    Mtl* target = NewDefaultStdMat();
    Mtl* other = NewDefaultStdMat();
    {
        const maxhost::Reference<Mtl> reference(hearer, target);
        target->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE, BASENODE_CLASS_ID);
        EXPECT_EQ(hearer.heard, nullptr);
        target->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE, MATERIAL_CLASS_ID);
        EXPECT_EQ(hearer.heard, target);
        target->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE, MATERIAL_CLASS_ID, TRUE, other);
        EXPECT_EQ(hearer.heard, other);
    }
    other->DeleteMe();
}

}  // namespace
