#include "export/ReaderWarnings.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace tool {
namespace {

// The line without what stands in double quotes: names are no words of ours.
std::string WithoutNames(std::string_view line)
{
    std::string out;
    bool isQuoted = false;
    for (const char c : line) {
        if (c == '"')
            isQuoted = !isQuoted;
        else if (!isQuoted)
            out += c;
    }
    return out;
}

// By the first row that has a word of the line.
int WeightOf(const std::string& warning)
{
    constexpr std::pair<std::string_view, int> words[] = {
        {"mesh", 0},     {"skin", 0},   {"joint", 0},     {"bone", 0},    {"morph", 0},
        {"triangle", 0}, {"object", 0}, {"transform", 0}, {"shear", 0},   {"material", 1},
        {"texture", 1},  {"image", 1},  {"animation", 2}, {"channel", 2}, {"frame rate", 2},
        {"rotation", 2}, {"camera", 3}, {"light", 3},
    };
    const std::string text = WithoutNames(warning);
    for (const auto& [word, weight] : words)
        if (text.find(word) != std::string::npos)
            return weight;
    return 4;
}

// A warning that begins with `node "eye": `, taken apart.
struct Labelled {
    std::string kind;  // empty for one that begins with no such label
    std::string text;
};

Labelled TakeApart(const std::string& warning)
{
    const std::size_t name = warning.find(" \"");
    const std::size_t end = name == std::string::npos ? name : warning.find("\": ", name + 2);
    if (end == std::string::npos || warning.find(' ') != name)
        return {"", warning};
    return {warning.substr(0, name), warning.substr(end + 3)};
}

struct Fold {
    std::string first;
    Labelled parts;
    int weight = 0;
    std::size_t count = 0;
};

std::string ToLine(const Fold& fold)
{
    if (fold.count == 1)
        return fold.first;
    if (fold.parts.kind.empty())
        return fold.first + " (" + std::to_string(fold.count) + " times)";
    const char* const plural = fold.parts.kind.ends_with("sh") ? "es: " : "s: ";
    return std::to_string(fold.count) + " " + fold.parts.kind + plural + fold.parts.text;
}

}  // namespace

std::vector<std::string> FoldWarnings(const std::vector<std::string>& warnings)
{
    std::vector<Fold> folds;
    std::map<std::pair<std::string, std::string>, std::size_t> places;
    for (const std::string& warning : warnings) {
        const Labelled parts = TakeApart(warning);
        const auto [known, isNew] = places.try_emplace({parts.kind, parts.text}, folds.size());
        if (isNew)
            folds.push_back({warning, parts, WeightOf(warning)});
        ++folds[known->second].count;
    }
    std::stable_sort(folds.begin(), folds.end(),
                     [](const Fold& a, const Fold& b) { return a.weight < b.weight; });
    std::vector<std::string> lines;
    for (const Fold& fold : folds)
        lines.push_back(ToLine(fold));
    return lines;
}

}  // namespace tool
