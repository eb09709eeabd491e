#pragma once

#include <filesystem>
#include <string>

namespace tool {

// A file that is written beside its target and takes the target's place when it is
// complete, so that whatever ends a run leaves the old file.
//
// The working file ends in .vkt whatever the target ends in, as the exporter and the
// loader go by that. Where the target is a link, the file that it names is replaced.
class ReplacedFile {
public:
    explicit ReplacedFile(const std::string& target);
    // Removes a working file that did not take its place.
    ~ReplacedFile();
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    // Makes the working file, empty. False when the folder does not take one.
    bool Create();
    const std::string& GetWorkingPath() const { return m_WorkingPath; }
    // Puts the working file in the target's place, with the permissions of a file that
    // stands there. False, and the old file stays, when the system refuses.
    bool Commit();

private:
    std::filesystem::path m_Target;
    std::string m_WorkingPath;  // empty while there is none
};

}  // namespace tool
