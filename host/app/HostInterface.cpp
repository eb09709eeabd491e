#include "host/app/HostInterface.h"

#include "host/app/HeadlessHost.h"
#include "host/core/Node.h"
#include "host/core/Scene.h"

namespace maxhost {

const MCHAR* HostInterface::GetDir(int which)
{
    return m_Host.GetDirectory(which).c_str();
}

TimeValue HostInterface::GetTime()
{
    return m_Host.GetScene().GetTime();
}

void HostInterface::SetTime(TimeValue t, BOOL)
{
    m_Host.GetScene().SetTime(t);
}

Interval HostInterface::GetAnimRange()
{
    return m_Host.GetScene().GetAnimRange();
}

void HostInterface::SetAnimRange(Interval range)
{
    m_Host.GetScene().SetAnimRange(range);
}

INode* HostInterface::GetRootNode()
{
    return &m_Host.GetScene().GetRoot();
}

INode* HostInterface::GetINodeByName(const MCHAR* name)
{
    return m_Host.GetScene().FindNode(name);
}

INode* HostInterface::CreateObjectNode(Object* object)
{
    return &m_Host.GetScene().AddNode(object);
}

unsigned int HostInterface::DeleteNode(INode* node, BOOL, BOOL)
{
    m_Host.GetScene().RemoveNode(*static_cast<Node*>(node));
    return TRUE;
}

void* HostInterface::CreateInstance(SClass_ID superClass, Class_ID classID)
{
    return m_Host.GetClasses().Create(superClass, classID);
}

int HostInterface::GetSelNodeCount()
{
    return static_cast<int>(m_Host.GetScene().GetSelection().size());
}

INode* HostInterface::GetSelNode(int i)
{
    return m_Host.GetScene().GetSelection()[static_cast<std::size_t>(i)];
}

void HostInterface::SelectNode(INode* node, int clear)
{
    if (clear)
        m_Host.GetScene().ClearSelection();
    m_Host.GetScene().Select(*static_cast<Node*>(node));
}

void HostInterface::ClearNodeSelection(BOOL)
{
    m_Host.GetScene().ClearSelection();
}

}  // namespace maxhost
