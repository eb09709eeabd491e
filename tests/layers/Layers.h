#pragma once

#include <map>
#include <string>
#include <vector>

// Which room of the house may know which: the include lines of the sources held against a table.

namespace layers {

// The files of the project, by their path in it: "src/VKT/base/Vector.h".
using Files = std::map<std::string, std::string>;

// All headers and sources below the folders, which are given by their path in the project.
Files ReadFiles(const std::string& root, const std::vector<std::string>& folders);

// A folder with what lies in it, and the rooms right below it: it may include itself, those, and
// what they may. Where rooms lie in rooms, a file belongs to the innermost.
struct Room {
    std::string folder;
    std::vector<std::string> below;
};

// A header of another room that the sources of a room may include though it lies above them.
// Headers have no exceptions.
struct Exception {
    std::string folder;
    std::string included;  // the path in the project
    std::string reason;
};

// What the include lines say against the table, a line for each finding: includes that are
// not allowed, files without a room, and exceptions that nothing needs.
// Files that are not among `files`, such as those of the standard library, may be included.
std::vector<std::string> Check(const Files& files, const std::vector<Room>& rooms,
                               const std::vector<Exception>& exceptions);

// Headers of others than the project and the standard library, those of the host's SDK say, are
// for some folders or files alone. A line for each file elsewhere that sees one, by itself or
// by headers of ours.
std::vector<std::string> CheckForeign(const Files& files, const std::vector<std::string>& places);

}  // namespace layers
