#include "VKT/Base.h"

#include "VKT/FileIO.h"
#include "VKT/FnRegistry.h"
#include "VKT/Model.h"
#include "VKT/NodeName.h"
#include "VKT/TextReader.h"
#include "VKT/TextWriter.h"

namespace VKT {
namespace {

constexpr u32 kChunkHeaderSize = 8;

}  // namespace

XBase::XBase(XModel* model) : m_Model(model), m_NameEntry(model->m_Nodes.end()) {}

XBase::~XBase() = default;

u32 XBase::GetDataSize() const
{
    XFileIO measure{XFileIO::Measure{}};
    const_cast<XBase*>(this)->DoData(measure);  // a measure changes nothing
    return static_cast<u32>(kChunkHeaderSize + measure.GetMeasure());
}

bool XBase::NodeDeath(u32)
{
    return true;
}

void XBase::PreDelete(std::set<u32>&) {}

bool XBase::DoData(XFileIO& file)
{
    if (file.IsReading()) {
        if (!file.DoData(m_Name))
            return false;
        m_Name = CleanName(m_Name);
    } else {
        XString name = CleanName(m_Name);
        if (!file.DoData(name))
            return false;
    }
    return file.DoData(m_ID) != 0;
}

void XBase::DoCopy(const XBase*) {}

bool XBase::WriteChunk(XTextWriter& out) const
{
    return out.IsGood();
}

bool XBase::ReadChunk(XTextReader& in)
{
    return in.IsGood();
}

void XBase::SetName(const char* name)
{
    m_Model->SetName(this, name);
}

bool XBase::IsValid(const XBase* node) const
{
    return m_Model->IsValid(node);
}

bool XBase::IsValidId(u32 id) const
{
    return m_Model->HasNode(id);
}

XBase* XBase::Clone() const
{
    XBase* copy = m_Model->CreateNode(GetApiType());
    if (!copy)
        return nullptr;
    m_Model->SetName(copy, m_Name);
    copy->DoCopy(this);
    return copy;
}

bool XBase::Write(XTextWriter& out) const
{
    return WriteHeader(out) && WriteChunk(out) && (out << "}\n").IsGood();
}

bool XBase::WriteHeader(XTextWriter& out) const
{
    if (m_ID == 0)
        return false;
    out << XFnChunkName(GetApiType()) << ' ' << NameAsToken(m_Name) << "\n{\n\tid " << m_ID << '\n';
    return out.IsGood();
}

bool XBase::Read(XTextReader& in)
{
    return ReadHeader(in) && ReadChunk(in) && ReadTrailer(in);
}

bool XBase::ReadHeader(XTextReader& in)
{
    XString token;
    in.ReadToken(token);
    if (!token.starts_with('{')) {
        GetLogger()->LogFormat(kError, "File IO error, malformed chunk header in chunk %s", token.c_str());
        return false;
    }
    in.ReadToken(token);
    if (!token.starts_with("id"))
        return false;
    in.Read(m_ID);
    return in.IsGood();
}

// Room for newer writers: keys behind the last one that the class knows are passed over
// token by token, up to one that begins with a closing brace.
bool XBase::ReadTrailer(XTextReader& in)
{
    XString token;
    if (!in.ReadToken(token)) {
        if (in.IsAtEnd())
            GetLogger()->Log(kError, "Unexpected end of file");
        return false;
    }
    while (token != "}") {
        if (!in.ReadToken(token)) {
            GetLogger()->Log(kError, "corrupt file");
            return false;
        }
        if (in.IsAtEnd()) {
            GetLogger()->Log(kError, "Unexpected end of file");
            return false;
        }
        if (token.starts_with('}'))
            break;
    }
    return true;
}

bool XBase::DoHeader(XFileIO& file)
{
    u16 type = static_cast<u16>(GetApiType());
    u8 hasExtraAttributes = 0;
    u8 reserved = 0;
    u32 size = file.IsWriting() ? GetDataSize() : 0;
    return file.DoData(type) && file.DoData(hasExtraAttributes) && file.DoData(reserved) && file.DoData(size);
}

bool IsFromOlderFile(const XBase& node)
{
    return node.GetModel()->GetVersion() < XModel::kCurrentVersion;
}

}  // namespace VKT
