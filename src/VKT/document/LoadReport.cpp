#include "VKT/document/LoadReport.h"

#include <algorithm>

#include "VKT/base/Logger.h"

namespace VKT {

const char* WordFor(XInstanceLink link)
{
    constexpr const char* words[] = {"shape", "material", "texture"};
    return words[static_cast<std::size_t>(link)];
}

bool XLoadReport::AllowSamplePadding(u64 floats)
{
    m_SamplePadding += std::min(floats, kMostSamplePadding + 1);
    if (m_SamplePadding <= kMostSamplePadding)
        return true;
    GetLogger()->Log(kError, "the file's takes claim more samples than it holds");
    return false;
}

}  // namespace VKT
