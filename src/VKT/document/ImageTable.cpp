#include "VKT/document/ImageTable.h"

#include <algorithm>
#include <filesystem>

#include "VKT/base/Logger.h"
#include "VKT/document/Info.h"

namespace VKT {

bool XImageTable::DoData(XFileIO& file)
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

bool XImageTable::LoadSideFile(const XString& path)
{
    std::error_code error;
    if (path.empty() || !std::filesystem::exists(path, error))
        return false;
    XFileIO file(path.c_str(), true);
    if (!file.GetFile()) {
        GetLogger()->LogFormat(kWarning, "texture file not found \"%s\"", path.c_str());
        return false;
    }
    return DoData(file);
}

void XImageTable::FindSideFile(const XInfo& info, const XString& scenePath)
{
    if (!info.HasTextureFile())
        return;
    const XString& recorded = info.GetTextureFile();
    if (LoadSideFile(recorded))
        return;
    if (scenePath.size() > 3) {
        XString sibling = scenePath;
        sibling[sibling.size() - 2] = 't';  // scene.vkt, scene.vtt
        if (LoadSideFile(sibling))
            return;
    }
    constexpr char kSeparators[] = "\\/";
    const std::size_t folder = scenePath.find_last_of(kSeparators);
    if (folder != XString::npos)
        LoadSideFile(scenePath.substr(0, folder + 1) +
                     recorded.substr(recorded.find_last_of(kSeparators) + 1));
}

}  // namespace VKT
