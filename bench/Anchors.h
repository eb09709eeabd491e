#pragma once

#include <charconv>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "Measure.h"

// The yardsticks that the library's text streams are held against: plain readers and
// writers as one would write them with the standard library alone. They know tokens and
// numbers and nothing of failures, which makes them faster than a reader that is safe.
namespace Bench {

// Reads through a window of 64 KiB, every number by `from_chars`.
class FromCharsReader {
public:
    explicit FromCharsReader(const char* path);
    ~FromCharsReader() { std::fclose(m_File); }
    FromCharsReader(const FromCharsReader&) = delete;
    FromCharsReader& operator=(const FromCharsReader&) = delete;

    // The next token; it stands until the next call.
    std::string_view Token();
    template <class T>
    void Read(T& value)
    {
        SkipSpaces();
        const auto [end, error] = std::from_chars(m_Cursor, m_End, value);
        if (error != std::errc())
            Fail("from_chars found no number");
        m_Cursor += end - m_Cursor;
    }

private:
    static constexpr std::size_t kWindow = 64 * 1024;
    static constexpr std::ptrdiff_t kLongest = 64;  // a token with the white space before it

    static bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
    void SkipSpaces()
    {
        if (m_End - m_Cursor < kLongest)
            Refill();
        while (IsSpace(*m_Cursor))  // ends at a zero behind the window at the latest
            ++m_Cursor;
    }
    void Refill();

    std::FILE* m_File;
    std::unique_ptr<char[]> m_Window;
    char* m_Cursor;
    char* m_End;
};

// The whole file in a `stringstream`, and `>>`.
class StringStreamReader {
public:
    explicit StringStreamReader(const char* path) { m_In << std::ifstream(path, std::ios::binary).rdbuf(); }

    std::string_view Token()
    {
        m_In >> m_Token;
        return m_Token;
    }
    template <class T>
    void Read(T& value)
    {
        if (!(m_In >> value))
            Fail("the stringstream found no number");
    }

private:
    std::stringstream m_In;
    std::string m_Token;
};

// Writes through a window of 64 KiB, every number by `to_chars` with six digits.
class ToCharsWriter {
public:
    explicit ToCharsWriter(const char* path);
    ~ToCharsWriter() { std::fclose(m_File); }
    ToCharsWriter(const ToCharsWriter&) = delete;
    ToCharsWriter& operator=(const ToCharsWriter&) = delete;

    void Write(std::string_view text)  // at most kRoom characters
    {
        MakeRoom();
        std::memcpy(m_Cursor, text.data(), text.size());
        m_Cursor += text.size();
    }
    void Write(f32 value)
    {
        MakeRoom();
        m_Cursor = std::to_chars(m_Cursor, m_Cursor + kRoom, value, std::chars_format::general, 6).ptr;
    }
    template <class Integer>
    void Write(Integer value) requires std::is_integral_v<Integer>
    {
        MakeRoom();
        m_Cursor = std::to_chars(m_Cursor, m_Cursor + kRoom, value).ptr;
    }
    void Flush();

private:
    static constexpr std::size_t kWindow = 64 * 1024;
    static constexpr std::size_t kRoom = 64;

    void MakeRoom()
    {
        if (static_cast<std::size_t>(m_Window.get() + kWindow - m_Cursor) < kRoom)
            Flush();
    }

    std::FILE* m_File;
    std::unique_ptr<char[]> m_Window;
    char* m_Cursor;
};

// An `ofstream` as it comes, and `<<`.
class FileStreamWriter {
public:
    explicit FileStreamWriter(const char* path) : m_Out(path, std::ios::binary) {}
    template <class T>
    void Write(const T& value)
    {
        m_Out << value;
    }
    void Flush()
    {
        if (!m_Out.flush())
            Fail("the ofstream failed");
    }

private:
    std::ofstream m_Out;
};

}  // namespace Bench
