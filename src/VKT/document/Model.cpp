#include "VKT/document/Model.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <ostream>

#include "VKT/animation/AnimCycle.h"
#include "VKT/document/BinarySaver.h"
#include "VKT/document/Deletion.h"
#include "VKT/document/SceneLoad.h"
#include "VKT/document/TextSaver.h"
#include "VKT/hierarchy/BoneWalk.h"
#include "VKT/hierarchy/Shape.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

XModel::XModel() = default;

XModel::~XModel()
{
    Clear();
}

void XModel::Clear()
{
    m_Instances.Clear();
    m_Nodes.Clear();
    m_BoneLinks.Clear();
    m_Cycles.clear();
    m_Images.Clear();
    m_Declarations.Clear();
    m_Info.reset();
}

XBase* XModel::CreateNode(u32 type)
{
    auto node = XFnCreate(type, this);
    if (!node) {
        GetLogger()->LogFormat(
            kError, "Could not create type %s. This is either because the type is abstract, or invalid...",
            XFnTypeName(type).c_str());
        return nullptr;
    }
    return Adopt(std::move(node));
}

XBase* XModel::CreateNode(const XInheritedNode& definition)
{
    return Adopt(XInheritedCreateFrom(definition, this));
}

XBase* XModel::CreateNode(const XNewNode& definition)
{
    return Adopt(definition.CreateNode(this));
}

// Takes a new node over, under the next id and the first free name. Cycles have no name.
XBase* XModel::Adopt(std::unique_ptr<XBase> node)
{
    if (!node)
        return nullptr;
    m_Nodes.Number(*node);
    if (!IsOfType(*node, kFnAnimCycle))
        m_Nodes.Rename(*node, m_Nodes.FirstFreeName("node"));
    return Enter(std::move(node));
}

// Takes the node over under the id and the name that it has. Cycles stand apart.
XBase* XModel::Enter(std::unique_ptr<XBase> node)
{
    if (!IsOfType(*node, kFnAnimCycle))
        return m_Nodes.Enter(std::move(node));
    return m_Cycles.emplace_back(static_cast<XAnimCycle*>(node.release())).get();
}

bool XModel::IsValid(const XBase* node) const
{
    return std::any_of(m_Nodes.begin(), m_Nodes.end(),
                       [=](const auto& entry) { return entry.second == node; }) ||
           std::any_of(m_Cycles.begin(), m_Cycles.end(),
                       [=](const auto& cycle) { return cycle.get() == node; });
}

bool XModel::List(XNodeList& out, u32 type, bool exact) const
{
    out.clear();
    for (const auto& [name, node] : m_Nodes)
        if (node->HasFn(type) && (!exact || node->GetApiType() == type))
            out.push_back(node);
    return !out.empty();
}

bool XModel::ListRootBones(XBoneList& out) const
{
    out.clear();
    for (const auto& [name, node] : m_Nodes)
        if (XBone* bone = XCast<XBone>(node); bone && bone->GetParentId() == 0)
            out.push_back(bone);
    return !out.empty();
}

XString XModel::SetName(XBase* node, std::string_view requested)
{
    if (!node)
        return {};
    XString name(requested);
    std::replace(name.begin(), name.end(), ' ', '_');
    std::replace(name.begin(), name.end(), '\t', '_');
    if (m_Nodes.Contains(name))
        name = m_Nodes.FirstFreeName(name);
    m_Nodes.Rename(*node, name);
    return name;
}

XInstance* XModel::CreateInstance(XBone* bone, XShape* shape)
{
    if (!bone || !shape)
        return nullptr;
    XInstance* const instance = FindInstance(*bone, *shape);
    return instance ? instance : m_Instances.Create(*this, *bone, *shape);
}

bool XModel::DeleteNode(u32 id)
{
    return DeleteNodes({id}) != 0;
}

u32 XModel::DeleteNodes(const std::set<u32>& ids)
{
    const XNodeList deaths = XDeletion(*this, m_UserCounts).Prepare(ids);
    for (XBase* node : deaths)
        m_Nodes.Delete(*node);
    return static_cast<u32>(deaths.size());
}

std::shared_ptr<const XUserCounts> XModel::CountUsers() const
{
    return m_UserCounts ? m_UserCounts : std::make_shared<const XUserCounts>(*this);
}

void XModel::UpdateWorldMatrices()
{
    XBoneList roots;
    ListRootBones(roots);
    XBoneWalk walk(*this);  // one for all roots: a damaged file may hang one tree under many
    for (XBone* root : roots) {
        root->UpdateOwnMatrices(kIdentityMatrix);
        walk.Below(*root,
                   [](XBone& bone, const XBone& above) { bone.UpdateOwnMatrices(above.GetWorld(false)); });
    }
}

XFileResult XModel::Load(const char* path, bool loadCycles)
{
    return XSceneLoad(*this, path, loadCycles).LoadFile();
}

XFileResult XModel::Load(std::istream& in, const char* path, bool loadCycles)
{
    return XSceneLoad(*this, path, loadCycles).LoadStream(in);
}

// No exception gets past a save.
XFileResult XModel::Save(const char* path)
{
    m_Version = kCurrentVersion;
    try {
        return m_SaveFlags.Test(VKT::SaveAscii) ? SaveAsText(path) : SaveAsBinary(path);
    } catch (const std::exception& error) {
        GetLogger()->LogFormat(kError, "saving \"%s\" failed: %s", path, error.what());
        return FileCorrupt;
    }
}

XFileResult XModel::Save(std::ostream& stream)
{
    m_Version = kCurrentVersion;
    try {
        if (!CanSaveAsText())
            return FileCorrupt;
        XTextWriter out(stream);
        return XTextSaver(*this, out).Save();
    } catch (const std::exception& error) {
        GetLogger()->LogFormat(kError, "saving failed: %s", error.what());
        return FileCorrupt;
    }
}

bool XModel::CanSaveAsText() const
{
    return XTextSaver::CanSave(*this);
}

XFileResult XModel::SaveAsText(const char* path)
{
    if (!CanSaveAsText())
        return FileCorrupt;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "wb"), &std::fclose);
    if (!file)
        return FileOpenFailed;
    std::setvbuf(file.get(), nullptr, _IONBF, 0);  // the writer has a window of its own
    XFileResult result = FileCorrupt;
    {
        XTextWriter out(file.get());
        result = XTextSaver(*this, out).Save();
    }
    return std::fclose(file.release()) == 0 ? result : FileCorrupt;
}

XFileResult XModel::SaveAsBinary(const char* path)
{
    XBinarySaver saver(*this, m_Images);
    if (!saver.Measure())
        return FileCorrupt;
    XFileIO file(path, false);
    return file.GetFile() ? saver.Save(file) : FileOpenFailed;
}

}  // namespace VKT
