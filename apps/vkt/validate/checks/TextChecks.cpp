#include <cmath>
#include <sstream>
#include <string_view>

#include "VKT/animation/AnimCycle.h"
#include "VKT/animation/AnimationTake.h"
#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/rigging/ObjectSet.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/TextWriter.h"
#include "common/MessageCatcher.h"
#include "common/NodeFields.h"
#include "common/NodeNames.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

bool IsCycle(const VKT::XBase& node)
{
    return VKT::IsOfType(node, VKT::kFnAnimCycle);
}

// Limits write +INF and -INF for none.
bool IsInfiniteOrNaN(std::string_view word)
{
    const auto number = NumberOf(word);
    return number && !std::isfinite(*number) && word.find("INF") == word.npos;
}

// Adds the first such number of a line, `place` its row.
void FindNonFinite(std::string_view line, const std::string& place, BadValues& found)
{
    for (std::string_view word = TakeWord(line); !word.empty(); word = TakeWord(line))
        if (IsInfiniteOrNaN(word))
            found.Add([&] { return place + " is " + std::string(word); });
}

// Whether all numbers in the text of the node are finite.
bool CheckNumbers(const VKT::XBase& node, Findings& findings)
{
    const std::string text = NodeFields::Describe(node, [](VKT::u32) { return std::string(kNoNode); });
    if (text.find("nan") == text.npos && text.find("inf") == text.npos)
        return true;
    bool isFinite = true;
    const NodeFields fields(text);
    for (const NodeField& field : fields.GetFields()) {
        BadValues found;
        for (const std::string_view line : field.lines)
            FindNonFinite(line, "", found);
        for (std::size_t row = 0; row < field.rows.size(); ++row)
            FindNonFinite(field.rows[row], Bracketed(row), found);
        if (found.Count() == 0)
            continue;
        findings.Fail(&node, field.path + found.Text() + "; readers of a text file fail there");
        isFinite = false;
    }
    return isFinite;
}

// Words that stand for something else in the text form.
void CheckWords(const VKT::XBase& node, const std::vector<MessageCatcher::Message>& messages,
                Findings& findings)
{
    for (const auto& [level, text] : messages)
        if (level == VKT::kWarning)
            findings.Warn(&node, text + "; readers of a text file get that");
    const auto* set = VKT::XCast<VKT::XObjectSet>(&node);
    if (set && set->GetAnnotation().find_first_of(" \t\n\v\f\r") != std::string::npos)
        findings.Warn(&node, "annotation is " + Quoted(set->GetAnnotation()) +
                                 "; readers of a text file get what stands ahead of the first blank");
}

// Loads the text of the node alone.
void CheckReading(const VKT::XBase& node, const std::string& text, Findings& findings)
{
    const MessageCatcher messages;
    VKT::XModel model;
    std::istringstream in(text);
    const VKT::XFileResult result = model.Load(in, "");
    const VKT::XBase* back = IsCycle(node) && !model.GetCycles().empty() ? model.GetCycles().front().get()
                                                                         : model.FindNode(node.GetID());
    if (result == VKT::FileOk && back && TypeNameOf(*back) == TypeNameOf(node))
        return;
    std::string finding = "its text does not read back";
    if (!messages.FirstError().empty())
        finding += " (" + messages.FirstError() + ")";
    findings.Fail(&node, finding + (result == VKT::FileOk ? "; readers of a text file skip it"
                                                          : "; readers of a text file fail there"));
}

}  // namespace

// A take reads the names of attributes from its nodes, so that it cannot be read alone;
// `CheckTake` looks at what its text leaves out.
void CheckText(const VKT::XBase& node, Findings& findings)
{
    if (!CheckNumbers(node, findings) || VKT::XCast<VKT::XAnimationTake>(&node))
        return;
    VKT::XTextWriter out;
    out << VKT::XFileHeader{VKT::kCurrentVersion, VKT::XFileForm::kText}.Text(VKT::XFileHeaderTail()) << '\n';
    if (const VKT::XInheritedNode* definition = node.GetInheritedFrom())
        definition->Write(out);
    if (const VKT::XNewNode* definition = node.GetUserDefinition())
        definition->Write(out);
    bool isWritten = false;
    {
        const MessageCatcher messages;
        isWritten = IsCycle(node) ? node.WriteChunk(out) : node.Write(out);
        CheckWords(node, messages.Messages(), findings);
    }
    if (isWritten)
        CheckReading(node, out.TakeText(), findings);
}

}  // namespace tool
