#include "VKT/shading/Ramp.h"

#include <algorithm>

#include "VKT/base/Logger.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\Ramp";
constexpr const char* kWords[] = {"none", "linear", "smooth", "spline"};

}  // namespace

bool XRamp::AddFloatKey(f32 position, f32 value, u32 interpolation)
{
    if (HoldsColours())
        return false;
    Insert({position, interpolation, {value, 0, 0, 0}});
    return true;
}

bool XRamp::AddColourKey(f32 position, const XColour& value, u32 interpolation)
{
    if (!HoldsColours())
        return false;
    Insert({position, interpolation, value});
    return true;
}

void XRamp::Insert(const XRampKey& key)
{
    const auto place = std::find_if(m_Keys.begin(), m_Keys.end(),
                                    [&key](const XRampKey& other) { return other.position > key.position; });
    m_Keys.insert(place, key);
}

void XRamp::Write(XTextWriter& out) const
{
    out << "{\n\t\ttype " << (HoldsColours() ? "colour" : "curve");
    out << "\n\t\tcount " << static_cast<u32>(m_Keys.size()) << '\n';
    u32 index = 0;
    for (const XRampKey& key : m_Keys) {
        const XColour& value = key.value;
        out << "\t\t" << index++ << ' ' << key.position << ' ' << value.r << ' ';
        if (HoldsColours())
            out << value.g << ' ' << value.b << ' ' << value.a << ' ';
        out << WordOf(key.interpolation, kWords) << '\n';
    }
    out << "\t}\n";
}

bool XRamp::Read(XTextReader& in)
{
    m_Keys.clear();
    XBlockReader block(in, kSource);
    XString word;
    if (!block.Expect("{") || !block.Read("type", word))
        return false;
    m_Kind = word.starts_with("cur") ? kFloats : kColours;
    u32 count = 0;
    if (!block.Read("count", count))
        return false;
    const bool complete = ReadKeys(in, count);
    // The same as adding them one by one, and not the square of their number.
    std::stable_sort(m_Keys.begin(), m_Keys.end(),
                     [](const XRampKey& a, const XRampKey& b) { return a.position < b.position; });
    return complete && block.Expect("}");
}

bool XRamp::ReadKeys(XTextReader& in, u32 count)
{
    XString word;
    for (u32 i = 0; i < count; ++i) {
        XRampKey key;
        u32 index = 0;  // says nothing: positions order the keys
        in.Read(index);
        in.Read(key.position);
        in.ReadArray(&key.value.r, HoldsColours() ? 4 : 1);
        in.ReadToken(word);
        if (!FindWord(word, kWords, key.interpolation)) {
            // Kept on purpose: a tab stands in one of the two messages.
            GetLogger()->LogFormat(
                kError,
                HoldsColours() ? "expected \"none\", \"linear\", \"smooth\" or \"spline\" got: \"%s\""
                               : "expected \"none\", \"linear\", \"smooth\" or \"spline\"\tgot: \"%s\"",
                word.c_str());
            return false;
        }
        m_Keys.push_back(key);
    }
    return true;
}

bool XRamp::DoData(XFileIO& file)
{
    if (!file.DoData(m_Kind))
        return false;
    constexpr u64 kFloatKeyBytes = 12;
    constexpr u64 kColourKeyBytes = 24;
    const bool cameValues =
        file.DoEach(m_Keys, HoldsColours() ? kColourKeyBytes : kFloatKeyBytes, [&](XRampKey& key) {
            return (HoldsColours() ? file.DoData(key.value) : file.DoData(key.value.r)) != 0;
        });
    return cameValues &&
           std::all_of(m_Keys.begin(), m_Keys.end(),
                       [&](XRampKey& key) { return file.DoData(key.interpolation) != 0; }) &&
           std::all_of(m_Keys.begin(), m_Keys.end(),
                       [&](XRampKey& key) { return file.DoData(key.position) != 0; });
}

}  // namespace VKT
