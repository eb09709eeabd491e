#include "VKT/stream/TextWriter.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <utility>

#include "VKT/stream/NumberText.h"

namespace VKT {

namespace {

constexpr std::size_t kWindowSize = 64 * 1024;

template <class T>
char* Print(char* out, T value, bool exact)
{
    if constexpr (std::is_same_v<T, f32>)
        if (exact)
            return NumberText::PrintExact(out, value);
    return NumberText::Print(out, value);
}

}  // namespace

XTextWriter::XTextWriter()
    : m_Window(std::make_unique_for_overwrite<char[]>(kWindowSize)),
      m_Cursor(m_Window.get()),
      m_End(m_Cursor + kWindowSize)
{
}

XTextWriter::XTextWriter(std::FILE* file) : XTextWriter()
{
    m_File = file;
}

XTextWriter::XTextWriter(std::ostream& stream) : XTextWriter()
{
    m_Stream = &stream;
    m_Failed = !stream.good();
}

XTextWriter::~XTextWriter()
{
    try {
        HandOn();
    } catch (...) {
        // A stream may be set to throw. Who wants to know calls `Flush`.
    }
}

// Empties the window into the target.
void XTextWriter::HandOn()
{
    const std::string_view text(m_Window.get(), static_cast<std::size_t>(m_Cursor - m_Window.get()));
    m_Cursor = m_Window.get();
    Deliver(text);
}

void XTextWriter::Deliver(std::string_view text)
{
    if (m_Failed || text.empty())
        return;
    if (m_File)
        m_Failed = std::fwrite(text.data(), 1, text.size(), m_File) != text.size();
    else if (m_Stream)
        m_Failed = !m_Stream->write(text.data(), static_cast<std::streamsize>(text.size()));
    else
        m_Text += text;
}

bool XTextWriter::Flush()
{
    HandOn();
    if (m_File)
        m_Failed = std::fflush(m_File) != 0 || m_Failed;
    else if (m_Stream)
        m_Failed = !m_Stream->flush() || m_Failed;
    return IsGood();
}

const XString& XTextWriter::Text()
{
    HandOn();
    return m_Text;
}

XString XTextWriter::TakeText()
{
    HandOn();
    return std::exchange(m_Text, {});
}

XTextWriter& XTextWriter::operator<<(std::string_view text)
{
    if (text.size() > Room())
        HandOn();
    if (text.size() > Room()) {
        Deliver(text);
        return *this;
    }
    std::memcpy(m_Cursor, text.data(), text.size());
    m_Cursor += text.size();
    return *this;
}

XTextWriter& XTextWriter::operator<<(char character)
{
    if (m_Cursor == m_End)
        HandOn();
    *m_Cursor++ = character;
    return *this;
}

template <class T>
XTextWriter& XTextWriter::PrintNumber(T value)
{
    if (Room() < NumberText::kPrintRoom)
        HandOn();
    m_Cursor = Print(m_Cursor, value, IsDescribing());
    return *this;
}

XTextWriter& XTextWriter::operator<<(i32 value)
{
    return PrintNumber(value);
}

XTextWriter& XTextWriter::operator<<(u32 value)
{
    return PrintNumber(value);
}

XTextWriter& XTextWriter::operator<<(u64 value)
{
    return PrintNumber(value);
}

XTextWriter& XTextWriter::operator<<(f32 value)
{
    return PrintNumber(value);
}

XTextWriter& XTextWriter::operator<<(XNodeId node)
{
    return IsDescribing() ? *this << m_NameOf(node.id) : *this << node.id;
}

// `stride` is from row to row.
template <class T>
void XTextWriter::PrintRows(const T* values, std::size_t rows, std::size_t columns, std::size_t stride,
                            const XRowFormat& format)
{
    const XRowFormat f = format;  // the output may not alias it
    const bool exact = IsDescribing();
    const auto append = [](char* out, const XRowFormat::Piece& piece) {
        std::memcpy(out, piece.text, sizeof piece.text);
        return out + piece.size;
    };
    // A number with its blank, and the text in front of a row or behind it.
    constexpr std::ptrdiff_t kRoom = NumberText::kPrintRoom + 1 + sizeof f.m_After.text;
    char* const last = m_End - kRoom;
    char* out = m_Cursor;
    const auto makeRoom = [&] {
        if (out > last) {
            m_Cursor = out;
            HandOn();
            out = m_Cursor;
        }
    };
    for (; rows > 0; --rows, values += stride) {
        makeRoom();
        out = append(out, f.m_Before);
        for (std::size_t i = 0; i < columns; ++i) {
            makeRoom();
            out = Print(out, values[i], exact);
            *out++ = ' ';
        }
        out -= columns > 0 && !f.m_BlankAtEnd;
        out = append(out, f.m_After);
    }
    m_Cursor = out;
}

template <class T>
void XTextWriter::PrintTable(std::span<const T> values, std::size_t columns, const XRowFormat& format)
{
    if (columns == 0)
        return;
    const std::size_t rows = values.size() / columns;
    PrintRows(values.data(), rows, columns, columns, format);
    if (const std::size_t rest = values.size() % columns)
        PrintRows(values.data() + rows * columns, 1, rest, rest, format);
}

void XTextWriter::WriteRow(std::span<const f32> values, const XRowFormat& format)
{
    PrintRows(values.data(), 1, values.size(), 0, format);
}

void XTextWriter::WriteRow(std::span<const i32> values, const XRowFormat& format)
{
    PrintRows(values.data(), 1, values.size(), 0, format);
}

void XTextWriter::WriteRow(std::span<const u32> values, const XRowFormat& format)
{
    PrintRows(values.data(), 1, values.size(), 0, format);
}

void XTextWriter::WriteIds(std::span<const u32> ids, const XRowFormat& format)
{
    if (!IsDescribing()) {
        WriteRow(ids, format);
        return;
    }
    *this << format.m_Before.Text();
    for (std::size_t i = 0; i < ids.size(); ++i) {
        *this << XNodeId{ids[i]};
        if (i + 1 < ids.size() || format.m_BlankAtEnd)
            *this << ' ';
    }
    *this << format.m_After.Text();
}

void XTextWriter::WriteRows(std::span<const f32> values, std::size_t columns, const XRowFormat& format)
{
    PrintTable(values, columns, format);
}

void XTextWriter::WriteRows(std::span<const i32> values, std::size_t columns, const XRowFormat& format)
{
    PrintTable(values, columns, format);
}

void XTextWriter::WriteRows(std::span<const u32> values, std::size_t columns, const XRowFormat& format)
{
    PrintTable(values, columns, format);
}

void XTextWriter::WriteRows(std::span<const XVector3> values, const XRowFormat& format)
{
    static_assert(sizeof(XVector3) == 4 * sizeof(f32));
    if (!values.empty())
        PrintRows(&values.front().x, values.size(), 3, 4, format);
}

}  // namespace VKT
