#include "VKT/node/BodyTable.h"

#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

bool IsInFile(const XBodyRow& row, u32 version, bool reading)
{
    switch (row.gate) {
        case XGate::kAlways:
            return true;
        case XGate::kSince:
        case XGate::kSinceBoth:
            return version >= row.version;
        case XGate::kReadSince:
            return !reading || version >= row.version;
        case XGate::kBelow:
            return version < row.version;
    }
    return true;
}

// A text file that is written holds what its version does and nothing that older ones had.
bool IsWritten(const XBodyRow& row, u32 version)
{
    return row.gate != XGate::kBelow && (row.gate != XGate::kSinceBoth || version >= row.version);
}

void Write(XTextWriter& out, const XVector3& v)
{
    out << v.x << ' ' << v.y << ' ' << v.z;
}

void Write(XTextWriter& out, const XQuaternion& q)
{
    out << q.x << ' ' << q.y << ' ' << q.z << ' ' << q.w;
}

void Write(XTextWriter& out, const XColour& c)
{
    out << c.r << ' ' << c.g << ' ' << c.b << ' ' << c.a;
}

// One visitor per direction. `At` is the member of the node at hand.
struct TextWriting {
    const XBase& node;
    const XBodyRow& row;
    XTextWriter& out;

    template <class T>
    void operator()(T XBase::*member) const
    {
        out << row.before;
        Write(node.*member);
        out << row.after;
    }
    void operator()(XMatrix XBase::*member) const
    {
        out << row.before;
        out.WriteRows(std::span<const f32>((node.*member).m), 4, {"\t\t"});
    }
    void operator()(XShaderInput XBase::*member) const
    {
        (node.*member).Write(out);
        out << '\n';
    }
    void operator()(XStoredNode stored) const
    {
        out << row.before << XNodeId{node.*stored.member} << row.after;
    }
    void operator()(XStoredNodes stored) const
    {
        const XIndexList& ids = node.*stored.member;
        out << row.before << static_cast<u32>(ids.size()) << ' ';
        out.WriteIds(ids, {"", false, ""});
        out << row.after;
    }
    void operator()(XStoredThree stored) const
    {
        const XColour& c = node.*stored.member;
        out << row.before << c.r << ' ' << c.g << ' ' << c.b << row.after;
    }
    void operator()(XStoredWord stored) const
    {
        out << row.before << WordOf(node.*stored.member, stored.words) << row.after;
    }
    void operator()(XStoredInputId stored) const
    {
        const XShaderInput& input = node.*stored.member;
        out << '\t' << input.name << ' ' << XNodeId{input.input} << '\n';
    }
    void operator()(XStoredFirst stored) const { out << row.before << (node.*stored.member).x << row.after; }
    void operator()(XStoredList stored) const
    {
        std::visit(
            [&](auto member) {
                const auto& list = node.*member;
                out << row.before << static_cast<u32>(list.size()) << '\n';
                if constexpr (std::same_as<decltype(member), XIndexList XBase::*>)
                    WriteIds(list, stored.oneLine);
                else if (stored.oneLine)
                    out.WriteRow(list, {"\t\t", true});
                else
                    out.WriteRows(list, 1, {"\t\t"});
            },
            stored.member);
    }
    void operator()(XStoredQuoted stored) const
    {
        out << row.before << '"' << AsQuotable(node.*stored.member, row.key) << '"' << row.after;
    }
    void operator()(XStoredText stored) const
    {
        out << row.before;
        stored.write(node, out);
    }
    void operator()(XStoredOldInput) const {}  // old bodies are only read
    void operator()(XDroppedNumber) const {}

private:
    template <class T>
    void Write(const T& value) const
    {
        if constexpr (std::is_arithmetic_v<T>)
            out << value;
        else
            VKT::Write(out, value);
    }
    void WriteIds(const XIndexList& ids, bool oneLine) const
    {
        if (oneLine)
            return out.WriteIds(ids, {"\t\t", true});
        for (const u32 id : ids)
            out << "\t\t" << XNodeId{id} << '\n';
    }
    void Write(u8 value) const { out << u32{value}; }
    void Write(u16 value) const { out << u32{value}; }
    void Write(const XLimitPair& limits) const
    {
        XWriteLimit(out, limits.lower);
        out << ' ';
        XWriteLimit(out, limits.upper);
    }
    // The numbers with single blanks between them and none at the end.
    template <class Number>
    void Write(const XVector<Number>& list) const
    {
        out << static_cast<u32>(list.size()) << ' ';
        out.WriteRow(list, {"", false, ""});
    }
};

struct TextReading {
    XBase& node;
    const XBodyRow& row;
    XTextReader& in;
    const char* source;
    int line;

    template <class T>
    bool operator()(T XBase::*member) const
    {
        return ReadKey() && Read(node.*member);
    }
    bool operator()(XShaderInput XBase::*member) const { return (node.*member).Read(in, source, line); }
    bool operator()(XStoredNode stored) const { return (*this)(stored.member); }
    bool operator()(XStoredNodes stored) const { return (*this)(stored.member); }
    bool operator()(XStoredThree stored) const
    {
        XColour& c = node.*stored.member;
        return ReadKey() && Read(c.r) && Read(c.g) && Read(c.b);
    }
    bool operator()(XStoredWord stored) const
    {
        XString word;
        if (!ReadKey())
            return false;
        if (in.ReadToken(word) && !FindWord(word, stored.words, node.*stored.member) && stored.unknown)
            stored.unknown(node, word);
        return true;
    }
    bool operator()(XStoredInputId stored) const
    {
        XShaderInput& input = node.*stored.member;
        return Expect(input.name, in, source, line) && Read(input.input);
    }
    bool operator()(XStoredOldInput stored) const
    {
        XShaderInput dropped("");
        XShaderInput& input = stored.member ? node.*stored.member : dropped;
        return ReadKey() && Read(input.colour) && Expect("tex", in, source, line) && Read(input.input);
    }
    bool operator()(XStoredFirst stored) const { return ReadKey() && Read((node.*stored.member).x); }
    bool operator()(XStoredList stored) const
    {
        return ReadKey() && std::visit([&](auto member) { return Read(node.*member); }, stored.member);
    }
    bool operator()(XDroppedNumber) const
    {
        f32 dropped = 0;
        return ReadKey() && Read(dropped);
    }
    bool operator()(XStoredQuoted stored) const { return ReadKey() && stored.read(in, node.*stored.member); }
    bool operator()(XStoredText stored) const { return ReadKey() && stored.read(node, in); }

private:
    // A number that fails to come is seen at the next key.
    template <class T>
    bool Read(T& value) const
    {
        if constexpr (std::is_arithmetic_v<T>)
            in.Read(value);
        else
            ReadFloats(value);
        return true;
    }
    bool Read(u8& value) const { return ReadNarrow(value); }
    bool Read(u16& value) const { return ReadNarrow(value); }
    // What a number says beyond the width of the field is cut off.
    template <class Number>
    bool ReadNarrow(Number& value) const
    {
        u32 wide = 0;
        in.Read(wide);
        value = static_cast<Number>(wide);
        return true;
    }
    void ReadFloats(XVector3& v) const
    {
        in.Read(v.x);
        in.Read(v.y);
        in.Read(v.z);
        v.w = 0;
    }
    void ReadFloats(XQuaternion& q) const { in.ReadArray(&q.x, 4); }
    void ReadFloats(XColour& c) const { in.ReadArray(&c.r, 4); }
    void ReadFloats(XMatrix& m) const { in.ReadArray(m.m, 16); }
    bool Read(XLimitPair& limits) const
    {
        limits.lower = XReadLowerLimit(in);
        limits.upper = XReadUpperLimit(in);
        return true;
    }
    template <class Number>
    bool Read(XVector<Number>& list) const
    {
        u32 count = 0;
        in.Read(count);
        in.ReadNumbers(list, count);
        return true;
    }
    bool ReadKey() const { return row.key.empty() || Expect(row.key, in, source, line); }
};

struct BinaryTransfer {
    XBase& node;
    const XBodyRow& row;
    XFileIO& file;

    template <class T>
    bool operator()(T XBase::*member) const
    {
        return file.DoData(node.*member) != 0;
    }
    bool operator()(XLimitPair XBase::*member) const { return file.DoData(&(node.*member).lower, 2) != 0; }
    bool operator()(XShaderInput XBase::*member) const { return (node.*member).DoData(file); }
    bool operator()(XStoredNode stored) const { return file.DoId(node.*stored.member) != 0; }
    bool operator()(XStoredNodes stored) const { return file.DoIds(node.*stored.member) != 0; }
    bool operator()(XStoredThree stored) const { return file.DoData(&(node.*stored.member).r, 3) != 0; }
    bool operator()(XStoredWord stored) const { return (*this)(stored.member); }
    bool operator()(XStoredInputId stored) const { return file.DoId((node.*stored.member).input) != 0; }
    bool operator()(XStoredOldInput stored) const
    {
        XShaderInput dropped("");
        XShaderInput& input = stored.member ? node.*stored.member : dropped;
        if (!input.DoData(file) || (!row.key.empty() && input.name != row.key))
            return false;  // a file that spells the name otherwise is refused in silence
        if (stored.member)
            input.name = stored.name;
        return true;
    }
    bool operator()(XStoredFirst stored) const { return file.DoData((node.*stored.member).x) != 0; }
    bool operator()(XStoredList stored) const
    {
        if (const auto ids = std::get_if<XIndexList XBase::*>(&stored.member))
            return (*this)(XStoredNodes{*ids});
        return std::visit(*this, stored.member);
    }
    bool operator()(XDroppedNumber) const
    {
        f32 dropped = 0;
        return file.DoData(dropped) != 0;
    }
    bool operator()(XStoredQuoted stored) const { return file.DoData(node.*stored.member) != 0; }
    bool operator()(XStoredText) const { return true; }  // binary tables have other rows
};

struct Copying {
    XBase& target;
    const XBase& source;

    template <class T>
    void operator()(T XBase::*member) const
    {
        target.*member = source.*member;
    }
    void operator()(XStoredNode stored) const { (*this)(stored.member); }
    void operator()(XStoredNodes stored) const { (*this)(stored.member); }
    void operator()(XStoredThree stored) const { (*this)(stored.member); }
    void operator()(XStoredWord stored) const { (*this)(stored.member); }
    void operator()(XStoredInputId stored) const { (*this)(stored.member); }
    void operator()(XStoredFirst stored) const { (*this)(stored.member); }
    void operator()(XStoredList stored) const { std::visit(*this, stored.member); }
    void operator()(XStoredOldInput) const {}
    void operator()(XDroppedNumber) const {}
    void operator()(XStoredQuoted stored) const { (*this)(stored.member); }
    void operator()(XStoredText) const {}
};

}  // namespace

bool WriteTextBody(const XBase& node, const XBodyTable& table, XTextWriter& out)
{
    const u32 version = out.GetVersion();
    for (const XBodyRow& row : table.rows)
        if (IsWritten(row, version))
            std::visit(TextWriting{node, row, out}, row.stored);
    return out.IsGood();
}

bool ReadTextBody(XBase& node, const XBodyTable& table, XTextReader& in)
{
    const u32 version = in.GetVersion();
    int line = 0;
    for (const XBodyRow& row : table.rows) {
        ++line;
        if (IsInFile(row, version, true) &&
            !std::visit(TextReading{node, row, in, table.source, line}, row.stored))
            return false;
    }
    return true;
}

bool DoBinaryBody(XBase& node, const XBodyTable& table, XFileIO& file)
{
    const u32 version = file.GetVersion();
    for (const XBodyRow& row : table.rows)
        if (IsInFile(row, version, file.IsReading()) &&
            !std::visit(BinaryTransfer{node, row, file}, row.stored))
            return false;
    return true;
}

void CopyBody(XBase& target, const XBase& source, const XBodyTable& table)
{
    for (const XBodyRow& row : table.rows)
        std::visit(Copying{target, source}, row.stored);
}

}  // namespace VKT
