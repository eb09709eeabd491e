#include <charconv>
#include <map>
#include <set>
#include <string_view>

#include "VKT/animation/AnimCycle.h"
#include "VKT/animation/AnimationTake.h"
#include "VKT/deformers/BlendShape.h"
#include "VKT/document/Model.h"
#include "common/NodeFields.h"
#include "common/SceneFile.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

constexpr std::string_view kMissing = "<missing:";

// The id of a missing node that stands in a description, 0 for any other word.
VKT::u32 MissingIdOf(std::string_view word)
{
    VKT::u32 id = 0;
    if (word.starts_with(kMissing))
        std::from_chars(word.data() + kMissing.size(), word.data() + word.size(), id);
    return id;
}

// Fields of bones that checks of their own look at.
bool HasOwnCheck(const VKT::XBase& node, std::string_view path)
{
    return VKT::IsOfType(node, VKT::kFnBone) &&
           (path == "parent" || path == "child_joints" || path.starts_with("INSTANCE_LIST"));
}

std::set<VKT::u32> ListMissing(const VKT::XBase& node)
{
    VKT::XIndexList ids;
    node.ListReferences(ids);
    std::set<VKT::u32> missing;
    for (const VKT::u32 id : ids)
        if (id != 0 && !node.GetModel()->HasNode(id))
            missing.insert(id);
    if (const auto* blend = VKT::XCast<VKT::XBlendShape>(&node))
        for (VKT::u32 i = 0; i < blend->GetNumTargets(); ++i)
            missing.erase(blend->GetTargetRecord(i)->m_TargetId);  // see `CheckBlendTargets`
    return missing;
}

std::string MissingText(VKT::u32 id)
{
    return "node " + std::to_string(id) + " is missing";
}

// The missing ids of each field. Those that stand in a field are taken out of `missing`.
std::map<std::string, BadValues> FindFields(const VKT::XBase& node, std::set<VKT::u32>& missing)
{
    const std::set<VKT::u32> all = missing;
    const std::string description = NodeFields::Describe(node, [&](VKT::u32 id) {
        return all.contains(id) ? std::string(kMissing).append(std::to_string(id)) + '>'
                                : std::string(kNoNode);
    });
    const NodeFields fields(description);
    std::map<std::string, BadValues> out;
    const auto look = [&](const std::string& path, std::string_view line) {
        for (std::string_view word = TakeWord(line); !word.empty(); word = TakeWord(line))
            if (const VKT::u32 id = MissingIdOf(word); all.contains(id)) {
                out[path].Add([&] { return MissingText(id); });
                missing.erase(id);
            }
    };
    for (const NodeField& field : fields.GetFields()) {
        for (const std::string_view line : field.lines)
            look(field.path, line);
        for (const std::string_view row : field.rows)
            look(field.path, row);
    }
    return out;
}

}  // namespace

void CheckDroppedChunks(const VKT::XModel& model, Findings& findings)
{
    const auto& chunks = model.GetLoadReport().GetChunks();
    for (const VKT::XDroppedChunk& chunk : chunks.GetFirst())
        findings.Fail(nullptr, "chunk " + DescribeDropped(chunk) + "; readers skip it");
    if (const auto rest = chunks.GetCount() - chunks.GetFirst().size())
        findings.Fail(nullptr, Counted(rest, "chunk") + " more that readers skip");
}

void CheckDroppedReferences(const VKT::XModel& model, Findings& findings)
{
    const auto& references = model.GetLoadReport().GetReferences();
    for (const VKT::XDroppedReference& reference : references.GetFirst())
        findings.Fail(nullptr, DescribeDropped(reference) + "; readers drop the " +
                                   (reference.link == VKT::XInstanceLink::kShape ? "instance" : "reference"));
    if (const auto rest = references.GetCount() - references.GetFirst().size())
        findings.Fail(nullptr, Counted(rest, "reference") + " more that readers drop");
}

void CheckReferences(const VKT::XBase& node, Findings& findings)
{
    if (VKT::XCast<VKT::XAnimationTake>(&node) || VKT::XCast<VKT::XAnimCycle>(&node))
        return;  // see `CheckTake` and `CheckCycles`
    std::set<VKT::u32> missing = ListMissing(node);
    if (missing.empty())
        return;
    const std::string then = "; readers find nothing there";
    for (const auto& [path, ids] : FindFields(node, missing))
        if (!HasOwnCheck(node, path))
            findings.Fail(&node, path + ": " + ids.Text() + then);
    BadValues rest;  // of fields that the text form does not hold
    for (const VKT::u32 id : missing)
        rest.Add([&] { return MissingText(id); });
    if (rest.Count() > 0)
        findings.Fail(&node, rest.Text() + then);
}

}  // namespace tool
