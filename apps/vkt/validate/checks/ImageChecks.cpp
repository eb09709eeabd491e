#include <unordered_set>

#include "VKT/document/Model.h"
#include "common/TerminalText.h"
#include "validate/checks/Checks.h"

namespace tool {
namespace {

std::string NameOf(const VKT::XImage& image)
{
    return "image " + Quoted(image.m_Name) + ": ";
}

// A file has room for the logarithms of both sizes and the number of channels less one, and
// holds pixels where none of the three is 0.
void CheckSize(const VKT::XImage& image, Findings& findings)
{
    if (image.m_Width < 2 || image.m_Height < 2 || image.m_Channels < 2)
        findings.Fail(nullptr, NameOf(image) + std::to_string(image.m_Width) + " x " +
                                   std::to_string(image.m_Height) + ", " +
                                   Counted(image.m_Channels, "channel") +
                                   "; files hold no pixels of such a size, and readers get none");
    else if (image.m_Pixels.size() < VKT::u64{image.m_Width} * image.m_Height * image.m_Channels)
        findings.Fail(nullptr, NameOf(image) + "its pixels are cut off; readers get none");
}

}  // namespace

void CheckImages(const VKT::XModel& model, Findings& findings)
{
    std::unordered_set<VKT::u16> ids;
    for (const auto& image : model.GetImages()) {
        if (image->m_Name.empty())
            findings.Fail(nullptr, "image " + std::to_string(image->m_ID) +
                                       " has no name; readers get neither its path nor its pixels");
        else
            CheckSize(*image, findings);
        if (!ids.insert(image->m_ID).second)
            findings.Warn(nullptr, NameOf(*image) + "its id " + std::to_string(image->m_ID) +
                                       " is that of an image ahead of it; readers find that one");
    }
}

}  // namespace tool
