#include "VKT/animation/AnimCurve.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "VKT/animation/CurveEvaluator.h"
#include "VKT/base/Logger.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\FCurveStream";

constexpr const char* kInterpolationWords[] = {"STEP",      "LINEAR",    "CATMULL_ROM", "CARDINAL",  "TCB",
                                               "BEZIER_1D", "BEZIER_2D", "HERMITE_1D",  "HERMITE_2D"};
constexpr const char* kInfinityWords[] = {"kInfinityConstant", "kInfinityLinear", "kInfinityOscillate",
                                          "kInfinityCycle", "kInfinityCycleWithOffset"};

// Reads a key and the number of its word; 0 for one that is not in the list. An end of the
// input is seen at the next key.
bool ReadWord(std::string_view key, XBlockReader& block, XWordList words, u32& number)
{
    XString word;
    if (!block.Read(key, word))
        return false;
    number = 0;
    FindWord(word, words, number);
    return true;
}

// Floats of a key; 0 for a number without meaning.
u32 StrideOf(u32 interpolation)
{
    constexpr u32 strides[] = {2, 2, 2, 3, 5, 4, 6, 4, 6, 0, 2, 3, 5, 3};
    return interpolation < std::size(strides) ? strides[interpolation] : 0;
}

}  // namespace

void XAnimCurve::SetInterpolation(u32 interpolation)
{
    m_Interpolation = interpolation;
    if (const u32 stride = StrideOf(interpolation))
        m_Stride = stride;
    LookAtTimes();  // other floats are times now
}

void XAnimCurve::LookAtTimes()
{
    m_LatestTime = -std::numeric_limits<f32>::infinity();
    m_TimesAscend = true;
    for (std::size_t at = 0; m_Stride > 0 && at + m_Stride <= m_Keys.size(); at += m_Stride) {
        // A time that is no number is not in order with any.
        m_TimesAscend = m_TimesAscend && m_Keys[at] >= m_LatestTime;
        m_LatestTime = std::max(m_LatestTime, m_Keys[at]);
    }
}

u32 XAnimCurve::AddKey(f32 time, f32 value)
{
    if (m_Stride == 0)
        return 0;
    const u32 numKeys = GetNumKeys();
    u32 key = m_LatestTime > time ? 0 : numKeys;
    while (key < numKeys && !(GetKey(key, 0) > time))
        ++key;
    m_TimesAscend = m_TimesAscend && !std::isnan(time);
    m_LatestTime = std::max(m_LatestTime, time);
    const std::size_t at = std::size_t{key} * m_Stride;
    m_Keys.insert(m_Keys.begin() + static_cast<std::ptrdiff_t>(at), m_Stride, 0.0f);
    m_Keys[at] = time;
    m_Keys[at + 1] = value;
    return key;
}

bool XAnimCurve::SetTangent(u32 key, u32 part, f32 value)
{
    if (m_Interpolation != kHermite2D || key >= std::min(m_KeyLimit, GetNumKeys()))
        return false;
    m_Keys[std::size_t{key} * m_Stride + part] = value;
    return true;
}

bool XAnimCurve::Evaluate(f32 time, f32& value) const
{
    return XEvaluateCurve(*this, m_KeyLimit, time, value);
}

bool XAnimCurve::ReadChunk(XTextReader& in)
{
    u32 interpolation = 0;
    u32 numKeys = 0;
    XBlockReader block(in, kSource, 1);  // behind the number of curves
    if (!block.Expect("ANIM_CURVE") || !block.Expect("{") ||
        !ReadWord("interpolation", block, kInterpolationWords, interpolation) ||
        !block.Read("num_keys", numKeys) || !ReadWord("pre_infinity", block, kInfinityWords, m_PreInfinity) ||
        !ReadWord("post_infinity", block, kInfinityWords, m_PostInfinity) ||
        !block.Read("component", m_Component) || !block.Read("index", m_Index))
        return false;
    SetInterpolation(interpolation);
    in.ReadNumbers(m_Keys, u64{numKeys} * m_Stride);
    LookAtTimes();
    return block.Expect("}");
}

// Interpolations without a word are written as steps, with their times and values alone:
// the file can be read again.
bool XAnimCurve::WriteChunk(XTextWriter& out) const
{
    const bool hasWord = m_Interpolation < std::size(kInterpolationWords);
    const u32 numKeys = GetNumKeys();
    if (!hasWord)
        GetLogger()->LogFormat(kWarning, "a curve of interpolation %d is written as %s with %d keys",
                               static_cast<int>(m_Interpolation), kInterpolationWords[kStep],
                               static_cast<int>(numKeys));
    out << "\t\t\t\tANIM_CURVE \n\t\t\t\t{\n";
    out << "\t\t\t\t\tinterpolation " << WordOf(m_Interpolation, kInterpolationWords) << '\n';
    out << "\t\t\t\t\tnum_keys " << numKeys << '\n';
    out << "\t\t\t\t\tpre_infinity " << WordOf(m_PreInfinity, kInfinityWords) << '\n';
    out << "\t\t\t\t\tpost_infinity " << WordOf(m_PostInfinity, kInfinityWords) << '\n';
    out << "\t\t\t\t\tcomponent " << m_Component << '\n';
    out << "\t\t\t\t\tindex " << m_Index;
    constexpr XRowFormat format{"\n\t\t\t\t\t\t", true, ""};
    if (hasWord)
        out.WriteRows(std::span(m_Keys).first(std::size_t{numKeys} * m_Stride), m_Stride, format);
    else
        for (u32 key = 0; key < numKeys; ++key)
            out.WriteRow(std::span(m_Keys).subspan(std::size_t{key} * m_Stride, 2), format);
    out << "\n\t\t\t\t}\n";
    return out.IsGood();
}

// A number that comes short is logged and keeps its default; the keys must come.
bool XAnimCurve::DoData(XFileIO& file)
{
    file.DoData(m_Interpolation);
    file.DoData(m_PreInfinity);
    file.DoData(m_PostInfinity);
    file.DoData(m_Component);
    file.DoData(m_Index);
    if (file.IsReading())
        SetInterpolation(m_Interpolation);
    const bool came = file.DoData(m_Keys) != 0;
    if (file.IsReading())
        LookAtTimes();
    return came;
}

}  // namespace VKT
