#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "VKT/base/Types.h"
#include "VKT/stream/FileIO.h"
#include "common/SceneFile.h"

namespace VKT {
class XAnimationTake;
class XAnimCycle;
class XDeformer;
class XGeometry;
class XModel;
}  // namespace VKT

namespace tool {

// What `vkt info` tells of a file: numbers and names alone, so that its two outputs say
// the same.

struct Sizes {
    VKT::u64 points = 0;
    VKT::u64 polygons = 0;
    VKT::u64 corners = 0;
};

struct IndexSetSummary {
    std::string name;
    VKT::u64 indices = 0;
};

struct VertexSetSummary {
    std::string name;
    std::string usage;
    VKT::u64 elements = 0;
    VKT::u32 elementSize = 0;  // floats
    std::string indexSet;      // empty for none
};

// A size that nodes of some types have. Both outputs call it by this name.
struct NamedSize {
    const char* name;
    VKT::u64 value;
};

struct GeometrySummary {
    std::string name;
    std::string type;
    Sizes sizes;
    std::vector<NamedSize> moreSizes;  // of its type
    std::vector<IndexSetSummary> indexSets;
    std::vector<VertexSetSummary> vertexSets;
};

struct BlendTargetSummary {
    std::string name;
    VKT::u64 points = 0;
};

struct DeformerSummary {
    std::string name;
    std::string type;
    std::vector<NamedSize> sizes;
    std::optional<std::vector<BlendTargetSummary>> targets;  // of a blend shape
};

// A take or a cycle. Times are in frames.
struct AnimationSummary {
    std::string name;
    VKT::f32 start = 0;
    VKT::f32 end = 0;
    VKT::f32 framesPerSecond = 0;
    std::vector<NamedSize> sizes;
};

// The information record. The strings are those of the file.
struct RecordSummary {
    std::string application;
    std::string originalFile;
    std::string textureFile;
    std::string user;
    std::string host;
    std::string date;  // "2024-05-31 12:00:00", empty when the file's is none
};

struct Summary {
    std::string file;
    VKT::u64 bytes = 0;
    FileForm form = FileForm::Text;
    VKT::u32 version = 0;
    std::optional<RecordSummary> record;
    VKT::u64 nodes = 0;
    std::map<std::string, VKT::u64> nodesByType;
    VKT::u64 instances = 0;
    VKT::u64 images = 0;
    VKT::u64 droppedChunks = 0;
    Sizes sizes;                             // of all geometry
    std::vector<GeometrySummary> geometry;   // in name order, as are
    std::vector<DeformerSummary> deformers;  // these
    std::vector<AnimationSummary> takes;     // and these
    std::vector<AnimationSummary> cycles;    // in file order
};

// Of a document that was loaded from `path`.
Summary Summarise(const VKT::XModel& model, const std::string& path);
GeometrySummary Summarise(const VKT::XGeometry& geometry);
DeformerSummary Summarise(const VKT::XDeformer& deformer);
AnimationSummary Summarise(const VKT::XAnimationTake& take);
AnimationSummary Summarise(const VKT::XAnimCycle& cycle);

// For people: no names or messages of the file steer the terminal.
std::string ToText(const Summary& summary);
// One JSON object, as docs/tool.md describes it. ASCII alone.
std::string ToJson(const Summary& summary);

}  // namespace tool
