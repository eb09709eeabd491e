#pragma once

#include "validate/checks/Findings.h"

namespace tool {

// The checks of a document, each in the file of its subject. All are linear in what the
// document holds.

// Of the document as a whole.
void CheckDroppedChunks(const VKT::XModel& model, Findings& findings);  // ReferenceChecks.cpp
void CheckDroppedReferences(const VKT::XModel& model, Findings& findings);
void CheckIds(const VKT::XModel& model, Findings& findings);  // IdentityChecks.cpp
void CheckNames(const VKT::XModel& model, Findings& findings);
void CheckDeclaredTypes(const VKT::XModel& model, Findings& findings);
void CheckHierarchy(const VKT::XModel& model, Findings& findings);     // HierarchyChecks.cpp
void CheckShadingRings(const VKT::XModel& model, Findings& findings);  // RingChecks.cpp
void CheckCollectionRings(const VKT::XModel& model, Findings& findings);
void CheckDeformationRings(const VKT::XModel& model, Findings& findings);
void CheckConstraintRings(const VKT::XModel& model, Findings& findings);
void CheckInstances(const VKT::XModel& model, Findings& findings);       // InstanceChecks.cpp
void CheckDeformerQueues(const VKT::XModel& model, Findings& findings);  // DeformerChecks.cpp
void CheckImages(const VKT::XModel& model, Findings& findings);          // ImageChecks.cpp
void CheckCycles(const VKT::XModel& model, Findings& findings);          // AnimationChecks.cpp

// Of one node; nodes of other classes than a check looks at pass it.
void CheckPolygonMesh(const VKT::XBase& node, Findings& findings);  // MeshChecks.cpp
void CheckOlderMesh(const VKT::XBase& node, Findings& findings);    // OlderMeshChecks.cpp
void CheckVertexColours(const VKT::XBase& node, Findings& findings);
void CheckPointWeights(const VKT::XBase& node, Findings& findings);  // DeformerChecks.cpp
void CheckBlendTargets(const VKT::XBase& node, Findings& findings);
void CheckSkin(const VKT::XBase& node, Findings& findings);  // SkinChecks.cpp
void CheckTake(const VKT::XBase& node, Findings& findings);  // AnimationChecks.cpp

// Of one node, by way of its text: not for documents that cannot be saved as text.
void CheckReferences(const VKT::XBase& node, Findings& findings);  // ReferenceChecks.cpp
void CheckText(const VKT::XBase& node, Findings& findings);        // TextChecks.cpp

}  // namespace tool
