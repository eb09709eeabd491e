#pragma once

#include <gtest/gtest.h>

#include <string>

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/node/FnRegistry.h"
#include "host/app/HeadlessHost.h"
#include "host/build/SceneBuilder.h"

// A scene of the host beside a document that is made by hand, as exports are free to make it.
class HandMadeDocument : public ::testing::Test {
protected:
    struct Types {
        Types() { VKT::XRegisterTypes(nullptr); }
        ~Types()
        {
            maxhost::HeadlessHost::Get().Reset();
            VKT::XFnShutdown();
            VKT::SetLogger(nullptr);
        }
    };

    static INode& Root() { return *maxhost::HeadlessHost::Get().GetInterface().GetRootNode(); }
    static INode& Node(const std::string& name, INode* parent = nullptr, Object* object = nullptr)
    {
        return *maxhost::MakeNode(name, object, parent);
    }
    static void Select(INode& node) { maxhost::HeadlessHost::Get().GetInterface().SelectNode(&node, FALSE); }
    VKT::XBone& Bone(const std::string& name, VKT::XBone* parent = nullptr)
    {
        VKT::XBone* const bone = VKT::XCast<VKT::XBone>(m_Document.CreateNode(VKT::kFnBone));
        bone->SetName(name.c_str());
        if (parent)
            parent->AddChild(bone);
        return *bone;
    }

    const Types m_Types;
    VKT::XModel m_Document;
    VKT::XBone& m_RootBone = Bone(Root().GetName());
};
