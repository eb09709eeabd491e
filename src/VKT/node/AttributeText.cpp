#include <algorithm>
#include <cstring>
#include <iterator>
#include <type_traits>

#include "VKT/document/Model.h"
#include "VKT/node/Attribute.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

// The text form of extra attributes. Its odd blanks and breaks are part of the format.

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\ExtraAttributes";

constexpr const char* kKeywords[] = {
    "bool",
    "colour",
    "float",
    "float2",
    "float3",
    "float4",
    "int",
    "int2",
    "int3",
    "int4",
    "string",
    "message",
    "matrix",
    "vector<bool>",
    "vector<colour>",
    "vector<float>",
    "vector<float2>",
    "vector<float3>",
    "vector<float4>",
    "vector<int>",
    "vector<int2>",
    "vector<int3>",
    "vector<int4>",
    "vector<string>",
    "vector<message>",
    "vector<matrix>",
};

struct Escape {
    char byte;
    char letter;
};
constexpr Escape kEscapes[] = {{'\0', '0'}, {'\a', 'a'}, {'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}, {'"', '"'}};

void WriteEscaped(std::string_view text, XTextWriter& out)
{
    out << '"';
    for (const char c : text) {
        const auto escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                         [=](const Escape& e) { return e.byte == c; });
        if (escape == std::end(kEscapes))
            out << c;
        else
            out << '\\' << escape->letter;
    }
    out << "\"\n";
}

// A string in quotes on the first line that is not empty. A backslash before a letter
// that is no escape stays.
bool ReadEscaped(XTextReader& in, XString& text)
{
    XString line;
    do {
        if (!in.ReadLine(line))
            return false;
    } while (line.empty());
    text.clear();
    std::size_t i = line.find('"');
    if (i == XString::npos)
        return true;
    for (++i; i < line.size() && line[i] != '"'; ++i) {
        char c = line[i];
        if (c == '\\' && i + 1 < line.size()) {
            const auto escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                             [&](const Escape& e) { return e.letter == line[i + 1]; });
            if (escape != std::end(kEscapes)) {
                c = escape->byte;
                ++i;
            }
        }
        text += c;
    }
    return true;
}

// The numbers of a value that stand in text: the alpha of a colour does not.
std::span<const f32> NumbersOf(const f32& v)
{
    return {&v, 1};
}
std::span<const f32> NumbersOf(const XColour& v)
{
    return {&v.r, 3};
}
std::span<const f32> NumbersOf(const XVector2& v)
{
    return {&v.x, 2};
}
std::span<const f32> NumbersOf(const XVector3& v)
{
    return {&v.x, 3};
}
std::span<const f32> NumbersOf(const XVector4& v)
{
    return {&v.x, 4};
}
std::span<const f32> NumbersOf(const XMatrix& v)
{
    return v.m;
}
std::span<const i32> NumbersOf(const i32& v)
{
    return {&v, 1};
}
template <std::size_t N>
std::span<const i32> NumbersOf(const std::array<i32, N>& v)
{
    return v;
}

template <class T>
auto MutableNumbersOf(T& value)
{
    const auto numbers = NumbersOf(value);
    using Number = std::remove_const_t<typename decltype(numbers)::element_type>;
    return std::span<Number>(const_cast<Number*>(numbers.data()), numbers.size());
}

template <class T>
void WriteNumbers(const T& value, const char* between, XTextWriter& out)
{
    const char* separator = "";
    for (const auto number : NumbersOf(value)) {
        out << separator << number;
        separator = between;
    }
}

// How a list of values stands in text.
struct ListForm {
    const char* open;
    const char* before;   // each element
    const char* between;  // its numbers
    const char* after;    // each element
    const char* close;
};
template <class T>
constexpr ListForm kListForm{"\n\t\t{\n", "\t\t\t", "  ", "\n", "\t\t}\n"};
template <>
constexpr ListForm kListForm<u8>{" { ", "", "", " ", " }\n"};
template <>
constexpr ListForm kListForm<f32>{" { ", "", "", " ", " }\n"};
template <>
constexpr ListForm kListForm<i32>{" { ", "", "", " ", " }\n"};
template <>
constexpr ListForm kListForm<XColour>{" {\n", "\t\t\t", " ", "\n", " }\n"};
template <>
constexpr ListForm kListForm<XVector2>{"\n\t\t{\n", "", "  ", "\n", "\t\t}\n"};
template <>
constexpr ListForm kListForm<XMatrix>{"\t\t{\n", "\t\t\t", " ", " \n", "\t\t}\n"};

struct Writer {
    XTextWriter& out;

    void operator()(bool value) const { out << ' ' << value << '\n'; }
    void operator()(const XString& value) const
    {
        out << ' ';
        WriteEscaped(value, out);
    }
    void operator()(const XMessage&) const { out << '\n'; }
    void operator()(const XMessageArray& value) const { out << ' ' << value.count << '\n'; }
    void operator()(const XMatrix& value) const
    {
        out << ' ';
        WriteNumbers(value, " ", out);
        out << " \n";
    }
    template <class T>
    void operator()(const T& value) const
    {
        out << ' ';
        WriteNumbers(value, " ", out);
        out << '\n';
    }
    template <class T>
    void operator()(const XVector<T>& list) const
    {
        constexpr ListForm form = kListForm<T>;
        out << ' ' << static_cast<u32>(list.size()) << form.open;
        for (const T& element : list) {
            out << form.before;
            if constexpr (std::is_same_v<T, u8>)
                out << (element != 0);
            else if constexpr (std::is_same_v<T, XString>)
                WriteEscaped(element, out);
            else
                WriteNumbers(element, form.between, out);
            if constexpr (!std::is_same_v<T, XString>)
                out << form.after;
        }
        out << form.close;
    }
};

struct Reader {
    XTextReader& in;

    bool operator()(bool& value) const { return in.Read(value); }
    bool operator()(XString& value) const { return ReadEscaped(in, value); }
    bool operator()(XMessage&) const { return true; }
    bool operator()(XMessageArray& value) const { return in.Read(value.count); }
    template <class T>
    bool operator()(T& value) const
    {
        return ReadOne(value);
    }
    template <class T>
    bool operator()(XVector<T>& list) const
    {
        XBlockReader block(in, kSource);
        u32 count = 0;
        in.Read(count);
        if (!block.Expect("{"))
            return false;
        // Each element takes a number or a line at least, so a list grows with its input.
        for (u32 i = 0; i < count && in.IsGood(); ++i)
            ReadOne(list.emplace_back());
        return block.Expect("}");
    }

private:
    bool ReadOne(u8& value) const
    {
        bool set = false;
        in.Read(set);
        value = set;
        return true;
    }
    bool ReadOne(XString& value) const { return ReadEscaped(in, value); }
    template <class T>
    bool ReadOne(T& value) const
    {
        value = T{};
        if constexpr (std::is_same_v<T, XColour>)
            value.a = 1.0f;
        const auto numbers = MutableNumbersOf(value);
        return in.ReadArray(numbers.data(), numbers.size());
    }
};

// Connections of the first `count` elements by ascending element, those of one element in
// their order.
XVector<const XConnection*> ByElement(const XVector<XConnection>& connections, u32 count)
{
    XVector<const XConnection*> sorted;
    for (const XConnection& connection : connections)
        if (connection.m_Index < count)
            sorted.push_back(&connection);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const XConnection* a, const XConnection* b) { return a->m_Index < b->m_Index; });
    return sorted;
}

}  // namespace

const char* GetAttributeKeyword(u32 type)
{
    return type >= kAttributeBool && type <= kAttributeMatrixArray ? kKeywords[type - kAttributeBool]
                                                                   : nullptr;
}

void XAttribute::Write(XTextWriter& out) const
{
    out << "\t\t" << NameAsToken(m_Name) << ' ' << GetAttributeKeyword(GetType());
    std::visit(Writer{out}, m_Value);
}

bool XAttribute::Read(XTextReader& in)
{
    XString keyword;
    in.ReadToken(keyword);
    const auto found = std::find(std::begin(kKeywords), std::end(kKeywords), keyword);
    if (found == std::end(kKeywords))
        return true;  // stays the bool that it is; the next token counts as a name
    SetType(static_cast<u32>(found - std::begin(kKeywords)) + kAttributeBool);
    return std::visit(Reader{in}, m_Value);
}

void XAttribute::WriteConnections(XTextWriter& out, const XModel& model) const
{
    const XVector<const XConnection*> inputs = ByElement(m_Inputs, Size());
    const XVector<const XConnection*> outputs = ByElement(m_Outputs, Size());
    auto input = inputs.begin();
    auto output = outputs.begin();
    while (input != inputs.end() || output != outputs.end()) {
        const bool inputIsNext =
            output == outputs.end() || (input != inputs.end() && (*input)->m_Index <= (*output)->m_Index);
        const u32 element = inputIsNext ? (*input)->m_Index : (*output)->m_Index;
        out << "\t\tATTR " << NameAsToken(m_Name) << ' ' << element << "\n\t\t{\n\t\t\tinput ";
        if (inputIsNext && (*input)->m_Node != 0)
            out << XNodeId{(*input)->m_Node} << ' ' << NameAsToken((*input)->m_Attribute) << '\n';
        else
            out << "0\n";
        const auto isOther = [=](const XConnection* connection) { return connection->m_Index != element; };
        input = std::find_if(input, inputs.end(), isOther);  // an element has one input
        const auto end = std::find_if(output, outputs.end(), isOther);
        out << "\t\t\toutput " << static_cast<u32>(end - output) << '\n';
        for (; output != end; ++output)
            out << "\t\t\t\t" << XNodeId{model.HasNode((*output)->m_Node) ? (*output)->m_Node : 0u} << ' '
                << NameAsToken((*output)->m_Attribute) << '\n';
        out << "\t\t}\n";
    }
}

}  // namespace VKT
