#pragma once

#include <iosfwd>
#include <memory>

#include "VKT/base/FileResult.h"
#include "VKT/base/Types.h"
#include "VKT/document/LoadReport.h"

namespace VKT {

class XBase;
class XImageTable;
class XModel;
class XTypeDeclarations;
struct XFileHeader;

// One load of a document: empties it, lets the loader of the file's form read the chunks, and
// links what came. The loaders put what they have read into the document through it.
class XSceneLoad {
public:
    // Without `cycles` animation cycles are skipped. Side files are looked for where `path`
    // lies.
    XSceneLoad(XModel& model, const char* path, bool cycles);

    // The file of the path, in the form that its header says, or through the translator of
    // its extension.
    XFileResult LoadFile();
    // A text file from a stream.
    XFileResult LoadStream(std::istream& in);

    XModel& GetModel() const { return m_Model; }
    const char* GetPath() const { return m_Path; }
    bool WantsCycles() const { return m_Cycles; }

    // Reads the header from the start of a file. `FileOk` says that this library reads such a
    // file; the document gets its version.
    XFileResult CheckHeader(std::string_view start, XFileHeader& header);
    void SetName(XBase& node, const XString& name);
    // Takes over a node that was read to its end. Its name need not be unique.
    void Enter(std::unique_ptr<XBase> node);
    // A node that could not be read to its end leaves no instances behind.
    void Abandon(const XBase& node);
    void Drop(XDroppedChunk chunk);
    XTypeDeclarations& GetDeclarations();
    XImageTable& GetImages();

private:
    template <class Reading>
    XFileResult Run(Reading read);
    XFileResult ReadFile();
    void PostLoad();

    XModel& m_Model;
    const char* m_Path;
    bool m_Cycles;
};

}  // namespace VKT
