#pragma once

#include <memory>

#include "VKT/document/Image.h"

namespace VKT {

class XInfo;

// The images of a document, in the order of the file. A binary file holds them ahead of its
// chunks; a text file names a side file of the same layout in its file information.
class XImageTable {
public:
    const XVector<std::unique_ptr<XImage>>& GetImages() const { return m_Images; }
    void Clear() { m_Images.clear(); }

    // A u16 count and the records, in both directions; what is read is appended. A damaged
    // record does not stop a read: each claimed one is tried while input is left.
    bool DoData(XFileIO& file);
    // Appends the images of a side file. False, logged only for a file that does not open.
    bool LoadSideFile(const XString& path);
    // The same for the side file of a scene. Scenes move between machines: what the file
    // information records is looked for where it says, then beside the scene under the
    // scene's own name, then beside the scene under its own. A scene without its images is
    // still a scene.
    void FindSideFile(const XInfo& info, const XString& scenePath);

private:
    XVector<std::unique_ptr<XImage>> m_Images;
};

}  // namespace VKT
