#pragma once

#include <random>
#include <set>
#include <string>

#include "VKT/document/Model.h"

namespace VKT::Test {

// Makes documents for property tests: nodes of every concrete class, filled with the values
// of the samples, whose references name random nodes of the document; over that random
// properties, extra attributes with connections, a random hierarchy and random instances.
// The same seed gives the same document. Needs the types of the library.
//
// Floats are of few digits, so that a text file holds them exactly.
class RandomDocument {
public:
    explicit RandomDocument(u32 seed) : m_Random(seed) {}

    // Types that do not come up.
    void Omit(std::set<u32> types) { m_Omitted = std::move(types); }
    // Fills an empty document with `count` nodes. Every id in it is that of one of its
    // nodes, or 0.
    void Fill(XModel& model, u32 count);

    // 0 up to, not with, `limit`.
    u32 Below(u32 limit) { return static_cast<u32>(m_Random() % limit); }
    bool Chance(u32 percent) { return Below(100) < percent; }
    f32 Number() { return static_cast<f32>(static_cast<i32>(Below(2000)) - 1000) / 8; }
    // A random subset of the bits.
    u32 Flags(u32 all) { return static_cast<u32>(m_Random()) & all; }

    XBase* AnyOf(const XNodeList& nodes) { return nodes[Below(static_cast<u32>(nodes.size()))]; }

private:
    std::string Body(const XBase& sample, const XNodeList& nodes);
    u32 Partner(const XBase* sample, const XNodeList& nodes);
    void ChangeProperties(XBase& node);
    void ChangeProperty(XBase& node, const XPropertyInfo& row);
    void AddAttributes(XBase& node, const XNodeList& nodes);
    void BuildHierarchy(const XNodeList& nodes);
    void AddInstances(XModel& model, const XNodeList& nodes);

    std::mt19937 m_Random;
    std::set<u32> m_Omitted;
};

}  // namespace VKT::Test
