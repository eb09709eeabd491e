#pragma once

#include <algorithm>
#include <concepts>
#include <cstdio>
#include <functional>
#include <iosfwd>
#include <memory>
#include <span>
#include <string_view>

#include "VKT/base/Vectors.h"
#include "VKT/stream/FileVersion.h"

namespace VKT {

// How the rows of a table of numbers are laid out: `before`, the numbers with a blank
// behind each (behind the last one only when `blankAtEnd`), `after`. Of either text at
// most 16 characters.
class XRowFormat {
public:
    constexpr XRowFormat(std::string_view before, bool blankAtEnd = false, std::string_view after = "\n")
        : m_Before(before), m_After(after), m_BlankAtEnd(blankAtEnd)
    {
    }

private:
    friend class XTextWriter;

    // Copied whole, as a block of known size, whatever its length.
    struct Piece {
        constexpr Piece(std::string_view from) : size(std::min(from.size(), sizeof text))
        {
            std::copy_n(from.data(), size, text);
        }
        std::string_view Text() const { return {text, size}; }
        char text[16] = {};
        std::size_t size;
    };
    Piece m_Before;
    Piece m_After;
    bool m_BlankAtEnd;
};

// The id of a node, where a text refers to it: `out << XNodeId{id}`. Bodies write ids as
// such, or as lists by `WriteIds`, so that a comparison can tell them from other numbers.
struct XNodeId {
    u32 id;
};

// The text stream that scene files are written to. Numbers come out as a standard output
// stream in the classic locale with its default settings prints them, whatever the
// process's locale: floats with at most six significant digits, bools as 0 and 1.
//
// The output passes through one window of 64 KiB. A failure sticks: what is written
// after it is dropped.
class XTextWriter : public XVersioned {
public:
    // Writes to an open file or stream, which stays the caller's and must outlive the
    // writer.
    explicit XTextWriter(std::FILE* file);
    explicit XTextWriter(std::ostream& stream);
    // Writes to a string of its own: `Text`.
    XTextWriter();
    // Hands on what is still in the window. Call `Flush` to know whether that went well.
    ~XTextWriter();
    XTextWriter(const XTextWriter&) = delete;
    XTextWriter& operator=(const XTextWriter&) = delete;

    bool IsGood() const { return !m_Failed; }
    // Hands everything on to the file or stream and flushes that. False when any byte so
    // far could not be written.
    bool Flush();
    // Writes for who compares documents instead of for a file: floats with all digits that
    // tell them apart, and ids of nodes as what `nameOf` answers for them.
    void Describe(std::function<XString(u32 id)> nameOf) { m_NameOf = std::move(nameOf); }

    // What was written so far, of a writer without file and stream.
    const XString& Text();
    // The same, and the writer starts anew.
    XString TakeText();

    XTextWriter& operator<<(std::string_view text);
    XTextWriter& operator<<(char character);
    XTextWriter& operator<<(i32 value);
    XTextWriter& operator<<(u32 value);
    XTextWriter& operator<<(u64 value);
    XTextWriter& operator<<(f32 value);
    // A template, so that no pointer turns into a bool.
    XTextWriter& operator<<(std::same_as<bool> auto value) { return *this << (value ? '1' : '0'); }
    XTextWriter& operator<<(XNodeId node);

    // One row of numbers. The format is that of every row of a table, so that an empty
    // row is `before` and `after`.
    void WriteRow(std::span<const f32> values, const XRowFormat& format);
    void WriteRow(std::span<const i32> values, const XRowFormat& format);
    void WriteRow(std::span<const u32> values, const XRowFormat& format);
    void WriteIds(std::span<const u32> ids, const XRowFormat& format);

    // A table of numbers in rows of `columns`, the last of which may be shorter.
    void WriteRows(std::span<const f32> values, std::size_t columns, const XRowFormat& format);
    void WriteRows(std::span<const i32> values, std::size_t columns, const XRowFormat& format);
    void WriteRows(std::span<const u32> values, std::size_t columns, const XRowFormat& format);
    // One row of x, y and z for each vector.
    void WriteRows(std::span<const XVector3> values, const XRowFormat& format);

private:
    bool IsDescribing() const { return m_NameOf != nullptr; }
    std::size_t Room() const { return static_cast<std::size_t>(m_End - m_Cursor); }
    void HandOn();
    void Deliver(std::string_view text);
    template <class T>
    XTextWriter& PrintNumber(T value);
    template <class T>
    void PrintRows(const T* values, std::size_t rows, std::size_t columns, std::size_t stride,
                   const XRowFormat& format);
    template <class T>
    void PrintTable(std::span<const T> values, std::size_t columns, const XRowFormat& format);

    std::FILE* m_File = nullptr;
    std::ostream* m_Stream = nullptr;
    XString m_Text;
    std::function<XString(u32)> m_NameOf;
    bool m_Failed = false;

    // The window: written are the characters from its begin to m_Cursor.
    std::unique_ptr<char[]> m_Window;
    char* m_Cursor = nullptr;
    char* m_End = nullptr;
};

}  // namespace VKT
