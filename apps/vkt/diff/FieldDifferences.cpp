#include "diff/FieldDifferences.h"

#include <algorithm>
#include <cmath>

#include "common/TerminalText.h"

namespace tool {
namespace {

using Words = std::vector<std::string_view>;

// Of longer rows the first word alone that differs is shown.
constexpr std::size_t kShownWords = 8;

Words SplitWords(std::string_view line)
{
    Words words;
    for (std::string_view word = TakeWord(line); !word.empty(); word = TakeWord(line))
        words.push_back(word);
    return words;
}

// Infinity is near to nothing.
bool AreEqual(std::string_view a, std::string_view b, double tolerance)
{
    if (a == b)
        return true;
    const std::optional<double> x = NumberOf(a);
    const std::optional<double> y = NumberOf(b);
    if (!x || !y)
        return false;
    if (!std::isfinite(*x) || !std::isfinite(*y))
        return *x == *y;
    return std::abs(*x - *y) <= tolerance * std::max({1.0, std::abs(*x), std::abs(*y)});
}

std::string Joined(const Words& words)
{
    std::string out;
    for (std::size_t i = 0; i < words.size() && i < kShownWords; ++i)
        out.append(i == 0 ? "" : " ").append(words[i]);
    return words.size() > kShownWords ? out + " ..." : out;
}

// Compares lines, or rows, of one field.
class LineComparison {
public:
    LineComparison(const std::vector<std::string_view>& a, const std::vector<std::string_view>& b,
                   double tolerance)
        : m_A(a), m_B(b), m_Tolerance(tolerance)
    {
        const std::size_t common = std::min(a.size(), b.size());
        for (std::size_t i = 0; i < common; ++i)
            if (a[i] != b[i] && !AreLinesEqual(a[i], b[i]))
                Note(i);
        for (std::size_t i = common; i < std::max(a.size(), b.size()); ++i)
            Note(i);
    }

    std::size_t Count() const { return m_Count; }

    // The first that differs. `place` is put behind the path when there are several.
    FieldDifference First(const std::string& path, const std::string& place) const
    {
        FieldDifference out{path + place, std::nullopt, std::nullopt, m_Count};
        const Words a = m_First < m_A.size() ? SplitWords(m_A[m_First]) : Words();
        const Words b = m_First < m_B.size() ? SplitWords(m_B[m_First]) : Words();
        if (a.size() == b.size() && a.size() > kShownWords) {
            std::size_t i = 0;
            while (AreEqual(a[i], b[i], m_Tolerance))
                ++i;
            out.field += Bracketed(i);
            out.a = a[i];
            out.b = b[i];
            return out;
        }
        if (m_First < m_A.size())
            out.a = Joined(a);
        if (m_First < m_B.size())
            out.b = Joined(b);
        return out;
    }
    std::size_t FirstPlace() const { return m_First; }

private:
    bool AreLinesEqual(std::string_view a, std::string_view b) const
    {
        for (;;) {
            const std::string_view wordA = TakeWord(a);
            const std::string_view wordB = TakeWord(b);
            if (!AreEqual(wordA, wordB, m_Tolerance))
                return false;
            if (wordA.empty())
                return true;
        }
    }
    void Note(std::size_t i)
    {
        if (m_Count++ == 0)
            m_First = i;
    }

    const std::vector<std::string_view>& m_A;
    const std::vector<std::string_view>& m_B;
    double m_Tolerance;
    std::size_t m_Count = 0;
    std::size_t m_First = 0;
};

void CompareField(const NodeField& a, const NodeField& b, double tolerance, std::vector<FieldDifference>& out)
{
    if (const LineComparison lines(a.lines, b.lines, tolerance); lines.Count() > 0) {
        const bool isAlone = a.lines.size() <= 1 && b.lines.size() <= 1;
        out.push_back(lines.First(a.path, isAlone ? "" : " #" + std::to_string(lines.FirstPlace())));
    }
    if (const LineComparison rows(a.rows, b.rows, tolerance); rows.Count() > 0)
        out.push_back(rows.First(a.path, Bracketed(rows.FirstPlace())));
}

// The fields of `present` that `absent` lacks, without what stands below another one that
// it lacks.
template <class Add>
void ListMissing(const NodeFields& present, const NodeFields& absent, Add add)
{
    std::string missing;
    for (const NodeField& field : present.GetFields()) {
        if (absent.Find(field.path) || (!missing.empty() && field.path.starts_with(missing)))
            continue;
        missing = field.path + " / ";
        const std::string_view first = !field.lines.empty() ? field.lines.front() : field.rows.front();
        add(field.path, first.empty() ? "present" : Joined(SplitWords(first)));
    }
}

}  // namespace

std::vector<FieldDifference> CompareFields(const NodeFields& a, const NodeFields& b, double tolerance)
{
    std::vector<FieldDifference> out;
    for (const NodeField& field : a.GetFields())
        if (const NodeField* other = b.Find(field.path))
            CompareField(field, *other, tolerance, out);
    ListMissing(a, b, [&](const std::string& path, const std::string& value) {
        out.push_back({path, value, std::nullopt, 1});
    });
    ListMissing(b, a, [&](const std::string& path, const std::string& value) {
        out.push_back({path, std::nullopt, value, 1});
    });
    return out;
}

}  // namespace tool
