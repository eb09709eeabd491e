#pragma once

#include <optional>
#include <string>

#include "VKT/base/Types.h"

namespace VKT {
struct XDroppedChunk;
struct XDroppedReference;
class XModel;
}  // namespace VKT

namespace CLI {
class Validator;
}

namespace tool {

class Log;

// What can be said of a file before it is read: that there is none, that it is a folder, or
// empty. Answers 0, or the exit status after a message.
int CheckInput(const std::string& path, Log& log);

// Loads a scene file, and says so when that fails. Answers 0, or the exit status.
int LoadScene(VKT::XModel& model, const std::string& path, Log& log, bool loadCycles = true);

enum class FileForm { Text, Binary };

// What the header of a scene file says of its form; none for a file without header.
std::optional<FileForm> FormOf(const std::string& path);
const char* NameOf(FileForm form);

// A chunk or a reference that a load dropped, and why, in a few words.
std::string DescribeDropped(const VKT::XDroppedChunk& chunk);
std::string DescribeDropped(const VKT::XDroppedReference& reference);

// Bytes; 0 when the file cannot be asked.
VKT::u64 SizeOf(const std::string& path);

// Accepts paths that the library loads again: they end in .vkt or .xld.
CLI::Validator IsScenePath();

}  // namespace tool
