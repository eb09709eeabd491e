#pragma once

#include <string>
#include <vector>

namespace VKT {
class XBase;
class XModel;
}  // namespace VKT

namespace tool {

enum class Severity { kWarning, kError };

// Something in a document that is suspicious, or broken.
struct Finding {
    Severity severity;
    const VKT::XBase* node;  // null for what belongs to no node
    std::string text;        // what is wrong; what a reader does about it
};

// What the checks of a document have found so far.
class Findings {
public:
    // Data survives, and readers may take it in different ways.
    void Warn(const VKT::XBase* node, std::string text);
    // Data is lost on the way, or readers fail.
    void Fail(const VKT::XBase* node, std::string text);

    // First what belongs to no node, then node by node: those of the document in the order
    // of names, then its animation cycles.
    std::vector<Finding> TakeByNode(const VKT::XModel& model);

private:
    std::vector<Finding> m_Findings;
};

// Counts the bad values of one field, of which the first is told.
class BadValues {
public:
    // `tell` makes the text of the value, and is called for the first alone.
    template <class Tell>
    void Add(const Tell& tell)
    {
        if (m_Count++ == 0)
            m_First = tell();
    }
    std::size_t Count() const { return m_Count; }
    // The first, and how many more there are.
    std::string Text() const;

private:
    std::string m_First;
    std::size_t m_Count = 0;
};

}  // namespace tool
