#include <algorithm>
#include <filesystem>

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"

// The image table, in binary files and in the side files of text files.

namespace VKT {

// A u16 count and the records. A damaged record does not stop the count: each claimed one
// is tried while input is left.
bool XModel::DoImages(XFileIO& file)
{
    u16 count = static_cast<u16>(std::min<std::size_t>(m_Images.size(), 0xFFFF));
    if (!file.DoData(count))
        return false;
    if (file.IsReading())
        for (u16 i = 0; i < count && file.Remaining() > 0; ++i)
            m_Images.emplace_back(std::make_unique<XImage>())->DoData(file);
    else
        for (u16 i = 0; i < count; ++i)
            if (!m_Images[i]->DoData(file))
                return false;
    return true;
}

// Appends the images of a side file. A path that names nothing is no more than a false
// answer: the next place is tried.
bool XModel::TryTextureFile(const XString& path)
{
    std::error_code error;
    if (path.empty() || !std::filesystem::exists(path, error))
        return false;
    XFileIO file(path.c_str(), true);
    if (!file.GetFile()) {
        GetLogger()->LogFormat(kWarning, "texture file not found \"%s\"", path.c_str());
        return false;
    }
    return DoImages(file);
}

// Scenes move between machines: what the file information records is looked for where it
// says, then beside the scene under the scene's own name, then beside the scene under its
// own. A scene without its images is still a scene.
void XModel::FindTextureFile(const XString& scenePath)
{
    if (!m_Info->HasTextureFile())
        return;
    const XString& recorded = m_Info->GetTextureFile();
    if (TryTextureFile(recorded))
        return;
    if (scenePath.size() > 3) {
        XString sibling = scenePath;
        sibling[sibling.size() - 2] = 't';  // scene.vkt, scene.vtt
        if (TryTextureFile(sibling))
            return;
    }
    constexpr char kSeparators[] = "\\/";
    const std::size_t folder = scenePath.find_last_of(kSeparators);
    if (folder != XString::npos)
        TryTextureFile(scenePath.substr(0, folder + 1) +
                       recorded.substr(recorded.find_last_of(kSeparators) + 1));
}

}  // namespace VKT
