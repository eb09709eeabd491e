#include "VKT/node/Base.h"

#include "VKT/document/InheritedNode.h"
#include "VKT/document/Model.h"
#include "VKT/document/NewNode.h"
#include "VKT/node/ExtraAttributes.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr u32 kChunkHeaderSize = 8;

}  // namespace

XBase::XBase(XModel* model) : m_Model(model) {}

XBase::~XBase() = default;

u32 XBase::GetDataSize() const
{
    return static_cast<u32>(MeasureChunk());
}

u64 XBase::MeasureChunk() const
{
    XFileIO measure = XFileIO::Measuring();
    const_cast<XBase*>(this)->DoData(measure);  // a measure changes nothing
    return kChunkHeaderSize + measure.GetMeasure();
}

void XBase::ListReferences(XIndexList& ids) const
{
    if (m_ExtraAttributes)
        m_ExtraAttributes->ListConnected(ids);
    ListFieldReferences(ids);
}

void XBase::ListFieldReferences(XIndexList& ids) const
{
    XFileIO listing = XFileIO::Listing(ids);
    const_cast<XBase*>(this)->DoData(listing);  // which changes nothing
}

bool XBase::NodeDeath(u32 id)
{
    if (m_ExtraAttributes)
        m_ExtraAttributes->NodeDeath(*m_Model, id);
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
    if (!file.DoData(m_ID))
        return false;
    // The loader has made the block of a chunk whose header says that there is one.
    if (file.IsReading())
        return !m_ExtraAttributes || m_ExtraAttributes->DoData(file);
    return file.IsListing() || !SavesExtraAttributes() || m_ExtraAttributes->DoData(file);
}

void XBase::DoCopy(const XBase*) {}

bool XBase::WriteChunk(XTextWriter& out) const
{
    return out.IsGood();
}

bool XBase::ReadChunk(XTextReader& in)
{
    return ReadFields(in) && in.IsGood();
}

void XBase::SetName(const char* name)
{
    m_Model->SetName(this, name);
}

void XBase::CleanOwnName()
{
    m_Model->m_Nodes.Rename(*this, CleanName(m_Name));
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
    if (m_ExtraAttributes)
        copy->RenewExtraAttributes().Copy(*m_ExtraAttributes);
    copy->DoCopy(this);
    return copy;
}

bool XBase::Write(XTextWriter& out) const
{
    if (!WriteHeader(out) || !WriteChunk(out))
        return false;
    if (SavesExtraAttributes())
        m_ExtraAttributes->Write(out, *m_Model);
    out << "}\n";
    return out.IsGood();
}

// Kept on purpose: user-defined lights and animation nodes have no key, and files that hold
// them cannot be read back.
XString XBase::ChunkKey() const
{
    if (m_InheritedFrom)
        return m_InheritedFrom->GetHeader();
    const u32 type = GetApiType();
    const XNewNode* definition = GetUserDefinition();
    return definition && type != kFnNewLight && type != kFnNewAnim ? definition->GetHeader()
                                                                   : XFnChunkName(type);
}

bool XBase::WriteHeader(XTextWriter& out) const
{
    if (m_ID == 0)
        return false;
    out << ChunkKey() << ' ' << NameAsToken(m_Name) << "\n{\n\tid " << m_ID << '\n';
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
        if (token == "EXTRA_ATTRIBUTES")
            RenewExtraAttributes().ReadAttributes(in);
        else if (token == "CONNECTIONS" && m_ExtraAttributes)
            m_ExtraAttributes->ReadConnections(in);
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
    return DoHeader(file, file.IsWriting() ? GetDataSize() : 0);
}

bool XBase::DoHeader(XFileIO& file, u32 size)
{
    u16 type = static_cast<u16>(m_InheritedFrom ? m_InheritedFrom->GetFileType() : GetApiType());
    u8 hasExtraAttributes = file.IsWriting() && SavesExtraAttributes();
    u8 reserved = 0;
    if (!file.DoData(type) || !file.DoData(hasExtraAttributes) || !file.DoData(reserved) ||
        !file.DoData(size))
        return false;
    if (file.IsReading() && hasExtraAttributes)
        RenewExtraAttributes();
    return true;
}

XAttribute* XBase::CreateExtraAttribute(const char* name)
{
    if (GetExtraAttribute(name))
        return nullptr;
    return (m_ExtraAttributes ? *m_ExtraAttributes : RenewExtraAttributes()).Add(name);
}

XAttribute* XBase::GetExtraAttribute(const char* name) const
{
    return m_ExtraAttributes ? m_ExtraAttributes->Find(name) : nullptr;
}

void XBase::ListExtraAttributes(XStringList& names) const
{
    names.clear();
    if (m_ExtraAttributes)
        m_ExtraAttributes->ListNames(names);
}

bool XBase::SavesExtraAttributes() const
{
    return m_ExtraAttributes && m_Model->GetSaveFlags().Test(SaveExtraAttributes);
}

XExtraAttributes& XBase::RenewExtraAttributes()
{
    m_ExtraAttributes = std::make_unique<XExtraAttributes>();
    return *m_ExtraAttributes;
}

}  // namespace VKT
