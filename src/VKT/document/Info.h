#pragma once

#include "VKT/stream/FileIO.h"

namespace VKT {

class XTextReader;
class XTextWriter;

// The record at the top of a scene file: who wrote it, where, from what, and when. It
// is no node. A document holds at most one, and files need not have one.
class XInfo {
public:
    // Now, unknown file, and this library as the application.
    XInfo();

    const XString& GetOriginalFile() const { return m_OriginalFile; }
    void SetOriginalFile(const XString& file) { m_OriginalFile = file; }
    const XString& GetApplication() const { return m_Application; }
    void SetApplication(const XString& application) { m_Application = application; }
    // The side file of images of a text file; "none" and "" mean that there is none.
    const XString& GetTextureFile() const { return m_TextureFile; }
    bool HasTextureFile() const { return !m_TextureFile.empty() && m_TextureFile != "none"; }
    void SetTextureFile(const XString& file) { m_TextureFile = file; }
    const XString& GetUser() const { return m_User; }
    void SetUser(const XString& user) { m_User = user; }
    const XString& GetHost() const { return m_Host; }
    void SetHost(const XString& host) { m_Host = host; }
    const XDate& GetDate() const { return m_Date; }
    void SetDate(const XDate& date) { m_Date = date; }

    // The `INFO` chunk of a text file. The writer takes user, host and time from the
    // platform and not from the record; `now` stands in for the present time in tests.
    bool Write(XTextWriter& out) const;
    bool Write(XTextWriter& out, const XString& user, const XString& host, const XDate& now) const;
    // Reads behind the chunk's key and name. False after a logged failure.
    bool Read(XTextReader& in);
    // The body of the binary chunk; when writing, the chunk's header in front of it.
    // The texture file is not part of the binary form, which holds the images itself.
    bool DoData(XFileIO& file);

private:
    u32 m_Revision = 48;  // no reader; carried along
    XString m_OriginalFile = "unknown";
    XString m_Application = "VKT_SDK";
    XString m_TextureFile;
    XString m_User;
    XString m_Host;
    XDate m_Date;
};

}  // namespace VKT
