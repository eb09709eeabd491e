#include "diff/Differences.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "VKT/animation/AnimCycle.h"
#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "common/NodeNames.h"
#include "common/TerminalText.h"
#include "diff/FieldDifferences.h"

namespace tool {
namespace {

using VKT::XBase;
using VKT::XModel;

// The nodes of one name and type in both documents, each in the order of its document.
struct NodeGroup {
    std::vector<const XBase*> a;
    std::vector<const XBase*> b;
};
using NodeGroups = std::map<std::pair<std::string, std::string>, NodeGroup>;

void AddNodes(const XModel& model, NodeGroups& groups, std::vector<const XBase*> NodeGroup::*side)
{
    const auto add = [&](const XBase& node) {
        (groups[{node.GetName(), TypeNameOf(node)}].*side).push_back(&node);
    };
    for (const auto& [name, node] : model.GetNodes())
        add(*node);
    for (const auto& cycle : model.GetCycles())
        add(*cycle);
}

// Tells things of one name apart.
std::string PlaceMark(std::size_t place)
{
    std::string mark;
    return place == 0 ? mark : mark.append("#").append(std::to_string(place));
}

// Names that nodes of several types have.
std::set<std::string> FindAmbiguous(const NodeGroups& groups)
{
    std::set<std::string> ambiguous;
    const std::string* previous = nullptr;
    for (const auto& [key, group] : groups) {
        if (previous && *previous == key.first)
            ambiguous.insert(key.first);
        previous = &key.first;
    }
    return ambiguous;
}

// Says of an id which node it leads to, in words that are the same for matching nodes of
// both documents.
class NodeWords {
public:
    NodeWords(const XModel& model, const NodeGroups& groups, std::vector<const XBase*> NodeGroup::*side)
        : m_Model(model)
    {
        const std::set<std::string> ambiguous = FindAmbiguous(groups);
        for (const auto& [key, group] : groups) {
            std::string word = Quoted(key.first);
            if (ambiguous.contains(key.first))
                word += "(" + key.second + ")";
            const auto& nodes = group.*side;
            for (std::size_t i = 0; i < nodes.size(); ++i)
                m_Words.emplace(nodes[i], word + PlaceMark(i));
        }
    }

    std::string operator()(VKT::u32 id) const
    {
        if (id == 0)
            return kNoNode;
        const auto found = m_Words.find(m_Model.FindNode(id));
        return found == m_Words.end() ? kMissingNode : found->second;
    }

private:
    const XModel& m_Model;
    std::unordered_map<const XBase*, std::string> m_Words;
};

// What a document holds beside its nodes, piece by piece.
using Texts = std::map<std::string, std::string>;

// Who wrote a file, and when, is no part of what it says.
void AddRecord(const VKT::XInfo& info, Texts& texts)
{
    texts["record / application"] = info.GetApplication();
    texts["record / original_file"] = info.GetOriginalFile();
}

void AddDefinitions(const XModel& model, Texts& texts)
{
    for (const auto& [header, definition] : model.GetNewNodes())
        texts["type " + header] =
            "family " + std::to_string(definition->GetFamily()) + ", " + definition->GetTypeName();
    for (const auto& definition : model.GetInheritedNodes()) {
        const std::string base = VKT::XFnTypeName(definition->GetBaseType());
        texts["type " + definition->GetHeader()] =
            base.empty() ? std::to_string(definition->GetBaseType()) : base;
    }
}

// Stands for pixels, which are too many to show (FNV-1a).
std::string ChecksumOf(const VKT::XVector<VKT::u8>& bytes)
{
    VKT::u64 sum = 0xCBF29CE484222325;
    for (const VKT::u8 byte : bytes)
        sum = (sum ^ byte) * 0x100000001B3;
    char text[40];
    std::snprintf(text, sizeof text, "checksum %016llx", static_cast<unsigned long long>(sum));
    return text;
}

// Images of one name in order.
void AddImages(const XModel& model, Texts& texts)
{
    std::map<std::string, std::size_t> met;
    for (const auto& image : model.GetImages()) {
        const std::size_t place = met[image->m_Name]++;
        const std::string prefix = "image " + Quoted(image->m_Name) + PlaceMark(place) + " / ";
        texts[prefix + "id"] = std::to_string(image->m_ID);
        texts[prefix + "path"] = image->m_Path;
        texts[prefix + "size"] = std::to_string(image->m_Width) + " x " + std::to_string(image->m_Height) +
                                 " x " + std::to_string(image->m_Channels);
        texts[prefix + "pixels"] = ChecksumOf(image->m_Pixels);
    }
}

Texts DescribeDocument(const XModel& model)
{
    Texts texts;
    if (model.GetInfo())
        AddRecord(*model.GetInfo(), texts);
    AddDefinitions(model, texts);
    AddImages(model, texts);
    return texts;
}

std::optional<std::string> Find(const Texts& texts, const std::string& key)
{
    const auto found = texts.find(key);
    return found == texts.end() ? std::nullopt : std::optional(found->second);
}

void CompareTexts(const Texts& a, const Texts& b, std::vector<Difference>& out)
{
    Texts all = a;
    all.insert(b.begin(), b.end());
    for (const auto& [key, text] : all) {
        Difference difference{.node = {}, .type = {}, .field = key, .a = Find(a, key), .b = Find(b, key)};
        if (difference.a != difference.b)
            out.push_back(std::move(difference));
    }
}

void CompareBodies(const Difference& node, const std::string& a, const std::string& b, double tolerance,
                   std::vector<Difference>& out)
{
    if (a == b)
        return;
    for (FieldDifference& found : CompareFields(NodeFields(a), NodeFields(b), tolerance)) {
        Difference& difference = out.emplace_back(node);
        difference.field = std::move(found.field);
        difference.a = std::move(found.a);
        difference.b = std::move(found.b);
        difference.count = found.count;
    }
}

}  // namespace

std::vector<Difference> FindDifferences(const XModel& a, const XModel& b, double tolerance)
{
    std::vector<Difference> out;
    CompareTexts(DescribeDocument(a), DescribeDocument(b), out);
    NodeGroups groups;
    AddNodes(a, groups, &NodeGroup::a);
    AddNodes(b, groups, &NodeGroup::b);
    const NodeWords wordsA(a, groups, &NodeGroup::a);
    const NodeWords wordsB(b, groups, &NodeGroup::b);
    const NodeNamer nameInA = std::cref(wordsA);
    const NodeNamer nameInB = std::cref(wordsB);
    for (const auto& [key, group] : groups)
        for (std::size_t i = 0; i < std::max(group.a.size(), group.b.size()); ++i) {
            Difference node{.node = key.first, .type = key.second, .place = i, .field = {}};
            if (i < group.a.size() && i < group.b.size()) {
                CompareBodies(node, NodeFields::Describe(*group.a[i], nameInA),
                              NodeFields::Describe(*group.b[i], nameInB), tolerance, out);
            } else {
                (i < group.a.size() ? node.a : node.b) = node.node;
                out.push_back(std::move(node));
            }
        }
    return out;
}

}  // namespace tool
