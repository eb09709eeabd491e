#include "host/core/Node.h"

#include "host/core/Scene.h"

namespace maxhost {

Node::Node(Scene& scene, ULONG handle)
    : m_scene(scene),
      m_handle(handle),
      m_controller(*this),
      m_object(*this),
      m_material(*this),
      m_world(scene.GetWorldCaches())
{
}

Node::~Node() = default;

void Node::DeleteThis()
{
    m_scene.RemoveNode(*this);
}

RefTargetHandle Node::GetReference(int i)
{
    switch (i) {
        case 0:
            return m_controller.Get();
        case 1:
            return m_object.Get();
        case 2:
            return m_material.Get();
        default:
            return nullptr;
    }
}

void Node::SetReference(int i, RefTargetHandle target)
{
    switch (i) {
        case 0:
            SetTMController(static_cast<Control*>(target));
            break;
        case 1:
            SetObjectRef(static_cast<Object*>(target));
            break;
        case 2:
            SetMtl(static_cast<Mtl*>(target));
            break;
    }
}

RefResult Node::NotifyRefChanged(Interval, RefTargetHandle target, PartID&, RefMessage message)
{
    if (message == REFMSG_CHANGE && target == m_controller.Get())
        InvalidateTreeTM();
    return REF_SUCCEED;
}

Matrix3 Node::GetNodeTM(TimeValue t, Interval* valid)
{
    const WorldCache::Entry world = EvaluateWorld(t);
    if (valid)
        *valid &= world.valid;
    return world.tm;
}

WorldCache::Entry Node::EvaluateWorld(TimeValue t)
{
    WorldCache::Entry world{FOREVER, Matrix3(TRUE)};
    std::vector<Node*> unknown;
    for (Node* node = this; node; node = node->m_parent) {
        if (const WorldCache::Entry* known = node->m_world.Find(t)) {
            world = *known;
            break;
        }
        unknown.push_back(node);
    }
    for (; !unknown.empty(); unknown.pop_back()) {
        Node& node = *unknown.back();
        if (node.m_controller)
            node.m_controller->GetValue(t, &world.tm, world.valid, CTRL_RELATIVE);
        node.m_world.Add(t, world);
        node.m_evaluated = true;
    }
    return world;
}

void Node::SetNodeTM(TimeValue t, Matrix3& tm)
{
    if (!m_controller)
        return;
    Matrix3 local = tm * Inverse(GetParentTM(t));
    m_controller->SetValue(t, &local);
}

Matrix3 Node::GetObjectTM(TimeValue t, Interval* valid)
{
    Matrix3 tm = GetNodeTM(t, valid);
    tm.PreTranslate(m_offsetPosition);
    PreRotateMatrix(tm, m_offsetRotation);
    ApplyScaling(tm, m_offsetScale);
    return tm;
}

Matrix3 Node::GetParentTM(TimeValue t)
{
    return m_parent ? m_parent->GetNodeTM(t, nullptr) : Matrix3(TRUE);
}

void Node::InvalidateTreeTM()
{
    std::vector<Node*> pending{this};
    while (!pending.empty()) {
        Node& node = *pending.back();
        pending.pop_back();
        if (!node.m_evaluated)
            continue;
        node.m_evaluated = false;
        node.m_world.Clear();
        for (Node* child : node.m_children)
            if (child && child->m_evaluated)
                pending.push_back(child);
    }
}

const ObjectState& Node::EvalWorldState(TimeValue t, BOOL)
{
    m_state = m_object ? m_object->Eval(t) : ObjectState();
    return m_state;
}

BOOL Node::SetTMController(Control* controller)
{
    m_controller.Set(controller);
    InvalidateTreeTM();
    return TRUE;
}

void Node::AttachChild(INode* child, int keepTM)
{
    Attach(*static_cast<Node*>(child), m_scene.GetTime(), keepTM != 0);
}

void Node::Detach(TimeValue t, int keepTM)
{
    m_scene.GetRoot().Attach(*this, t, keepTM != 0);
}

void Node::Attach(Node& child, TimeValue t, bool keepTM)
{
    if (IsAtOrBelow(child))
        return;
    Matrix3 world = child.GetNodeTM(t, nullptr);
    child.SetParent(this);
    if (keepTM) {
        m_scene.SuspendAnimate();
        child.SetNodeTM(t, world);
        m_scene.ResumeAnimate();
    }
}

// Nothing is below a node without children, which spares the walk up while a deep
// tree is built from the top.
bool Node::IsAtOrBelow(const Node& other) const
{
    if (this == &other)
        return true;
    if (other.m_children.size() == other.m_gaps)
        return false;
    const Node* node = this;
    while (node && node != &other)
        node = node->m_parent;
    return node != nullptr;
}

const std::vector<Node*>& Node::Children()
{
    if (m_gaps > 0) {
        std::erase(m_children, nullptr);
        for (std::size_t i = 0; i < m_children.size(); ++i)
            m_children[i]->m_place = i;
        m_gaps = 0;
    }
    return m_children;
}

void Node::SetParent(Node* parent)
{
    if (m_parent) {
        m_parent->m_children[m_place] = nullptr;
        ++m_parent->m_gaps;
    }
    m_parent = parent;
    if (parent) {
        if (parent->m_gaps > parent->m_children.size() / 2)
            parent->Children();  // closes the gaps
        m_place = parent->m_children.size();
        parent->m_children.push_back(this);
    }
    InvalidateTreeTM();
}

BOOL Node::UserPropExists(const MSTR& key)
{
    return m_properties.GetString(key.data()).has_value();
}

BOOL Node::GetUserPropString(const MSTR& key, MSTR& value)
{
    const auto text = m_properties.GetString(key.data());
    if (text)
        value = text->c_str();
    return text.has_value();
}

BOOL Node::GetUserPropInt(const MSTR& key, int& value)
{
    const auto number = m_properties.GetInt(key.data());
    value = number.value_or(value);
    return number.has_value();
}

BOOL Node::GetUserPropFloat(const MSTR& key, float& value)
{
    const auto number = m_properties.GetFloat(key.data());
    value = number.value_or(value);
    return number.has_value();
}

BOOL Node::GetUserPropBool(const MSTR& key, BOOL& value)
{
    const auto flag = m_properties.GetBool(key.data());
    value = flag.value_or(value);
    return flag.has_value();
}

void Node::SetUserPropString(const MSTR& key, const MSTR& value)
{
    m_properties.Set(key.data(), std::string_view(value.data()));
}

}  // namespace maxhost
