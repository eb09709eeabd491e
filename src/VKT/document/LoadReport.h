#pragma once

#include "VKT/base/Lists.h"
#include "VKT/base/Types.h"

namespace VKT {

// A chunk that a load could not use and skipped.
struct XDroppedChunk {
    XString key;     // as text files have it; of a binary chunk without one the number of its type
    XString name;    // as far as it was read
    bool isDamaged;  // else there is no class for it
};

// What an instance in a text file names.
enum class XInstanceLink { kShape, kMaterial, kTexture };
const char* WordFor(XInstanceLink link);  // "shape", "material", "texture"

// What an instance in a text file named and a load could not use: no node of that kind stands
// ahead of it in the file. Without its shape the whole instance is dropped.
struct XDroppedReference {
    XString bone;
    XString instance;
    XInstanceLink link;
    u32 id;
};

// How many of a kind a load dropped, and the first of them in the order of the file: a file
// can hold any number.
template <class Dropped>
class XDroppedList {
public:
    static constexpr u32 kMostKept = 1000;

    u32 GetCount() const { return m_Count; }
    const XVector<Dropped>& GetFirst() const { return m_First; }
    void Add(Dropped dropped)
    {
        if (m_Count++ < kMostKept)
            m_First.push_back(std::move(dropped));
    }

private:
    u32 m_Count = 0;
    XVector<Dropped> m_First;
};

// What became of a file on its way into a document: what was left out, and what was made up.
// Loaders and the nodes that they read fill it in; it stands until the next load.
class XLoadReport {
public:
    // Zeroes that a load makes up for samples which the takes of a file claim and do not hold.
    static constexpr u64 kMostSamplePadding = 1 << 20;

    const XDroppedList<XDroppedChunk>& GetChunks() const { return m_Chunks; }
    const XDroppedList<XDroppedReference>& GetReferences() const { return m_References; }
    void Drop(XDroppedChunk chunk) { m_Chunks.Add(std::move(chunk)); }
    void Drop(XDroppedReference reference) { m_References.Add(std::move(reference)); }

    // Counts zeroes that are to be made up. False, with a logged error, once they are more
    // than a whole file may have.
    bool AllowSamplePadding(u64 floats);

private:
    XDroppedList<XDroppedChunk> m_Chunks;
    XDroppedList<XDroppedReference> m_References;
    u64 m_SamplePadding = 0;
};

}  // namespace VKT
