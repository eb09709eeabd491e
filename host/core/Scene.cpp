#include "host/core/Scene.h"

#include <algorithm>
#include <string>
#include <utility>

#include "host/core/Node.h"

namespace maxhost {

namespace {

// About 140 MB of matrices at most.
constexpr std::size_t kCachedMatrices = 2'000'000;

// Parents before children, children in order.
std::vector<Node*> AllBelow(Node& top)
{
    std::vector<Node*> nodes;
    std::vector<Node*> pending{&top};
    while (!pending.empty()) {
        Node* node = pending.back();
        pending.pop_back();
        nodes.push_back(node);
        pending.insert(pending.end(), node->Children().rbegin(), node->Children().rend());
    }
    return nodes;
}

std::string NewName(Object* object, ULONG handle)
{
    MSTR className = "Node";
    if (object)
        object->GetClassName(className);
    const std::string number = std::to_string(handle);
    return className.data() + (number.size() < 2 ? "0" + number : number);
}

}  // namespace

Scene::Scene(ControllerMaker makeController)
    : m_MakeController(std::move(makeController)),
      m_WorldCaches(kCachedMatrices),
      m_Root(new Node(*this, ++m_LastHandle))
{
    char name[] = "Scene Root";
    m_Root->SetName(name);
}

Scene::~Scene()
{
    for (Node* node : AllBelow(*m_Root))
        delete node;
}

Node& Scene::AddNode(Object* object)
{
    const ULONG handle = ++m_LastHandle;
    Node* node = new Node(*this, handle);
    std::string name = NewName(object, handle - 1);
    node->SetName(name.data());
    node->SetTMController(m_MakeController());
    node->SetObjectRef(object);
    node->SetParent(m_Root);
    return *node;
}

void Scene::RemoveNode(Node& node)
{
    if (&node == m_Root)
        return;
    const std::vector<Node*> children = node.Children();
    for (Node* child : children)
        child->Detach(m_Time, TRUE);
    node.SetParent(nullptr);
    std::erase(m_Selection, &node);
    delete &node;
}

Node* Scene::FindNode(std::string_view name)
{
    const std::vector<Node*> nodes = AllBelow(*m_Root);
    const auto found =
        std::find_if(nodes.begin(), nodes.end(), [&](Node* node) { return node->GetName() == name; });
    return found != nodes.end() ? *found : nullptr;
}

void Scene::Select(Node& node)
{
    if (node.Selected())
        return;
    node.SetSelected(true);
    m_Selection.push_back(&node);
}

void Scene::ClearSelection()
{
    for (Node* node : m_Selection)
        node->SetSelected(false);
    m_Selection.clear();
}

void Scene::SetTicksPerFrame(int ticks)
{
    m_TicksPerFrame = std::clamp(ticks, 1, TIME_TICKSPERSEC);
}

}  // namespace maxhost
