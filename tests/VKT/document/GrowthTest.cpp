#include <algorithm>
#include <charconv>
#include <ctime>
#include <list>
#include <regex>
#include <vector>

#include "VKT/animation/AnimCurve.h"
#include "VKT/animation/AnimCycle.h"
#include "VKT/animation/CurveEvaluator.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Locator.h"
#include "VKT/node/Attribute.h"
#include "VKT/samples/Samples.h"
#include "VKT/support/NodeTest.h"

// What documents cost as they grow: ten times the nodes take ten times as long.

using namespace VKT;
using namespace VKT::Test;

namespace {

// Text chunks with marks in them, to be repeated with ids and names of their own: a mark in
// front of each id, another behind each name.
constexpr char kIdMark = '\1';
constexpr char kNameMark = '\2';
constexpr u32 kIdsOfPattern = 1000;  // the ids of a pattern are below

std::string PatternOf(const XBase& node)
{
    XTextWriter out;
    out.Describe([](u32 id) { return kIdMark + std::to_string(id); });
    if (node.GetApiType() == kFnAnimCycle) {
        node.WriteChunk(out);  // the whole chunk, without an id
        return Replaced(out.TakeText(), "\"\n{\n", std::string{kNameMark} + "\"\n{\n");
    }
    node.Write(out);
    const std::string id = std::to_string(node.GetID()) + '\n';
    return Replaced(Replaced(out.TakeText(), "\n{\n", std::string{kNameMark} + "\n{\n"), "\tid " + id,
                    std::string("\tid ") + kIdMark + id);
}

std::string PatternOf(const XModel& model)
{
    std::string pattern;
    for (u32 id = 1; id < kIdsOfPattern; ++id)
        if (const XBase* node = model.FindNode(id))
            pattern += PatternOf(*node);
    for (const auto& cycle : model.GetCycles())
        pattern += PatternOf(*cycle);
    // Capsules and cylinders write a key that no reader takes.
    return std::regex_replace(pattern, std::regex("\tlength([0-9])"), "\tlength $1");
}

void AppendCopy(std::string& file, std::string_view pattern, u32 copy, u32 firstId)
{
    constexpr char marks[] = {kIdMark, kNameMark};
    for (;;) {
        const std::size_t mark = std::min(pattern.find_first_of({marks, 2}), pattern.size());
        file += pattern.substr(0, mark);
        if (mark == pattern.size())
            return;
        const bool isId = pattern[mark] == kIdMark;
        pattern.remove_prefix(mark + 1);
        if (!isId) {
            file += '_' + std::to_string(copy);
            continue;
        }
        u32 id = 0;
        const char* const end = std::from_chars(pattern.begin(), pattern.end(), id).ptr;
        ASSERT_LT(id, kIdsOfPattern);
        file += std::to_string(id == 0 ? 0 : firstId + id);
        pattern.remove_prefix(static_cast<std::size_t>(end - pattern.begin()));
    }
}

std::string Repeated(const std::vector<std::string>& patterns, u32 copies)
{
    std::string file = "|VKT_004A#0000#00000000|\n";
    u32 firstId = 0;
    for (u32 copy = 0; copy < copies; ++copy)
        for (const std::string& pattern : patterns) {
            AppendCopy(file, pattern, copy, firstId);
            firstId += kIdsOfPattern;
        }
    return file;
}

// Seconds of processor time, which other programs don't take part in.
template <class Work>
double BestOfThree(Work work)
{
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
        const std::clock_t start = std::clock();
        work();
        best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return best;
}

// Seconds that documents take in both forms.
struct Costs {
    double textLoad, textSave, binarySave, binaryLoad;
};

class Growth : public NodeTest {
protected:
    // The costs of equal documents that live side by side.
    Costs Measure(const std::string& text, std::size_t numNodes, std::size_t numDocuments)
    {
        Costs costs;
        const TempFile file(".vkt", text);
        std::list<XModel> models(numDocuments);
        const auto load = [&] {
            for (XModel& model : models) {
                EXPECT_EQ(model.Load(file.Path()), FileOk);
                EXPECT_EQ(model.GetNodes().size(), numNodes);
                EXPECT_EQ(model.GetLoadReport().GetChunks().GetCount(), 0u);
            }
        };
        const auto save = [&] {
            for (XModel& model : models)
                EXPECT_EQ(model.Save(file.Path()), FileOk);
        };
        costs.textLoad = BestOfThree(load);
        for (XModel& model : models)
            model.GetSaveFlags().Set(SaveAscii);
        costs.textSave = BestOfThree(save);
        for (XModel& model : models)
            model.GetSaveFlags().Clear(SaveAscii);
        costs.binarySave = BestOfThree(save);
        costs.binaryLoad = BestOfThree(load);
        EXPECT_EQ(m_Log.Text().find("Warning"), std::string::npos);
        EXPECT_EQ(m_Log.Text().find("Error"), std::string::npos);
        return costs;
    }

    // That one document takes about as long as ten of a tenth of its size. Memory that is
    // farther away makes up to twice of it; a walk for each node would make it ten times.
    void ExpectLinear(const std::vector<std::string>& patterns, std::size_t numNodes, u32 copies)
    {
        const Costs ten = Measure(Repeated(patterns, copies), copies * numNodes, 10);
        const Costs one = Measure(Repeated(patterns, 10 * copies), 10 * copies * numNodes, 1);
        EXPECT_LT(one.textLoad, 3 * ten.textLoad);
        EXPECT_LT(one.textSave, 3 * ten.textSave);
        EXPECT_LT(one.binarySave, 3 * ten.binarySave);
        EXPECT_LT(one.binaryLoad, 3 * ten.binaryLoad);
    }
};

TEST_F(Growth, FilesOfAllClassesLoadAndSaveInLinearTime)
{
    std::vector<std::string> patterns;
    std::size_t numNodes = 0;
    for (const Sample& sample : kSamples) {
        XModel model;
        ASSERT_EQ(LoadText(model, sample.text), FileOk);
        numNodes += model.GetNodes().size();
        patterns.push_back(PatternOf(model));
    }
    ExpectLinear(patterns, numNodes, 4'000 / static_cast<u32>(numNodes));
}

TEST_F(Growth, ExtraAttributesLoadAndSaveInLinearTime)
{
    XBase* const locator = m_Model.CreateNode(kFnLocator);
    locator->CreateExtraAttribute("speed")->Set(1.5f);
    locator->CreateExtraAttribute("count")->Set(7);
    locator->CreateExtraAttribute("label")->Set(XString("left"));
    locator->CreateExtraAttribute("weights")->Set(XFloatArray{1, 2, 3});
    locator->CreateExtraAttribute("links")->SetInput(0, locator->GetID(), "speed");
    ExpectLinear({PatternOf(*locator)}, 1, 4'000);
}

TEST_F(Growth, KeysAreAppendedInLinearTime)
{
    const auto append = [](u32 numCurves, u32 numKeys) {
        return BestOfThree([=] {
            for (u32 i = 0; i < numCurves; ++i) {
                XAnimCurve curve;
                curve.SetInterpolation(kLinear);
                for (u32 key = 0; key < numKeys; ++key)
                    curve.AddKey(static_cast<f32>(key), 1);
                EXPECT_EQ(curve.GetNumKeys(), numKeys);
            }
        });
    };
    const double ten = append(10, 20'000);
    EXPECT_LT(append(1, 200'000), 5 * ten);
}

TEST_F(Growth, CurvesAreEvaluatedWithoutAWalkOverTheirKeys)
{
    constexpr u32 kTimes = 2'000;
    const auto evaluate = [](u32 numKeys) {
        XAnimCurve curve;
        curve.SetInterpolation(kLinear);
        for (u32 key = 0; key < numKeys; ++key)
            curve.AddKey(static_cast<f32>(key), 1);
        return BestOfThree([&] {
            for (u32 i = 0; i < kTimes; ++i) {
                f32 value = 0;
                EXPECT_TRUE(XEvaluateCurve(curve, numKeys, static_cast<f32>(i * (numKeys / kTimes)), value));
                EXPECT_EQ(value, 1);
            }
        });
    };
    const double small = evaluate(kTimes);
    EXPECT_LT(evaluate(100 * kTimes), 10 * small);
}

TEST_F(Growth, BonesAreHungAndMovedInLinearTime)
{
    const auto move = [](u32 numDocuments, u32 numBones) {
        return BestOfThree([=] {
            for (u32 document = 0; document < numDocuments; ++document) {
                XModel model;
                XBone& first = *model.CreateNode<XBone>();
                XBone& second = *model.CreateNode<XBone>();
                for (u32 i = 0; i < numBones; ++i)
                    EXPECT_TRUE(first.AddChild(model.CreateNode<XBone>()));
                XBoneList children;
                first.ListChildren(children);
                for (XBone* child : children)
                    EXPECT_TRUE(second.AddChild(child));
            }
        });
    };
    const double ten = move(10, 2'000);
    EXPECT_LT(move(1, 20'000), 3 * ten);
}

TEST_F(Growth, RenamesTakeNoWalkOverTheDocument)
{
    constexpr u32 kRenames = 1'000;
    const auto measure = [&](u32 count) {
        m_Model.Clear();
        for (u32 i = 0; i < count; ++i)
            m_Model.CreateNode(kFnLocator);
        return BestOfThree([&] {
            for (u32 i = 0; i < kRenames; ++i) {
                XBase* const node = m_Model.FindNode(1 + i * (count / kRenames));
                node->SetName(("other" + std::to_string(i)).c_str());
                node->SetName("same");  // a number goes behind it
            }
        });
    };
    const double small = measure(kRenames);
    EXPECT_LT(measure(1'000 * kRenames), 10 * small);
}

}  // namespace
