#pragma once

#include <algorithm>
#include <cstdio>
#include <iosfwd>
#include <limits>
#include <memory>
#include <string_view>
#include <type_traits>

#include "VKT/base/BoneWeight.h"
#include "VKT/base/Vectors.h"
#include "VKT/stream/FileVersion.h"

namespace VKT {

// The text stream that scene files are read from. It extracts what a standard input
// stream in the classic locale would, state included, whatever the process's locale:
// a token is a run of characters without white space; a failure sticks, and everything
// asked for after it is zero or empty; the end is reached when an extraction touches it.
//
// The input passes through one window, so that a file is never held whole: touching
// fresh memory would cost more than the parsing. What the source gave to the window is
// gone from the source.
class XTextReader : public XVersioned {
public:
    static constexpr std::size_t kWindowSize = 64 * 1024;  // bytes
    static constexpr u64 kUnknown = std::numeric_limits<u64>::max();

    // Reads on from the present position of an open file or stream, which stays the
    // caller's and must outlive the reader.
    explicit XTextReader(std::FILE* file, std::size_t windowSize = kWindowSize);
    explicit XTextReader(std::istream& stream, std::size_t windowSize = kWindowSize);
    // Reads characters in memory that outlive the reader.
    explicit XTextReader(std::string_view text);
    ~XTextReader();
    XTextReader(const XTextReader&) = delete;
    XTextReader& operator=(const XTextReader&) = delete;

    bool IsGood() const { return !m_Failed; }
    bool HasFailed() const { return m_Failed; }
    // Whether an extraction has touched the end of the input.
    bool IsAtEnd() const { return m_AtEnd; }
    // Puts the reader into failure, for input that is well-formed and still wrong.
    void SetFailed();

    // Characters that are left: what a claimed count is held against. `kUnknown` when
    // the source cannot tell its length, 0 after a failure.
    u64 Remaining() const;
    // Whether that many numbers may still come: each takes a digit and a separator.
    bool CanHold(u64 numbers) const { return numbers <= Remaining() / 2 + 1; }

    // One token. Empty after a failure, which the end of the input is too.
    bool ReadToken(XString& token);
    // Puts a token back, however long: its characters come next.
    void HandBack(std::string_view token);
    // Takes the next token when it is `key`, letters compared without regard to case.
    // False leaves the token in place, or means that it is not wholly in the window.
    bool TakeKey(std::string_view key);

    // One number; 0 when there is none. One that is out of range fails with the bound,
    // a bool above 1 with true; "-1" is an unsigned's largest value.
    bool Read(bool& value);
    bool Read(i32& value);
    bool Read(u32& value);
    bool Read(u64& value);
    bool Read(f32& value);

    // Up to `count` numbers, vectors of three or weights of two, straight to their place. Ends at
    // the first failure and answers how many came; the rest is untouched.
    std::size_t ReadSome(f32* out, std::size_t count);
    std::size_t ReadSome(i32* out, std::size_t count);
    std::size_t ReadSome(u32* out, std::size_t count);
    std::size_t ReadSome(XVector3* out, std::size_t count);
    std::size_t ReadSome(XBoneWeight* out, std::size_t count);  // influence, then weight
    // Those of the next `count` numbers that stand in the window whole and give no trouble;
    // answers how many came. Never fails: behind them stands a word, the end, or just a
    // number that an extraction of its own takes.
    std::size_t TakeSome(f32* out, std::size_t count);
    // The same as `ReadSome` for what must be complete: the rest after a failure is zero.
    template <class T>
    bool ReadArray(T* out, std::size_t count);

    // Replaces the content of a list by the `count` elements that a file claims. A claim
    // that the rest of the input cannot hold fails before it takes memory; where the
    // length is unknown the list grows with what comes. After a failure the list holds
    // what came.
    template <class List>
    bool ReadNumbers(List& list, u64 count);

    // Single characters as from `istream::get` and `peek`, -1 at the end.
    int Get()
    {
        if (m_Cursor != m_End)
            return static_cast<unsigned char>(*m_Cursor++);
        return GetPastWindow();
    }
    int Peek();
    // The rest of the line without its line feed.
    bool ReadLine(XString& line);

private:
    void OpenWindow(std::size_t size);
    bool Refill();
    std::size_t Fetch(char* to, std::size_t size);
    // The checks that every extraction starts with; false is a failure.
    bool StartCharacters();
    bool StartToken();
    int Next();  // the next character, in its place; -1 at the end, which is noted
    int GetPastWindow();

    template <class T>
    bool ReadNumber(T& value);
    bool ReadLong(i32& value);
    bool ReadLong(u32& value);
    bool ReadLong(f32& value);
    template <class T>
    bool Extract(T& value);
    template <class T>
    bool ExtractInteger(T& value);
    bool ExtractFloat(f32& value);
    template <class T, class Sink>
    void ReadInto(Sink& sink);

    std::FILE* m_File = nullptr;
    std::streambuf* m_Stream = nullptr;
    std::string_view m_Text;  // what is left of it, when reading memory
    u64 m_Left = kUnknown;    // characters that the source has yet to give
    bool m_Failed = false;
    bool m_AtEnd = false;

    // Unread are the characters of the window from m_Cursor to m_End. In front of it
    // and behind m_End is room, so that number parsers may take whole words.
    std::unique_ptr<char[]> m_Window;
    std::size_t m_WindowSize = 0;
    char* m_Cursor = nullptr;
    char* m_End = nullptr;
};

template <class T>
bool XTextReader::ReadArray(T* out, std::size_t count)
{
    const std::size_t came = ReadSome(out, count);
    std::fill(out + came, out + count, T{});
    return came == count;
}

template <class List>
bool XTextReader::ReadNumbers(List& list, u64 count)
{
    using Element = typename List::value_type;
    constexpr u64 kNumbersEach = std::is_same_v<Element, XVector3> ? 3 : 1;
    constexpr u64 kStep = 4096;

    list.clear();
    if (count > kUnknown / kNumbersEach || !CanHold(count * kNumbersEach))
        SetFailed();
    const u64 step = Remaining() == kUnknown ? kStep : count;
    while (list.size() < count && IsGood()) {
        const std::size_t begin = list.size();
        const std::size_t part = static_cast<std::size_t>(std::min<u64>(step, count - begin));
        list.resize(begin + part);
        list.resize(begin + ReadSome(list.data() + begin, part));
    }
    return IsGood();
}

}  // namespace VKT
