#include "VKT/stream/TextReader.h"

#include <cstring>
#include <istream>

#include "VKT/stream/NumberText.h"
#include "VKT/stream/Platform.h"

namespace VKT {

namespace {

using namespace NumberText;

// Room in front of the window: for a token that is handed back, and for a parser that
// looks at the eight characters before a token's end.
constexpr std::size_t kWordRoom = 8;
constexpr std::size_t kFrontRoom = 64 + kWordRoom;
// Zeroes behind the window end every run of white space and digits.
constexpr std::size_t kBackRoom = 64 + kWordRoom;

}  // namespace

XTextReader::XTextReader(std::FILE* file, std::size_t windowSize) : m_File(file)
{
    OpenWindow(windowSize);
    const i64 position = TellFile(file);
    if (position >= 0 && SeekFile(file, 0, SEEK_END)) {
        // Special files have no length and still something to give.
        if (const i64 size = TellFile(file); size > 0)
            m_Left = static_cast<u64>(std::max<i64>(size - position, 0));
        SeekFile(file, position, SEEK_SET);
    }
}

XTextReader::XTextReader(std::istream& stream, std::size_t windowSize)
    : m_Stream(stream.rdbuf()), m_Failed(stream.fail()), m_AtEnd(stream.eof())
{
    OpenWindow(windowSize);
    if (!m_Stream)
        SetFailed();
    if (m_Failed)
        return;
    const std::streamoff position = m_Stream->pubseekoff(0, std::ios::cur, std::ios::in);
    if (position < 0)
        return;
    const std::streamoff size = m_Stream->pubseekoff(0, std::ios::end, std::ios::in);
    m_Stream->pubseekpos(position, std::ios::in);
    if (size > 0)
        m_Left = static_cast<u64>(std::max<std::streamoff>(size - position, 0));
}

XTextReader::XTextReader(std::string_view text) : m_Text(text), m_Left(text.size())
{
    OpenWindow(std::min(text.size(), kWindowSize));
}

XTextReader::~XTextReader() = default;

void XTextReader::OpenWindow(std::size_t size)
{
    m_WindowSize = size;
    m_Window = std::make_unique_for_overwrite<char[]>(kFrontRoom + size + kBackRoom);
    std::memset(m_Window.get(), 0, kFrontRoom);
    m_Cursor = m_End = m_Window.get() + kFrontRoom;
    std::memset(m_End, 0, kBackRoom);
}

std::size_t XTextReader::Fetch(char* to, std::size_t size)
{
    if (m_File)
        return std::fread(to, 1, size, m_File);
    if (m_Stream)
        return static_cast<std::size_t>(m_Stream->sgetn(to, static_cast<std::streamsize>(size)));
    const std::size_t came = m_Text.copy(to, size);
    m_Text.remove_prefix(came);
    return came;
}

// Fills the window once all of it is read. False at the end of the input.
bool XTextReader::Refill()
{
    char* const begin = m_Window.get() + kFrontRoom;
    const std::size_t came = Fetch(begin, m_WindowSize);
    if (m_Left != kUnknown)
        m_Left -= std::min<u64>(came, m_Left);
    if (came == 0 && m_File && std::ferror(m_File))
        m_Failed = true;
    m_Cursor = begin;
    m_End = begin + came;
    std::memset(m_End, 0, kBackRoom);
    return came > 0;
}

void XTextReader::SetFailed()
{
    // With an empty window every extraction meets the check for failure.
    m_Failed = true;
    m_Cursor = m_End;
}

u64 XTextReader::Remaining() const
{
    if (m_Failed)
        return 0;
    return m_Left == kUnknown ? kUnknown : m_Left + static_cast<u64>(m_End - m_Cursor);
}

bool XTextReader::StartCharacters()
{
    if (m_Failed || m_AtEnd)
        SetFailed();
    return !m_Failed;
}

bool XTextReader::StartToken()
{
    if (!StartCharacters())
        return false;
    int next = Next();
    while (next >= 0 && IsSpace(static_cast<char>(next))) {
        ++m_Cursor;
        next = Next();
    }
    if (next < 0)
        SetFailed();
    return next >= 0;
}

int XTextReader::Next()
{
    if (m_Cursor == m_End && !Refill()) {
        m_AtEnd = true;
        return -1;
    }
    return static_cast<unsigned char>(*m_Cursor);
}

int XTextReader::GetPastWindow()
{
    if (!StartCharacters())
        return -1;
    const int next = Next();
    if (next < 0)
        SetFailed();
    else
        ++m_Cursor;
    return next;
}

int XTextReader::Peek()
{
    return StartCharacters() ? Next() : -1;
}

bool XTextReader::ReadLine(XString& line)
{
    line.clear();
    if (!StartCharacters())
        return false;
    if (Next() < 0) {
        SetFailed();
        return false;
    }
    do {
        char* const stop = std::find(m_Cursor, m_End, '\n');
        line.append(m_Cursor, stop);
        m_Cursor = stop;
        if (stop != m_End) {
            ++m_Cursor;
            return true;
        }
    } while (Next() >= 0);
    return true;
}

bool XTextReader::ReadToken(XString& token)
{
    token.clear();
    if (!StartToken())
        return false;
    do {
        char* const stop = std::find_if(m_Cursor, m_End, IsSpace);
        token.append(m_Cursor, stop);
        m_Cursor = stop;
    } while (m_Cursor == m_End && Next() >= 0);
    return true;
}

void XTextReader::HandBack(std::string_view token)
{
    if (m_Failed || token.empty())
        return;
    m_AtEnd = false;
    const std::size_t room = static_cast<std::size_t>(m_Cursor - m_Window.get()) - kWordRoom;
    if (token.size() > room) {
        // A token longer than its window: the window grows by it.
        const std::unique_ptr<char[]> old = std::move(m_Window);
        const std::size_t unread = static_cast<std::size_t>(m_End - m_Cursor);
        const char* const rest = m_Cursor;
        OpenWindow(token.size() + std::max(unread, m_WindowSize));
        m_Cursor += token.size();
        m_End = m_Cursor + unread;
        std::memcpy(m_Cursor, rest, unread);
        std::memset(m_End, 0, kBackRoom);
    }
    m_Cursor -= token.size();
    std::memmove(m_Cursor, token.data(), token.size());
}

bool XTextReader::TakeKey(std::string_view key)
{
    while (IsSpace(*m_Cursor))  // ends at a zero behind the window at the latest
        ++m_Cursor;
    if (static_cast<std::size_t>(m_End - m_Cursor) <= key.size() || !IsSpace(m_Cursor[key.size()]))
        return false;
    for (std::size_t i = 0; i < key.size(); ++i) {
        if (ToLower(m_Cursor[i]) != ToLower(key[i]))
            return false;
    }
    m_Cursor += key.size();
    return true;
}

}  // namespace VKT
