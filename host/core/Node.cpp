#include "host/core/Node.h"

#include "host/core/Scene.h"

namespace maxhost {

namespace {

const char* TextOf(const MSTR& text)
{
    return text.isNull() ? "" : text.data();
}

}  // namespace

Node::Node(Scene& scene, ULONG handle)
    : m_Scene(scene),
      m_Handle(handle),
      m_Controller(*this),
      m_Object(*this),
      m_Material(*this),
      m_World(scene.GetWorldCaches())
{
}

Node::~Node() = default;

void Node::DeleteThis()
{
    m_Scene.RemoveNode(*this);
}

RefTargetHandle Node::GetReference(int i)
{
    switch (i) {
        case 0:
            return m_Controller.Get();
        case 1:
            return m_Object.Get();
        case 2:
            return m_Material.Get();
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
    if (message == REFMSG_CHANGE && target == m_Controller.Get())
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
    for (Node* node = this; node; node = node->m_Parent) {
        if (const WorldCache::Entry* known = node->m_World.Find(t)) {
            world = *known;
            break;
        }
        unknown.push_back(node);
    }
    for (; !unknown.empty(); unknown.pop_back()) {
        Node& node = *unknown.back();
        if (node.m_Controller)
            node.m_Controller->GetValue(t, &world.tm, world.valid, CTRL_RELATIVE);
        node.m_World.Add(t, world);
        node.m_Evaluated = true;
    }
    return world;
}

void Node::SetNodeTM(TimeValue t, Matrix3& tm)
{
    if (!m_Controller)
        return;
    SetXFormPacket packet(tm, GetParentTM(t));
    m_Controller->SetValue(t, &packet);
}

Matrix3 Node::GetObjectTM(TimeValue t, Interval* valid)
{
    Matrix3 tm = GetNodeTM(t, valid);
    tm.PreTranslate(m_OffsetPosition);
    PreRotateMatrix(tm, m_OffsetRotation);
    ApplyScaling(tm, m_OffsetScale);
    return tm;
}

Matrix3 Node::GetParentTM(TimeValue t)
{
    return m_Parent ? m_Parent->GetNodeTM(t, nullptr) : Matrix3(TRUE);
}

void Node::InvalidateTreeTM()
{
    std::vector<Node*> pending{this};
    while (!pending.empty()) {
        Node& node = *pending.back();
        pending.pop_back();
        if (!node.m_Evaluated)
            continue;
        node.m_Evaluated = false;
        node.m_World.Clear();
        for (Node* child : node.m_Children)
            if (child && child->m_Evaluated)
                pending.push_back(child);
    }
}

const ObjectState& Node::EvalWorldState(TimeValue t, BOOL)
{
    m_State = m_Object ? m_Object->Eval(t) : ObjectState();
    return m_State;
}

void Node::SetTMController(Control* controller)
{
    m_Controller.Set(controller);
    InvalidateTreeTM();
}

void Node::AttachChild(INode* child, int keepTM)
{
    Attach(*static_cast<Node*>(child), m_Scene.GetTime(), keepTM != 0);
}

void Node::Detach(TimeValue t, int keepTM)
{
    m_Scene.GetRoot().Attach(*this, t, keepTM != 0);
}

void Node::Attach(Node& child, TimeValue t, bool keepTM)
{
    if (IsAtOrBelow(child))
        return;
    Matrix3 world = child.GetNodeTM(t, nullptr);
    child.SetParent(this);
    if (keepTM) {
        m_Scene.SuspendAnimate();
        child.SetNodeTM(t, world);
        m_Scene.ResumeAnimate();
    }
}

// Nothing is below a node without children, which spares the walk up while a deep
// tree is built from the top.
bool Node::IsAtOrBelow(const Node& other) const
{
    if (this == &other)
        return true;
    if (other.m_Children.size() == other.m_Gaps)
        return false;
    const Node* node = this;
    while (node && node != &other)
        node = node->m_Parent;
    return node != nullptr;
}

const std::vector<Node*>& Node::Children()
{
    if (m_Gaps > 0) {
        std::erase(m_Children, nullptr);
        for (std::size_t i = 0; i < m_Children.size(); ++i)
            m_Children[i]->m_Place = i;
        m_Gaps = 0;
    }
    return m_Children;
}

void Node::SetParent(Node* parent)
{
    if (m_Parent) {
        m_Parent->m_Children[m_Place] = nullptr;
        ++m_Parent->m_Gaps;
    }
    m_Parent = parent;
    if (parent) {
        if (parent->m_Gaps > parent->m_Children.size() / 2)
            parent->Children();  // closes the gaps
        m_Place = parent->m_Children.size();
        parent->m_Children.push_back(this);
    }
    InvalidateTreeTM();
}

void Node::GetUserPropBuffer(MSTR& text)
{
    const std::string& properties = m_Properties.GetText();
    text = properties.empty() ? MSTR() : MSTR(properties.c_str());
}

void Node::SetUserPropBuffer(const MSTR& text)
{
    m_Properties.SetText(TextOf(text));
}

BOOL Node::UserPropExists(const MSTR& key)
{
    return m_Properties.GetString(TextOf(key)).has_value();
}

BOOL Node::GetUserPropString(const MSTR& key, MSTR& value)
{
    const auto text = m_Properties.GetString(TextOf(key));
    if (text)
        value = text->c_str();
    return text.has_value();
}

BOOL Node::GetUserPropInt(const MSTR& key, int& value)
{
    const auto number = m_Properties.GetInt(TextOf(key));
    value = number.value_or(value);
    return number.has_value();
}

BOOL Node::GetUserPropFloat(const MSTR& key, float& value)
{
    const auto number = m_Properties.GetFloat(TextOf(key));
    value = number.value_or(value);
    return number.has_value();
}

BOOL Node::GetUserPropBool(const MSTR& key, BOOL& value)
{
    const auto flag = m_Properties.GetBool(TextOf(key));
    value = flag.value_or(value);
    return flag.has_value();
}

void Node::SetUserPropString(const MSTR& key, const MSTR& value)
{
    m_Properties.Set(TextOf(key), std::string_view(TextOf(value)));
}

void Node::SetUserPropInt(const MSTR& key, int value)
{
    m_Properties.Set(TextOf(key), value);
}

void Node::SetUserPropFloat(const MSTR& key, float value)
{
    m_Properties.Set(TextOf(key), value);
}

void Node::SetUserPropBool(const MSTR& key, BOOL value)
{
    m_Properties.Set(TextOf(key), value != 0);
}

}  // namespace maxhost
