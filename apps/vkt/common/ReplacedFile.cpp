#include "common/ReplacedFile.h"

#include <cerrno>
#include <cstdio>

#include "common/Platform.h"

namespace tool {

namespace fs = std::filesystem;

ReplacedFile::ReplacedFile(const std::string& target) : m_Target(target)
{
    std::error_code error;
    if (fs::is_symlink(m_Target, error))
        m_Target = fs::weakly_canonical(m_Target, error);
}

ReplacedFile::~ReplacedFile()
{
    if (!m_WorkingPath.empty())
        std::remove(m_WorkingPath.c_str());
}

// A name of its own length, as the target's may be as long as the system allows. Created
// exclusively: in a folder that others write to, the name could be a link of theirs.
bool ReplacedFile::Create()
{
    const std::string stem = ".vkt-" + std::to_string(ProcessNumber()) + "-";
    for (int number = 0; number < 1000; ++number) {
        fs::path candidate = m_Target;
        candidate.replace_filename(stem + std::to_string(number) + ".vkt");
        if (std::FILE* const file = std::fopen(candidate.string().c_str(), "wbx")) {
            std::fclose(file);
            m_WorkingPath = candidate.string();
            return true;
        }
        if (errno != EEXIST)
            return false;
    }
    return false;
}

bool ReplacedFile::Commit()
{
    std::error_code error;
    if (const fs::file_status old = fs::status(m_Target, error); fs::exists(old))
        fs::permissions(m_WorkingPath, old.permissions(), error);
    fs::rename(m_WorkingPath, m_Target, error);
    if (error)
        return false;
    m_WorkingPath.clear();
    return true;
}

}  // namespace tool
