#include "host/app/HostInterface.h"

#include "host/app/HeadlessHost.h"
#include "host/core/Node.h"
#include "host/core/Scene.h"

namespace maxhost {

const MCHAR* HostInterface::GetDir(int which)
{
    return m_host.GetDirectory(which).c_str();
}

TimeValue HostInterface::GetTime()
{
    return m_host.GetScene().GetTime();
}

void HostInterface::SetTime(TimeValue t, BOOL)
{
    m_host.GetScene().SetTime(t);
}

Interval HostInterface::GetAnimRange()
{
    return m_host.GetScene().GetAnimRange();
}

void HostInterface::SetAnimRange(Interval range)
{
    m_host.GetScene().SetAnimRange(range);
}

INode* HostInterface::GetRootNode()
{
    return &m_host.GetScene().GetRoot();
}

INode* HostInterface::GetINodeByName(const MCHAR* name)
{
    return m_host.GetScene().FindNode(name);
}

INode* HostInterface::CreateObjectNode(Object* object)
{
    return &m_host.GetScene().AddNode(object);
}

void HostInterface::DeleteNode(INode* node, BOOL, BOOL)
{
    m_host.GetScene().RemoveNode(*static_cast<Node*>(node));
}

void* HostInterface::CreateInstance(SClass_ID superClass, Class_ID classID)
{
    return m_host.GetClasses().Create(superClass, classID);
}

int HostInterface::GetSelNodeCount()
{
    return static_cast<int>(m_host.GetScene().GetSelection().size());
}

INode* HostInterface::GetSelNode(int i)
{
    return m_host.GetScene().GetSelection()[static_cast<std::size_t>(i)];
}

void HostInterface::SelectNode(INode* node, int clear)
{
    if (clear)
        m_host.GetScene().ClearSelection();
    m_host.GetScene().Select(*static_cast<Node*>(node));
}

void HostInterface::ClearNodeSelection(BOOL)
{
    m_host.GetScene().ClearSelection();
}

}  // namespace maxhost
