#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "control.h"
#include "host/core/WorldCache.h"
#include "interval.h"
#include "object.h"

namespace maxhost {

class Node;

// The nodes, what is selected, and the clock.
class CoreExport Scene {
public:
    // `makeController` makes the transform controller of a new node. The scene knows
    // no class of controller; its owner does.
    using ControllerMaker = std::function<Control*()>;
    explicit Scene(ControllerMaker makeController);
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    // Deletes the nodes, and with them what only they refer to.
    ~Scene();

    Node& GetRoot() { return *m_Root; }
    // A new node below the root, with a controller from the maker and a name from the
    // object's class.
    Node& AddNode(Object* object);
    // Its children go to the root and stay where they are. The root stays.
    void RemoveNode(Node& node);
    // The first of the name, parents before children; null when there is none.
    Node* FindNode(std::string_view name);

    const std::vector<Node*>& GetSelection() const { return m_Selection; }
    void Select(Node& node);
    void ClearSelection();

    TimeValue GetTime() const { return m_Time; }
    void SetTime(TimeValue t) { m_Time = t; }
    Interval GetAnimRange() const { return m_AnimRange; }
    void SetAnimRange(Interval range) { m_AnimRange = range; }
    int GetTicksPerFrame() const { return m_TicksPerFrame; }
    // From 1 to TIME_TICKSPERSEC; others are moved there.
    void SetTicksPerFrame(int ticks);

    bool IsAnimating() const { return m_Animate && m_Suspended == 0; }
    void SetAnimate(bool on) { m_Animate = on; }
    void SuspendAnimate() { ++m_Suspended; }
    void ResumeAnimate() { --m_Suspended; }

    WorldCachePool& GetWorldCaches() { return m_WorldCaches; }

private:
    ControllerMaker m_MakeController;
    WorldCachePool m_WorldCaches;
    ULONG m_LastHandle = 0;
    Node* m_Root;
    std::vector<Node*> m_Selection;
    TimeValue m_Time = 0;
    Interval m_AnimRange = Interval(0, 100 * 160);
    int m_TicksPerFrame = 160;
    bool m_Animate = false;
    int m_Suspended = 0;
};

}  // namespace maxhost
