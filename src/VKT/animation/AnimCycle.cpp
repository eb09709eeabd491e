#include "VKT/animation/AnimCycle.h"

#include <algorithm>

#include "VKT/document/Model.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\AnimCycle";

}  // namespace

XBodyTable XAnimCycle::TextBody()
{
    // clang-format off
    static constexpr XBodyRow rows[] = {
        {"\tstart ",      &XAnimCycle::m_Start},
        {"\tend ",        &XAnimCycle::m_End},
        {"\tnum_frames ", &XAnimCycle::m_NumFrames},
        {"\tfps ",        &XAnimCycle::m_FramesPerSecond},
    };
    // clang-format on
    return {kSource, rows};
}

XPropertyTable XAnimCycle::Properties()
{
    static constexpr auto getFrames = [](const XBase& node, i32& value) {
        value = static_cast<i32>(As<XAnimCycle>(node).m_NumFrames);
        return true;
    };
    static constexpr auto setFrames = [](XBase& node, const i32& value) {
        As<XAnimCycle>(node).m_NumFrames = static_cast<u32>(value);
        return true;
    };
    static constexpr XPropertyInfo rows[] = {
        Field<&XAnimCycle::m_Start>(1, "start_frame"),
        Field<&XAnimCycle::m_End>(2, "end_frame"),
        Field<&XAnimCycle::m_FramesPerSecond>(3, "frames_per_second"),
        Computed<i32>(4, "num_frames", 0, getFrames, setFrames),
    };
    return rows;
}

void XAnimCycle::SetFrameRange(f32 start, f32 end, u32 numFrames)
{
    m_Start = start;
    m_End = end;
    m_NumFrames = numFrames;
}

XSampledBoneAnim* XAnimCycle::AddBoneAnim(u32 boneId)
{
    auto& anim = m_BoneAnims[boneId];
    if (!anim)
        anim = std::make_unique<XSampledBoneAnim>();
    return anim.get();
}

XSampledBoneAnim* XAnimCycle::FindBoneAnim(u32 boneId) const
{
    const auto found = m_BoneAnims.find(boneId);
    return found == m_BoneAnims.end() ? nullptr : found->second.get();
}

XAnimCurveList* XAnimCycle::AddCurveList(const XString& name, u32 nodeId)
{
    XAnimCurveList* const list =
        m_CurveLists.emplace_back(std::make_unique<XAnimCurveList>(*GetModel())).get();
    list->SetName(name);
    list->SetNodeId(nodeId);
    return list;
}

u64 XAnimCycle::GetTextPadding() const
{
    u64 padding = 0;
    for (const auto& [id, anim] : m_BoneAnims)
        padding += m_NumFrames - std::min(m_NumFrames, anim->GetNumFrames());
    return padding;
}

bool XAnimCycle::NodeDeath(u32 id)
{
    m_BoneAnims.erase(id);
    const auto list = std::find_if(m_CurveLists.begin(), m_CurveLists.end(),
                                   [=](const auto& own) { return own->GetNodeId() == id; });
    if (list != m_CurveLists.end())
        m_CurveLists.erase(list);
    return XBase::NodeDeath(id);
}

void XAnimCycle::DoCopy(const XBase* source)
{
    const XAnimCycle* other = XCast<XAnimCycle>(source);
    if (!other || other == this)
        return;
    XNodeClass::DoCopy(source);
    m_CurveLists.clear();
    for (const auto& list : other->m_CurveLists)
        m_CurveLists.push_back(std::make_unique<XAnimCurveList>(*list, *GetModel()));
    m_BoneAnims.clear();
    for (const auto& [id, anim] : other->m_BoneAnims)
        m_BoneAnims.emplace(id, std::make_unique<XSampledBoneAnim>(*anim));
}

// The binary form has the lists of curves ahead of the bones, the text form behind them.
bool XAnimCycle::DoData(XFileIO& file)
{
    return XNodeClass::DoData(file) && DoCurveLists(file) && DoBoneAnims(file);
}

bool XAnimCycle::DoCurveLists(XFileIO& file)
{
    constexpr u64 kLeastBytes = 10;  // an empty name, an id and an empty list
    return file.DoEach(
        m_CurveLists, kLeastBytes, [this] { return std::make_unique<XAnimCurveList>(*GetModel()); },
        [&](XAnimCurveList& list) { return list.DoData(file); });
}

bool XAnimCycle::DoBoneAnims(XFileIO& file)
{
    constexpr u64 kLeastBytes = 16;  // an id and three empty lists
    u32 count = 0;
    if (!file.DoCount(count, m_BoneAnims.size(), kLeastBytes))
        return false;
    if (file.IsWriting()) {
        for (const auto& [id, anim] : m_BoneAnims) {
            u32 boneId = id;
            if (!file.DoId(boneId) || !anim->DoData(file))
                return false;
        }
        return true;
    }
    m_BoneAnims.clear();
    for (u32 i = 0; i < count; ++i) {
        u32 boneId = 0;
        auto anim = std::make_unique<XSampledBoneAnim>();
        if (!file.DoId(boneId) || !anim->DoData(file))
            return false;
        m_BoneAnims[boneId] = std::move(anim);
    }
    return true;
}

bool XAnimCycle::WriteChunk(XTextWriter& out) const
{
    const XString name = GetName();
    out << "ANIM_CYCLE \"" << (name.empty() ? name : NameAsToken(name)) << "\"\n{\n";
    out << "\tnum_bones " << static_cast<u32>(m_BoneAnims.size()) << '\n';
    if (!XNodeClass::WriteChunk(out))
        return false;
    for (const auto& [id, anim] : m_BoneAnims) {
        out << "\tBONE_ANIM " << XNodeId{id} << "\n\t{\n";
        anim->WriteFrames(out, m_NumFrames);
        out << "\t}\n";
    }
    for (const auto& list : m_CurveLists)
        list->WriteChunk(out);
    out << "}\n";
    return out.IsGood();
}

bool XAnimCycle::ReadFields(XTextReader& in)
{
    XBlockReader block(in, kSource, TextBody().rows.size());
    u32 count = 0;
    if (!block.Read("num_bones", count) || !XNodeClass::ReadFields(in))
        return false;
    CleanOwnName();
    for (u32 i = 0; i < count; ++i)
        if (!ReadBoneAnim(block))
            return false;
    return ReadCurveLists(block);
}

bool XAnimCycle::ReadBoneAnim(XBlockReader block)
{
    u32 boneId = 0;
    if (!block.Read("BONE_ANIM", boneId))
        return false;
    XTextReader& in = block.In();
    XString brace;
    in.ReadToken(brace);
    auto anim = std::make_unique<XSampledBoneAnim>();
    anim->ReadFrames(in, m_NumFrames);
    if (in.IsGood())
        m_BoneAnims[boneId] = std::move(anim);
    return block.Expect("}");
}

// Up to the closing brace of the cycle. Other blocks are passed over.
bool XAnimCycle::ReadCurveLists(XBlockReader block)
{
    XString word;
    for (u64 depth = 1; depth > 0;) {
        if (!block.In().ReadToken(word))
            return false;
        if (word == "{")
            ++depth;
        else if (word == "}")
            --depth;
        else if (word == "ANIM_CURVE_LIST" && !ReadCurveList(block))
            return false;
    }
    return true;
}

bool XAnimCycle::ReadCurveList(XBlockReader block)
{
    auto list = std::make_unique<XAnimCurveList>(*GetModel());
    if (!list->ReadChunk(block))
        return false;
    m_CurveLists.push_back(std::move(list));
    return true;
}

}  // namespace VKT
