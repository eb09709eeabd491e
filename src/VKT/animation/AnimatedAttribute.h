#pragma once

#include <memory>

#include "VKT/animation/AnimationStream.h"
#include "VKT/base/Lists.h"
#include "VKT/node/NodeProperties.h"
#include "VKT/stream/BlockReader.h"

namespace VKT {

class XAnimatedNode;
class XAnimationTake;
class XAttribute;

// One animated attribute of a node: its number in the vocabulary of the node's class,
// and its values as streams, mostly one.
class XAnimatedAttribute {
public:
    // A scalar attribute without streams.
    XAnimatedAttribute(XAnimatedNode& node, u32 attributeId);
    XAnimatedAttribute(XAnimatedNode& node, u32 attributeId, XStreamKind kind);
    XAnimatedAttribute(const XAnimatedAttribute&) = delete;
    XAnimatedAttribute& operator=(const XAnimatedAttribute&) = delete;

    // Binary files hold the kind of each stream and not this one: it is a scalar then.
    XStreamKind GetKind() const { return m_Kind; }
    // Floats of a sample.
    u32 GetElementsPerSample() const { return m_ElementsPerSample; }
    // 0 stands for an extra attribute too.
    u32 GetAttributeId() const { return m_AttributeId; }
    // The extra attribute that is animated, null when it is none, or is gone. Only text
    // files tell it.
    XAttribute* GetExtraAttribute() const;
    // What text files call the attribute; empty when the node has no such attribute.
    XString GetName() const;
    XAnimatedNode& GetAnimatedNode() const { return *m_Node; }
    XAnimationTake& GetTake() const;
    // The animated node, null when the document has none of that id.
    XBase* GetNode() const;
    // The present value of a float array attribute; empty for any other.
    void GetCurrentArray(XFloatArray& out) const;

    u32 GetNumStreams() const { return static_cast<u32>(m_Streams.size()); }
    // Null beyond the last one.
    XAnimationStream* GetStream(u32 i) const;
    // The first stream of its form, or a new one. A new table of samples has a frame for
    // each of the take's, all of them the present value of the attribute; those of
    // matrices and arrays are zeroes.
    XPoseStream* CreatePoseStream();
    XSampledStream* CreateSampledStream();
    XFCurveStream* CreateFCurveStream();
    // The first curve stream, or null.
    XFCurveStream* GetFCurveStream() const;

    // The `ATTR` block. A node that is not in the document fails in silence.
    bool ReadChunk(XBlockReader block);
    bool WriteChunk(XTextWriter& out) const;
    // In both directions. False when a stream could not be moved; numbers that come short
    // are logged and keep their defaults.
    bool DoData(XFileIO& file);

private:
    template <class Stream>
    Stream* Find(XStreamType type) const;
    template <class Stream>
    Stream* Add(std::unique_ptr<Stream> stream);
    void FillWithCurrent(XSampledStream& stream) const;
    void SetTarget(const XBase& node, const XString& word);
    bool ReadStream(XBlockReader block);
    bool ReadStream(XFileIO& file);
    static bool WriteStream(XFileIO& file, XAnimationStream& stream);
    std::unique_ptr<XAnimationStream> MakeStream(u32 type, XStreamKind kind);

    XStreamKind m_Kind = kScalar;
    u32 m_ElementsPerSample = 1;
    u32 m_AttributeId;
    XString m_ExtraAttribute;  // its name, empty for none
    XVector<std::unique_ptr<XAnimationStream>> m_Streams;
    XAnimatedNode* m_Node;
};

}  // namespace VKT
