#include "HostTest.h"

#include "host/core/References.h"

namespace {

using maxhost::Reference;
using maxhost::ReferenceSlot;
using maxhost::SceneObjects;

int g_alive = 0;

// Refers to one other of its kind and counts messages.
class Link final : public ReferenceTarget {
public:
    explicit Link(ReferenceSlot::Hold hold = ReferenceSlot::Hold::Share) : next(*this, hold) { ++g_alive; }
    ~Link() override { --g_alive; }
    SClass_ID SuperClassID() override { return REF_TARGET_CLASS_ID; }
    int NumRefs() override { return 1; }
    RefTargetHandle GetReference(int) override { return next.Get(); }
    void SetReference(int, RefTargetHandle target) override { next.Set(static_cast<Link*>(target)); }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        ++messages;
        return REF_SUCCEED;
    }

    Reference<Link> next;
    int messages = 0;
};

class ReferenceTest : public HostTest {
protected:
    ReferenceTest() { g_alive = 0; }
    ~ReferenceTest() override { EXPECT_EQ(g_alive, 0); }
};

TEST_F(ReferenceTest, ATargetDiesWithTheLastReference)
{
    Link* target = new Link;
    Link a, b;
    a.next.Set(target);
    b.ReplaceReference(0, target);
    EXPECT_TRUE(target->HasDependents());
    a.next.Set(nullptr);
    EXPECT_EQ(g_alive, 3);
    b.next.Set(nullptr);
    EXPECT_EQ(g_alive, 2);
}

TEST_F(ReferenceTest, DeleteMeLeavesWhatIsStillReferredTo)
{
    Link* target = new Link;
    Link holder;
    holder.next.Set(target);
    target->DeleteMe();
    EXPECT_EQ(g_alive, 2);
    holder.next.Set(nullptr);
    EXPECT_EQ(g_alive, 1);
    (new Link)->DeleteMe();
    EXPECT_EQ(g_alive, 1);
}

TEST_F(ReferenceTest, WatchingDoesNotKeepAliveAndEndsAsNull)
{
    Link* target = new Link;
    Link watcher(ReferenceSlot::Hold::Watch);
    watcher.next.Set(target);
    target->DeleteMe();
    EXPECT_EQ(watcher.next.Get(), nullptr);
}

TEST_F(ReferenceTest, MessagesGoToAllThatRefer)
{
    Link* target = new Link;
    Link a, b;
    Link c(ReferenceSlot::Hold::Watch);
    a.next.Set(target);
    b.next.Set(target);
    c.next.Set(target);
    target->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    EXPECT_EQ(a.messages, 1);
    EXPECT_EQ(b.messages, 1);
    EXPECT_EQ(c.messages, 1);
}

TEST_F(ReferenceTest, ALongChainDiesWithoutRecursion)
{
    Link* first = nullptr;
    for (int i = 0; i < 1000000; ++i) {
        Link* link = new Link;
        link->next.Set(first);
        first = link;
    }
    first->DeleteMe();
    EXPECT_EQ(g_alive, 0);
}

TEST_F(ReferenceTest, AdoptedObjectsDieWhenTheSceneCloses)
{
    SceneObjects::Adopt(new Link);
    Link* held = SceneObjects::Adopt(new Link);
    SceneObjects::Adopt(new Link)->next.Set(held);
    (SceneObjects::Adopt(new Link))->DeleteMe();
    EXPECT_EQ(SceneObjects::Count(), 3u);
    Host().Reset();
    EXPECT_EQ(g_alive, 0);
    EXPECT_EQ(SceneObjects::Count(), 0u);
}

}  // namespace
