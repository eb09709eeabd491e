#include "VKT/TextReader.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <istream>
#include <optional>

#include "VKT/NumberText.h"
#include "VKT/Platform.h"

namespace VKT {

namespace {

using namespace NumberText;

// Room in front of the window: for a token that is handed back, and for a parser that
// looks at the eight characters before a token's end.
constexpr std::size_t kWordRoom = 8;
constexpr std::size_t kFrontRoom = 64 + kWordRoom;
// Zeroes behind the window end every run of white space and digits.
constexpr std::size_t kBackRoom = 64 + kWordRoom;

// A number longer than this is left to the extraction by single characters, so that
// tokens without end are not walked again for each number in them.
constexpr std::ptrdiff_t kLongestToken = 64;

// One number that fills a token with white space behind it: nothing, when it takes the
// extraction by characters to say what comes of it.
template <class T>
std::optional<T> ParseLong(const char* begin, const char* end)
{
    T value;
    const std::from_chars_result result = std::from_chars(begin, end, value);
    return result.ec == std::errc() && result.ptr == end ? std::optional(value) : std::nullopt;
}
template <>
std::optional<f32> ParseLong(const char* begin, const char* end)
{
    f32 value;
    const std::string_view token(begin, static_cast<std::size_t>(end - begin));
    const bool isWhole = ParseDecimal(token, value) == token.size() && std::isfinite(value);
    return isWhole ? std::optional(value) : std::nullopt;
}
template <class T>
bool ParseToken(const char* begin, const char* end, T& value)
{
    if (ParseShort(begin, end, value)) [[likely]]
        return true;
    const std::optional<T> parsed = ParseLong<T>(begin, end);
    if (!parsed)
        return false;
    value = *parsed;
    return true;
}

// Where an array read puts its numbers.
template <class T>
struct XPlainSink {
    T* next;
    T* end;
    bool IsFull() const { return next == end; }
    void Put(T value) { *next++ = value; }
};
// Three numbers and a zero for each vector.
struct XVectorSink {
    XVector3* next;
    XVector3* end;
    f32 held[2] = {};
    unsigned column = 0;
    bool IsFull() const { return next == end; }
    void Put(f32 value)
    {
        if (column < 2) {
            held[column++] = value;
            return;
        }
        *next++ = {held[0], held[1], value, 0.0f};
        column = 0;
    }
};

// Takes the numbers that lie in the window whole and give no trouble; answers where they
// end. Which characters are white space is found for 64 of them at a time, so that one
// number need not wait for the end of the number before it.
template <class T, class Sink>
const char* TakeNumbers(const char* taken, const char* windowEnd, Sink& sink)
{
    const char* begin = nullptr;  // of a token that the last block has left open
    u64 spaceBefore = 1;          // the last character of the last block
    for (const char* block = taken; block < windowEnd; block += 64) {
        const u64 spaces = FindSpaces(block);
        u64 edges = spaces ^ (spaces << 1 | spaceBefore);  // where tokens begin and end
        spaceBefore = spaces >> 63;
        const auto nextEdge = [&] {
            const char* const edge = block + std::countr_zero(edges);
            edges &= edges - 1;
            return edge;
        };
        if (begin && !edges)
            return taken;  // more than a number
        while (edges) {
            if (!begin)
                begin = nextEdge();
            if (!edges)
                break;
            const char* const end = nextEdge();
            T value;
            if (!ParseToken(begin, end, value))
                return taken;
            sink.Put(value);
            taken = end;
            begin = nullptr;
            if (sink.IsFull())
                return taken;
        }
    }
    return taken;
}

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

bool XTextReader::Read(bool& value)
{
    i32 number = 0;
    Read(number);
    value = number != 0;
    if (number != 0 && number != 1)
        SetFailed();
    return IsGood();
}

bool XTextReader::Read(i32& value)
{
    return ReadNumber(value);
}

bool XTextReader::Read(u32& value)
{
    return ReadNumber(value);
}

bool XTextReader::Read(u64& value)
{
    value = 0;
    return StartToken() && ExtractInteger(value);
}

bool XTextReader::Read(f32& value)
{
    return ReadNumber(value);
}

template <class T>
bool XTextReader::ReadNumber(T& value)
{
    const char* begin = m_Cursor;
    while (IsSpace(*begin))  // ends at a zero behind the window at the latest
        ++begin;
    const char* const limit = std::min<const char*>(m_End, begin + kLongestToken);
    const char* end = begin;
    while (end < limit && !IsSpace(*end))
        ++end;
    if (end < limit && ParseToken(begin, end, value)) {
        m_Cursor += end - m_Cursor;
        return true;
    }
    value = T{};
    if (!StartToken())
        return false;
    if constexpr (std::is_same_v<T, f32>)
        return ExtractFloat(value);
    else
        return ExtractInteger(value);
}

// What num_get takes: a sign and all digits that follow, even past the largest number.
template <class T>
bool XTextReader::ExtractInteger(T& value)
{
    int next = Next();
    const bool negative = next == '-';
    const auto advance = [&] {
        ++m_Cursor;
        next = Next();
    };
    if (next == '-' || next == '+')
        advance();
    constexpr u64 kLargest = static_cast<u64>(std::numeric_limits<T>::max());
    const u64 bound = std::is_signed_v<T> && negative ? kLargest + 1 : kLargest;
    u64 magnitude = 0;
    bool hasDigits = false;
    bool isBeyond = false;
    for (; next >= 0 && IsDigit(static_cast<char>(next)); advance()) {
        const u64 digit = static_cast<u64>(next - '0');
        hasDigits = true;
        isBeyond = isBeyond || magnitude > (bound - digit) / 10;
        if (!isBeyond)
            magnitude = magnitude * 10 + digit;
    }
    value = static_cast<T>(negative ? 0 - magnitude : magnitude);
    if (isBeyond)
        value = bound == kLargest ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
    if (!hasDigits || isBeyond)
        SetFailed();
    return IsGood();
}

// What num_get takes: a sign, digits with one point, and behind a digit an exponent, with
// or without its digits. The whole of it must then be a number.
bool XTextReader::ExtractFloat(f32& value)
{
    XString text;
    int next = Next();
    const auto take = [&] {
        text += static_cast<char>(next);
        ++m_Cursor;
        next = Next();
    };
    const auto takeSign = [&] {
        if (next == '-' || next == '+')
            take();
    };
    takeSign();
    bool hasDigits = false;
    bool hasPoint = false;
    bool hasExponent = false;
    while (next >= 0) {
        if (IsDigit(static_cast<char>(next))) {
            hasDigits = true;
            take();
        } else if (next == '.' && !hasPoint && !hasExponent) {
            hasPoint = true;
            take();
        } else if ((next == 'e' || next == 'E') && hasDigits && !hasExponent) {
            hasExponent = true;
            take();
            takeSign();
        } else {
            break;
        }
    }
    if (ParseDecimal(text, value) != text.size() || text.empty()) {
        value = 0.0f;
        SetFailed();
    } else if (std::isinf(value)) {
        value = std::copysign(std::numeric_limits<f32>::max(), value);
        SetFailed();
    }
    return IsGood();
}

std::size_t XTextReader::ReadSome(f32* out, std::size_t count)
{
    XPlainSink<f32> sink{out, out + count};
    ReadInto<f32>(sink);
    return static_cast<std::size_t>(sink.next - out);
}

std::size_t XTextReader::ReadSome(i32* out, std::size_t count)
{
    XPlainSink<i32> sink{out, out + count};
    ReadInto<i32>(sink);
    return static_cast<std::size_t>(sink.next - out);
}

std::size_t XTextReader::ReadSome(u32* out, std::size_t count)
{
    XPlainSink<u32> sink{out, out + count};
    ReadInto<u32>(sink);
    return static_cast<std::size_t>(sink.next - out);
}

std::size_t XTextReader::ReadSome(XVector3* out, std::size_t count)
{
    XVectorSink sink{out, out + count};
    ReadInto<f32>(sink);
    return static_cast<std::size_t>(sink.next - out);
}

template <class T, class Sink>
void XTextReader::ReadInto(Sink& sink)
{
    Sink local = sink;  // its members stay in registers
    while (!local.IsFull()) {
        m_Cursor += TakeNumbers<T>(m_Cursor, m_End, local) - m_Cursor;
        T value;
        if (local.IsFull() || !Read(value))
            break;
        local.Put(value);
    }
    sink = local;
}

}  // namespace VKT
