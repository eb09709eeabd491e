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

    Node& GetRoot() { return *m_root; }
    // A new node below the root, with a controller from the maker and a name from the
    // object's class.
    Node& AddNode(Object* object);
    // Its children go to the root and stay where they are. The root stays.
    void RemoveNode(Node& node);
    // The first of the name, parents before children; null when there is none.
    Node* FindNode(std::string_view name);

    const std::vector<Node*>& GetSelection() const { return m_selection; }
    void Select(Node& node);
    void ClearSelection();

    TimeValue GetTime() const { return m_time; }
    void SetTime(TimeValue t) { m_time = t; }
    Interval GetAnimRange() const { return m_animRange; }
    void SetAnimRange(Interval range) { m_animRange = range; }
    int GetTicksPerFrame() const { return m_ticksPerFrame; }
    // From 1 to TIME_TICKSPERSEC; others are moved there.
    void SetTicksPerFrame(int ticks);

    bool IsAnimating() const { return m_animate && m_suspended == 0; }
    void SetAnimate(bool on) { m_animate = on; }
    void SuspendAnimate() { ++m_suspended; }
    void ResumeAnimate() { --m_suspended; }

    WorldCachePool& GetWorldCaches() { return m_worldCaches; }

private:
    ControllerMaker m_makeController;
    WorldCachePool m_worldCaches;
    ULONG m_lastHandle = 0;
    Node* m_root;
    std::vector<Node*> m_selection;
    TimeValue m_time = 0;
    Interval m_animRange = Interval(0, 100 * 160);
    int m_ticksPerFrame = 160;
    bool m_animate = false;
    int m_suspended = 0;
};

}  // namespace maxhost
