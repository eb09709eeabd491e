// The fast paths of reading numbers, for what lies in the window whole.

#include "VKT/stream/NumberText.h"
#include "VKT/stream/TextReader.h"

namespace VKT {

namespace {

using namespace NumberText;

// A number that fills a token with white space behind it.
template <class T>
bool ParseToken(const char* begin, const char* end, T& value)
{
    if (ParseShort(begin, end, value)) [[likely]]
        return true;
    T parsed;
    if (!ParseLong({begin, static_cast<std::size_t>(end - begin)}, parsed))
        return false;
    value = parsed;  // never hand out its address: it stays in a register
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

bool XTextReader::Read(i32& value)
{
    return ReadNumber(value);
}

bool XTextReader::Read(u32& value)
{
    return ReadNumber(value);
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
    const char* const end = ScanShort(begin, value);
    if (end && IsSpace(*end)) [[likely]] {
        m_Cursor += end - m_Cursor;
        return true;
    }
    return ReadLong(value);
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

std::size_t XTextReader::TakeSome(f32* out, std::size_t count)
{
    XPlainSink<f32> sink{out, out + count};
    if (!sink.IsFull())
        m_Cursor += TakeNumbers<f32>(m_Cursor, m_End, sink) - m_Cursor;
    return static_cast<std::size_t>(sink.next - out);
}

// Such lists are short, so one number at a time.
std::size_t XTextReader::ReadSome(XBoneWeight* out, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        XBoneWeight weight;
        if (!ReadNumber(weight.m_Influence) || !ReadNumber(weight.m_Weight))
            return i;
        out[i] = weight;
    }
    return count;
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
