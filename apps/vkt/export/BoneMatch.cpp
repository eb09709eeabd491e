#include "export/BoneMatch.h"

#include <max.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "VKT/deformers/NonLinearDeformer.h"
#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/stream/NodeName.h"

namespace tool {
namespace {

using VKT::XBone;

// A name as it is after a document and its file have cleaned it.
std::string Comparable(std::string_view name)
{
    std::string out = VKT::CleanName(name);
    std::replace_if(
        out.begin(), out.end(), [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }, '_');
    return out.empty() ? "_" : out;
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view WithoutNumber(std::string_view name)
{
    while (!name.empty() && IsDigit(name.back()))
        name.remove_suffix(1);
    return name;
}

bool IsNumbered(std::string_view name, std::string_view stem)
{
    return name.substr(0, stem.size()) == stem && WithoutNumber(name).size() <= stem.size();
}

// The bones that no node has claimed yet.
class FreeBones {
public:
    explicit FreeBones(const VKT::XModel& document)
    {
        VKT::XNodeList listed;
        document.List(listed, VKT::kFnBone);
        std::vector<const XBone*> bones;
        for (const VKT::XBase* node : listed)
            bones.push_back(VKT::XCast<XBone>(node));
        std::sort(bones.begin(), bones.end(),
                  [](const XBone* a, const XBone* b) { return a->GetID() < b->GetID(); });
        const std::set<const XBone*> handles = ListHandles(document);
        const auto add = [&](VKT::u32 parent, const XBone* bone) {
            if (!bone || handles.contains(bone))
                return;
            const std::string name = Comparable(bone->GetName());
            m_ByName[{parent, name}].bones.push_back(bone);
            m_ByStem[{parent, std::string(WithoutNumber(name))}].bones.push_back(bone);
        };
        for (const XBone* bone : bones) {
            if (bone->GetParentId() == 0)
                add(0, bone);
            for (const VKT::u32 child : bone->GetChildIds())
                add(bone->GetID(), VKT::XCast<XBone>(document.FindNode(child)));
        }
    }

    // Null when there is none.
    const XBone* ClaimNamed(const XBone* parent, const std::string& name)
    {
        return Claim(m_ByName, parent, name, [](const XBone&) { return true; });
    }
    const XBone* ClaimNumbered(const XBone* parent, const std::string& name)
    {
        return Claim(m_ByStem, parent, std::string(WithoutNumber(name)),
                     [&](const XBone& bone) { return IsNumbered(Comparable(bone.GetName()), name); });
    }

private:
    struct Candidates {
        std::vector<const XBone*> bones;
        std::size_t firstFree = 0;  // those before it are claimed
    };
    // By the id of the parent, 0 for none.
    using Index = std::map<std::pair<VKT::u32, std::string>, Candidates>;

    static std::set<const XBone*> ListHandles(const VKT::XModel& document)
    {
        VKT::XNodeList listed;
        document.List(listed, VKT::kFnNonLinearDeformer);
        std::set<const XBone*> handles;
        for (const VKT::XBase* node : listed)
            handles.insert(VKT::XCast<VKT::XNonLinearDeformer>(node)->GetHandle());
        return handles;
    }

    template <class Fits>
    const XBone* Claim(Index& index, const XBone* parent, const std::string& name, Fits fits)
    {
        const auto found = index.find({parent ? parent->GetID() : 0, name});
        if (found == index.end())
            return nullptr;
        auto& [bones, firstFree] = found->second;
        while (firstFree < bones.size() && m_Claimed.contains(bones[firstFree]))
            ++firstFree;
        for (std::size_t i = firstFree; i < bones.size(); ++i)
            if (!m_Claimed.contains(bones[i]) && fits(*bones[i])) {
                m_Claimed.insert(bones[i]);
                return bones[i];
            }
        return nullptr;
    }

    Index m_ByName;
    Index m_ByStem;
    std::set<const XBone*> m_Claimed;
};

struct Visit {
    INode* node = nullptr;
    const XBone* bone = nullptr;
    int place = -1;  // in the list of those that have bones
};

}  // namespace

BoneMatch MatchBones(INode& root, const VKT::XModel& document, bool selectedOnly)
{
    FreeBones free(document);
    const auto isWanted = [=](INode& node) { return !selectedOnly || node.Selected() != 0; };
    const auto claim = [&](INode& node, const XBone* parent) {
        const std::string name = Comparable(node.GetName());
        const XBone* const bone = free.ClaimNamed(parent, name);
        // A node that need not have a bone must not take a numbered one of another.
        return bone || !isWanted(node) ? bone : free.ClaimNumbered(parent, name);
    };
    BoneMatch out;
    const auto enter = [&](Visit& visit, int parentPlace) {
        if (visit.bone) {
            visit.place = static_cast<int>(out.nodes.size());
            out.nodes.push_back({visit.node, parentPlace, visit.bone});
        } else if (isWanted(*visit.node)) {
            out.missing.push_back(visit.node);
        }
    };

    struct Pending {
        Visit visit;
        int parentPlace;
    };
    std::vector<Pending> pending{{{&root, claim(root, nullptr)}, -1}};
    while (!pending.empty()) {
        auto [visit, parentPlace] = pending.back();
        pending.pop_back();
        enter(visit, parentPlace);
        std::vector<Visit> children;
        for (int i = 0; i < visit.node->NumberOfChildren(); ++i)
            children.push_back({visit.node->GetChildNode(i)});
        for (const bool wanted : {true, false})
            for (Visit& child : children)
                if (isWanted(*child.node) == wanted)
                    child.bone = claim(*child.node, visit.bone);
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            pending.push_back({*child, visit.place});
    }
    return out;
}

}  // namespace tool
