#include "VKT/document/Info.h"

#include <algorithm>
#include <charconv>

#include "VKT/base/Logger.h"
#include "VKT/node/Fn.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/Platform.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\Info";

// Up to three numbers with separators between them, as a scan of "%d" for each would
// take them: what can't be read leaves the rest as it was.
void ScanNumbers(std::string_view text, char separator, u32* first, u32* second, u32* third)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    for (u32* target : {first, second, third}) {
        at = std::find_if(at, end, [](char c) { return c != ' '; });
        if (at != end && *at == '+')
            ++at;
        i32 value = 0;
        const auto [behind, error] = std::from_chars(at, end, value);
        if (error != std::errc())
            return;
        *target = static_cast<u32>(value);
        at = behind;
        if (separator == ' ')
            continue;
        if (at == end || *at != separator)
            return;
        ++at;
    }
}

}  // namespace

XInfo::XInfo() : m_Date(LocalTime()) {}

bool XInfo::Write(XTextWriter& out) const
{
    return Write(out, LoginName(), ComputerName(), LocalTime());
}

bool XInfo::Write(XTextWriter& out, const XString& user, const XString& host, const XDate& now) const
{
    out << "INFO info\n{\n";
    out << "\tuser \"" << (user.empty() ? "unknown" : user.c_str()) << "\"\n";
    out << "\thost \"" << (host.empty() ? "unknown" : host.c_str()) << "\"\n";
    out << "\ttexture_file \"" << (m_TextureFile.empty() ? "none" : m_TextureFile.c_str()) << "\"\n";
    out << "\tformat_version " << XFileHeader{kCurrentVersion, XFileForm::kText}.Word()
        << "\n\tsend_bug_reports_to vkt-bugs@vkt.invalid\n";
    out << "\tapplication \"" << m_Application << "\"\n";
    out << "\toriginal_file \"" << m_OriginalFile << "\"\n";
    // Kept on purpose: the month counts from 1 and the year is whole already, and files
    // hold one month and 1900 years more.
    out << "\tdate " << now.day << '/' << now.month + 1 << '/' << now.year + 1900 << '\n';
    out << "\ttime " << now.hour << '.' << now.minute << ':' << now.second << "\n}\n";
    return out.IsGood();
}

bool XInfo::Read(XTextReader& in)
{
    m_OriginalFile.clear();
    m_Application.clear();
    XString token;
    in.ReadToken(token);  // the opening brace
    XBlockReader block(in, kSource);
    if (!block.Expect("user") || !ReadQuoted(in, m_User) ||  //
        !block.Expect("host") || !ReadQuoted(in, m_Host) ||  //
        !block.Expect("texture_file") || !ReadQuoted(in, m_TextureFile) ||
        !block.Read("format_version", token))
        return false;
    const std::optional<XFileHeader> format = XFileHeader::OfWord(token);
    if (!format) {
        GetLogger()->Log(kError, "Incorrect format");
        return false;
    }
    if (format->version > kCurrentVersion) {
        GetLogger()->Log(kError, "This version of VKT is not supported by this version of the SDK");
        return false;
    }
    if (!block.Expect("send_bug_reports_to") || !in.ReadToken(token) ||  //
        !block.Expect("application") || !ReadQuoted(in, m_Application) || !block.Expect("original_file") ||
        !ReadQuoted(in, m_OriginalFile))
        return false;
    in.ReadToken(token);  // "date"
    in.ReadToken(token);
    ScanNumbers(token, '/', &m_Date.day, &m_Date.month, &m_Date.year);
    in.ReadToken(token);  // "time"
    in.ReadToken(token);
    std::replace(token.begin(), token.end(), '.', ' ');
    std::replace(token.begin(), token.end(), ':', ' ');
    ScanNumbers(token, ' ', &m_Date.hour, &m_Date.minute, &m_Date.second);
    return block.Expect("}");
}

bool XInfo::DoData(XFileIO& file)
{
    if (file.IsWriting()) {
        u16 type = kChunkInfo;
        u16 flags = 0;
        u32 size = 44;
        for (const XString* text : {&m_OriginalFile, &m_Application, &m_User, &m_Host})
            size += static_cast<u32>(std::min<std::size_t>(text->size(), 0xFFFF));  // what is stored of it
        if (!file.DoData(type) || !file.DoData(flags) || !file.DoData(size))
            return false;
    }
    return file.DoData(m_Revision) && file.DoData(m_OriginalFile) && file.DoData(m_Application) &&
           file.DoData(m_User) && file.DoData(m_Host) && file.DoData(m_Date);
}

}  // namespace VKT
