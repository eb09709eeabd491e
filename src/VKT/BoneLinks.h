#pragma once

namespace VKT {

class XModel;

// Whether the bones of a document tell the same of their hierarchy from below and from
// above: each bone stands once in the list of its parent and in no other list. Then the
// question what is below a bone is answered by a walk up, which is short, in place of one
// down, which costs the square of a wide tree when it is asked for each of its bones.
//
// `XBone::AddChild` to bones that have no parent keeps the agreement. Everything else that
// moves a link says so, and the next question looks at all bones, once.
class XBoneLinks {
public:
    void Change() { m_State = kUnknown; }
    bool Agree(const XModel& model);

private:
    enum State { kAgree, kUnknown, kDisagree } m_State = kAgree;
};

}  // namespace VKT
