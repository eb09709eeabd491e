#include "validate/Validation.h"

#include <span>

#include "VKT/animation/AnimCycle.h"
#include "VKT/document/Model.h"
#include "common/MessageCatcher.h"
#include "common/NodeNames.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

using DocumentCheck = void (*)(const VKT::XModel&, Findings&);
using NodeCheck = void (*)(const VKT::XBase&, Findings&);

constexpr DocumentCheck kDocumentChecks[] = {
    CheckDroppedChunks,
    CheckDroppedReferences,
    CheckIds,
    CheckNames,
    CheckDeclaredTypes,
    CheckHierarchy,
    CheckShadingRings,
    CheckCollectionRings,
    CheckDeformationRings,
    CheckConstraintRings,
    CheckInstances,
    CheckDeformerQueues,
    CheckImages,
    CheckCycles,
};
constexpr NodeCheck kNodeChecks[] = {
    CheckPolygonMesh,  CheckOlderMesh, CheckVertexColours, CheckPointWeights,
    CheckBlendTargets, CheckSkin,      CheckTake,
};
constexpr NodeCheck kTextChecks[] = {CheckReferences, CheckText};

// Cycles are no nodes to the document, and hold text as nodes do.
void CheckNodes(const VKT::XModel& model, std::span<const NodeCheck> checks, Findings& findings)
{
    for (const NodeCheck check : checks) {
        for (const auto& [name, node] : model.GetNodes())
            check(*node, findings);
        for (const auto& cycle : model.GetCycles())
            check(*cycle, findings);
    }
}

// Damaged nodes can claim so much that their texts would fill a disk.
bool CanDescribe(const VKT::XModel& model, Findings& findings)
{
    const MessageCatcher messages;
    if (model.CanSaveAsText())
        return true;
    findings.Fail(nullptr, messages.FirstError() +
                               "; text saves are refused, and references, numbers and texts of nodes are not "
                               "checked here");
    return false;
}

}  // namespace

std::vector<Finding> Validate(const VKT::XModel& model)
{
    Findings findings;
    for (const DocumentCheck check : kDocumentChecks)
        check(model, findings);
    CheckNodes(model, kNodeChecks, findings);
    if (CanDescribe(model, findings))
        CheckNodes(model, kTextChecks, findings);
    return findings.TakeByNode(model);
}

std::string ToText(const std::vector<Finding>& findings)
{
    std::string out;
    for (const Finding& finding : findings) {
        out += finding.severity == Severity::kError ? "error: " : "warning: ";
        if (finding.node)
            out += NameAndType(*finding.node) + ": ";
        out += CleanText(finding.text) + "\n";
    }
    return out;
}

}  // namespace tool
