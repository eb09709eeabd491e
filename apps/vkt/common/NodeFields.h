#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "VKT/base/Types.h"

namespace VKT {
class XBase;
}

namespace tool {

// What stands for the id of a node in a description: one word that does not begin with a
// letter, so that it is not taken for a key.
using NodeNamer = std::function<std::string(VKT::u32 id)>;

// The words that stand for id 0 and for an id without a node.
inline constexpr const char* kNoNode = "<none>";
inline constexpr const char* kMissingNode = "<missing>";

// The values that stand at one place of a node's text: behind its key, one line for each
// time that the key comes, and in rows below it. The views look into the description.
struct NodeField {
    std::string path;  // the keys that lead here, such as `INDEX_SET "uvs"`, with ` / ` between
    std::vector<std::string_view> lines;
    std::vector<std::string_view> rows;
};

// A node as its text form tells of it, extra attributes included and the id left out, with
// floats in full. Nothing is known here of node classes: keys are the words at the begin of
// lines, and what is indented further stands below them.
class NodeFields {
public:
    // Damaged nodes may take gigabytes: ask `XModel::CanSaveAsText` first. Messages that the library has
    // about names are dropped here.
    static std::string Describe(const VKT::XBase& node, const NodeNamer& nameOf);

    // Keeps views of `description`.
    explicit NodeFields(std::string_view description);

    // In the order of the description.
    const std::vector<NodeField>& GetFields() const { return m_Fields; }
    // Null when there is none.
    const NodeField* Find(const std::string& path) const;

private:
    void ReadFields(const std::vector<std::string_view>& lines);
    NodeField& FieldAt(const std::string& path);

    std::vector<NodeField> m_Fields;
    std::unordered_map<std::string, std::size_t> m_Places;
};

// Takes the next word off `line`: up to white space, and to the closing quote where it
// begins with one. Empty at the end of the line.
std::string_view TakeWord(std::string_view& line);
// The number that the word is, none for any other word. Infinities and NaN are numbers; those
// too large for a double are not.
std::optional<double> NumberOf(std::string_view word);

}  // namespace tool
