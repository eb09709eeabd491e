#include <gmock/gmock.h>

#include <regex>

#include "VKT/samples/AnimationSample.h"
#include "apps/support/Takes.h"
#include "apps/support/ToolRun.h"

namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

using Texts = std::vector<std::string>;

// What the first group of the pattern is, wherever it is found.
Texts FindAll(const std::string& text, const std::string& pattern)
{
    Texts out;
    const std::regex regex(pattern);
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
        out.push_back((*match)[1]);
    return out;
}

// The pictures of documents.
class CurvesTool : public ToolTest {
protected:
    // The picture of the first take of a document, which begins behind its header.
    std::string Draw(const std::string& chunks, const Texts& options = {})
    {
        WriteFile("scene.vkt", kHeader + chunks);
        Texts arguments = {"curves", "scene.vkt", "-o", "out.svg"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ToolResult result = Run(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, "");
        return ReadFile("out.svg");
    }
    // The picture of one attribute of the bone "ball".
    std::string DrawStreams(const Texts& streams, const std::string& attribute = "translate",
                            int elements = 3)
    {
        return Draw(Bone("ball", 1, 0) +
                    Take("walk", 2, {AnimatedNode(1, {Animated(attribute, elements, streams)})}));
    }

    // The points of all lines. They are longer than a regular expression has stack for.
    static Texts Lines(const std::string& svg)
    {
        const std::string before = "<polyline points=\"";
        Texts out;
        for (std::size_t at = svg.find(before); at != svg.npos; at = svg.find(before, at)) {
            at += before.size();
            out.push_back(svg.substr(at, svg.find('"', at) - at));
        }
        return out;
    }
    static Texts Titles(const std::string& svg)
    {
        return FindAll(svg, "font-size=\"13\" font-weight=\"bold\">([^<]*)<");
    }
    static Texts Legend(const std::string& svg)
    {
        return FindAll(svg.substr(svg.find("\"legend\"")), "<text x=\"[0-9.]+\" y=\"-[0-9.]+\">([^<]*)<");
    }
    // The texts of a group of labels, "times" or "values", in the first panel.
    static Texts Labels(const std::string& svg, const std::string& group)
    {
        const std::size_t begin = svg.find("class=\"" + group + "\"");
        return FindAll(svg.substr(begin, svg.find("</g>", begin) - begin), ">([^<]+)</text>");
    }
};

const std::string kLinear = Curves({Curve(0, "LINEAR", 3, "\n0 0 \n0.5 10 \n1 2 ")});

TEST_F(CurvesTool, LinearCurveRunsFromKeyToKey)
{
    const std::string svg = DrawStreams({kLinear});
    // 276 pixels for a second; 125 is the value 0, and 5 is 10.
    EXPECT_THAT(Lines(svg), ElementsAre("0,125 138,5 276,101"));
    EXPECT_THAT(FindAll(svg, "<circle (cx=\"[0-9.]+\" cy=\"[0-9.]+\") r=\"2.5\" fill=\"#d55e00\"/>"),
                ElementsAre("cx=\"0\" cy=\"125\"", "cx=\"138\" cy=\"5\"", "cx=\"276\" cy=\"101\""));
    EXPECT_THAT(Titles(svg), ElementsAre("ball.translate"));
    EXPECT_THAT(Legend(svg), ElementsAre("x"));
    EXPECT_THAT(Labels(svg, "times"), ElementsAre("0.0", "0.2", "0.4", "0.6", "0.8", "1.0"));
    EXPECT_THAT(Labels(svg, "values"), ElementsAre("0", "2", "4", "6", "8", "10"));
    for (const char* text :
         {">seconds<", ">3 keys<", ">take &quot;walk&quot;<",
          ">frames 0 to 24 at 24 per second, 1 attribute of 1 node<", "font-family=\"sans-serif\""})
        EXPECT_THAT(svg, HasSubstr(text));
    EXPECT_EQ(svg.rfind("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"480\" height=\"", 0), 0u);
    EXPECT_TRUE(svg.ends_with("</svg>\n"));
}

TEST_F(CurvesTool, StepCurveHasCorners)
{
    const std::string svg = DrawStreams({Curves({Curve(-1, "STEP", 2, "\n0.25 1 \n0.75 0 ")})}, "visible", 1);
    EXPECT_THAT(Lines(svg), ElementsAre("0,5 207,5 207,125 276,125"));
    EXPECT_THAT(Legend(svg), ElementsAre("value"));
}

TEST_F(CurvesTool, InfinitiesAreDrawn)
{
    // A ramp that repeats: in front of the first turn, at the edge of the plot, is nothing.
    std::string ramp = Curve(0, "LINEAR", 2, "\n0 0 \n0.5 1 ");
    ramp.replace(ramp.find("post_infinity kInfinityConstant"), 31, "post_infinity kInfinityCycle");
    ramp.replace(ramp.find("pre_infinity kInfinityConstant"), 30, "pre_infinity kInfinityCycle");
    const Texts lines = Lines(DrawStreams({Curves({ramp})}));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].rfind("0,125 138,5 ", 0), 0u) << lines[0];
    EXPECT_TRUE(lines[0].ends_with(" 276,5")) << lines[0];
}

TEST_F(CurvesTool, BezierCurveGoesThroughItsControlPoints)
{
    // With evenly spread control points the time is the parameter: 3 s^2 u + 3 s u^2 at
    // s = u = 1/2 is 0.75 of 4.
    const std::string svg =
        DrawStreams({Curves({Curve(1, "BEZIER_2D", 2, "\n0 0 0 0 0.333333 4 \n1 0 0.666667 4 0 0 ")})});
    ASSERT_EQ(Lines(svg).size(), 1u);
    EXPECT_THAT(Labels(svg, "values"), ElementsAre("0", "1", "2", "3"));
    EXPECT_THAT(Lines(svg)[0], HasSubstr(" 138,5 "));
    EXPECT_THAT(Legend(svg), ElementsAre("y"));
}

TEST_F(CurvesTool, SamplesStandAtTheirFrames)
{
    const std::string svg = Draw(
        Bone("ball", 1, 0) +
        Take("walk", 2, {AnimatedNode(1, {Animated("translate", 3, {Samples("\n0 2 4 \n1 2 0 \n0 2 4 ")})})},
             "12", "14", "4"));
    EXPECT_THAT(Lines(svg), ElementsAre("0,125 138,95 276,125", "0,65 276,65", "0,5 138,125 276,5"));
    EXPECT_THAT(Labels(svg, "times"), ElementsAre("3.0", "3.1", "3.2", "3.3", "3.4", "3.5"));
    EXPECT_THAT(Legend(svg), ElementsAre("x", "y", "z"));
    EXPECT_THAT(FindAll(svg, "class=\"line\" stroke=\"([^\"]*)\""),
                ElementsAre("#d55e00", "#009e73", "#0072b2"));
    EXPECT_THAT(svg, HasSubstr(">3 samples<"));
    EXPECT_THAT(svg, Not(HasSubstr("\"keys\"")));
}

TEST_F(CurvesTool, LinesOnEachOtherAreDashedInTurns)
{
    const std::string svg = DrawStreams({Pose("1 1 1")}, "scale");
    EXPECT_THAT(Lines(svg), ElementsAre("0,65 276,65", "0,65 276,65", "0,65 276,65"));
    EXPECT_THAT(FindAll(svg, "(stroke-dasharray=\"8 16\" stroke-dashoffset=\"[-0-9]+\")"),
                ElementsAre("stroke-dasharray=\"8 16\" stroke-dashoffset=\"0\"",
                            "stroke-dasharray=\"8 16\" stroke-dashoffset=\"-8\"",
                            "stroke-dasharray=\"8 16\" stroke-dashoffset=\"-16\""));
    EXPECT_THAT(Labels(svg, "values"), ElementsAre("0.90", "0.95", "1.00", "1.05", "1.10"));
    EXPECT_THAT(svg, HasSubstr(">one value<"));
}

TEST_F(CurvesTool, ComponentsHaveTheNamesOfTheirKind)
{
    EXPECT_THAT(Legend(DrawStreams({Pose("0 0 0 1")}, "rotation", 4)), ElementsAre("x", "y", "z", "w"));
    EXPECT_THAT(Legend(DrawStreams({Curves({Curve(2, "LINEAR", 1, "\n0 1 ")})}, "rotation", 4)),
                ElementsAre("angle z"));
    EXPECT_THAT(Legend(DrawStreams({Pose("1 2 3"), kLinear})),
                ElementsAre("x pose", "y pose", "z pose", "x curve"));
    EXPECT_THAT(Legend(Draw(Lambert("red", 1) +
                            Take("glow", 2, {AnimatedNode(1, {Animated("ambient", 4, {Pose("1 0 0 1")})})}))),
                ElementsAre("r", "g", "b", "a"));
}

TEST_F(CurvesTool, EachAttributeHasAPanel)
{
    const Texts attributes = {Animated("translate", 3, {Pose("1 2 3")}),
                              Animated("scale", 3, {Pose("1 2 3")}), Animated("visible", 1, {Pose("1")}),
                              Animated("rotation", 4, {Pose("0 0 0 1")})};
    const std::string scene =
        Bone("ball", 1, 0) + Bone("bat", 2, 0) +
        Take("walk", 3, {AnimatedNode(2, attributes), AnimatedNode(1, {attributes[0]})});
    const std::string svg = Draw(scene);
    EXPECT_THAT(Titles(svg),
                ElementsAre("bat.translate", "bat.scale", "bat.visible", "bat.rotation", "ball.translate"));
    // Three stand side by side.
    EXPECT_THAT(FindAll(svg, "class=\"panel\" transform=\"translate\\(([0-9 ]+)\\)\""),
                ElementsAre("72 107", "424 107", "776 107", "72 324", "424 324"));
    EXPECT_THAT(Titles(Draw(scene, {"--node", "ball"})), ElementsAre("ball.translate"));
}

TEST_F(CurvesTool, NamesAreEscapedAndCleaned)
{
    const std::string svg =
        Draw(Bone("a&<b>\x1b\xff\xef\xbf\xbf", 1, 0) +
             Take("<run>&", 2, {AnimatedNode(1, {Animated("translate", 3, {Pose("1 2 3")})})}));
    EXPECT_THAT(Titles(svg), ElementsAre("a&amp;&lt;b&gt;\\x1b\\xff?.translate"));
    EXPECT_THAT(svg, HasSubstr(">take &quot;&lt;run&gt;&amp;&quot;<"));
}

TEST_F(CurvesTool, LongNamesAreCutInTheMiddle)
{
    const std::string name = std::string(20, 'a') + std::string(1000, 'b') + std::string(20, 'c');
    const std::string svg =
        Draw(Bone(name, 1, 0) + Take("walk", 2, {AnimatedNode(1, {Animated("scale", 3, {Pose("1 2 3")})})}));
    EXPECT_THAT(Titles(svg), ElementsAre("aaaaaaaaaaaaaaa...ccccccccc.scale"));
    EXPECT_THAT(svg, HasSubstr("<title>" + name + ".scale</title>"));
}

TEST_F(CurvesTool, WhatIsOutsideOfTheTakeIsGrey)
{
    EXPECT_THAT(DrawStreams({kLinear}), Not(HasSubstr("#ececec")));
    const std::string svg = DrawStreams({Curves({Curve(0, "LINEAR", 2, "\n-1 0 \n3 1 ")})});
    EXPECT_THAT(svg, HasSubstr("<rect x=\"0\" width=\"276\" height=\"130\" fill=\"#ececec\""));
    EXPECT_THAT(svg, HasSubstr("<rect x=\"69\" width=\"69\" height=\"130\" fill=\"#ffffff\""));
}

TEST_F(CurvesTool, ATakeWithoutARateIsInFrames)
{
    const std::string svg = Draw(
        Bone("ball", 1, 0) +
        Take("walk", 2, {AnimatedNode(1, {Animated("translate", 3, {Pose("1 2 3")})})}, "0", "100", "0"));
    EXPECT_THAT(svg, HasSubstr(">frames<"));
    EXPECT_THAT(Labels(svg, "times"), ElementsAre("0", "20", "40", "60", "80", "100"));
}

TEST_F(CurvesTool, ASingleSampleIsADot)
{
    const std::string svg =
        Draw(Bone("ball", 1, 0) + Take("still", 2,
                                       {AnimatedNode(1, {Animated("translate", 3, {Samples("\n1 2 3 ")}),
                                                         Animated("scale", 3, {Pose("1 2 3")})})},
                                       "5", "5"));
    EXPECT_THAT(FindAll(svg, "<circle (cx=\"[0-9.]+\" cy=\"[0-9.]+\") r=\"1.5\""),
                ElementsAre("cx=\"138\" cy=\"125\"", "cx=\"138\" cy=\"65\"", "cx=\"138\" cy=\"5\""));
    EXPECT_THAT(Lines(svg), ElementsAre("0,125 276,125", "0,65 276,65", "0,5 276,5"));
}

TEST_F(CurvesTool, AttributesWithoutValuesSaySo)
{
    const std::string svg = DrawStreams({}, "visible", 1);
    EXPECT_THAT(Titles(svg), ElementsAre("ball.visible"));
    EXPECT_THAT(svg, HasSubstr(">nothing to draw<"));
    EXPECT_THAT(Lines(svg), IsEmpty());
    EXPECT_THAT(DrawStreams({Curves({})}), HasSubstr(">nothing to draw<"));
}

// Numbers that are not finite come from binary files alone.
TEST_F(CurvesTool, ValuesThatAreNotFiniteInterruptALine)
{
    WriteFile("scene.vkt",
              kHeader + Bone("ball", 1, 0) +
                  Take("walk", 2,
                       {AnimatedNode(1, {Animated("visible", 1, {Samples("\n0 \n1 \n1234.5 \n1 \n0 ")})})},
                       "0", "4", "4"));
    ASSERT_EQ(Run({"convert", "scene.vkt", "binary.vkt", "--binary"}).status, 0);
    const std::string number("\x00\x50\x9a\x44", 4);  // 1234.5
    const std::string good = ReadFile("binary.vkt");
    ASSERT_NE(good.find(number), std::string::npos);
    for (const char* bits : {"\x00\x00\xc0\x7f", "\x00\x00\x80\x7f", "\x00\x00\x80\xff"}) {
        std::string bytes = good;
        WriteFile("bad.vkt", bytes.replace(good.find(number), 4, std::string(bits, 4)));
        ASSERT_EQ(Run({"curves", "bad.vkt", "-o", "out.svg"}).status, 0);
        EXPECT_THAT(Lines(ReadFile("out.svg")), ElementsAre("0,125 69,5", "207,5 276,125"));
    }
}

TEST_F(CurvesTool, ManySamplesKeepTheirExtremes)
{
    std::string rows;
    for (int i = 0; i < 100000; ++i)
        rows += i == 54321 ? "\n7 " : i % 2 == 0 ? "\n-1 " : "\n1 ";
    const std::string svg = DrawStreams({Samples(rows)}, "visible", 1);
    EXPECT_LT(svg.size(), 30000u);
    EXPECT_THAT(Labels(svg, "values"), ElementsAre("-2", "0", "2", "4", "6", "8"));
    EXPECT_THAT(Lines(svg)[0], HasSubstr(",17 "));  // 7 between 8 at 5 and -2 at 125
}

TEST_F(CurvesTool, ManyAttributesAndLinesAreCountedAndNotDrawn)
{
    const Texts attributes(200, Animated("visible", 1, {Pose("1")}));
    WriteFile("scene.vkt", kHeader + Bone("ball", 1, 0) + Take("walk", 2, {AnimatedNode(1, attributes)}));
    const ToolResult result = Run({"curves", "scene.vkt", "-o", "out.svg"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(
        result.err,
        HasSubstr("vkt: the first 120 of 200 attributes are drawn (--node draws those of one node)\n"));
    const std::string svg = ReadFile("out.svg");
    EXPECT_EQ(Titles(svg).size(), 120u);
    EXPECT_THAT(svg, HasSubstr(">and 80 attributes more<"));
    EXPECT_THAT(Legend(DrawStreams({Samples("\n1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 ")},
                                   "translate", 20)),
                ElementsAre("x", "y", "z", "w", "[4]", "[5]", "[6]", "[7]", "[8]", "[9]", "[10]", "[11]",
                            "[12]", "[13]", "[14]", "[15]", "and 4 more"));
}

TEST_F(CurvesTool, BothFormsOfADocumentLookTheSame)
{
    WriteFile("scene.vkt", VKT::Test::kAnimationSample);
    ASSERT_EQ(Run({"convert", "scene.vkt", "binary.vkt", "--binary"}).status, 0);
    ASSERT_EQ(Run({"curves", "scene.vkt", "-o", "text.svg"}).status, 0);
    ASSERT_EQ(Run({"curves", "binary.vkt", "-o", "binary.svg"}).status, 0);
    EXPECT_EQ(ReadFile("text.svg"), ReadFile("binary.svg"));
    EXPECT_EQ(Titles(ReadFile("text.svg")).size(), 4u);
}

TEST_F(CurvesTool, TheTakeIsChosenByName)
{
    const std::string pose = AnimatedNode(1, {Animated("visible", 1, {Pose("1")})});
    WriteFile("scene.vkt",
              kHeader + Bone("ball", 1, 0) + Take("walk", 2, {pose}) + Take("run", 3, {pose, pose}));
    const ToolResult first = Run({"curves", "scene.vkt", "-o", "out.svg"});
    EXPECT_EQ(first.status, 0);
    EXPECT_THAT(first.err, HasSubstr("vkt: \"run\" is drawn; the takes are \"run\", \"walk\"\n"));
    EXPECT_EQ(Titles(ReadFile("out.svg")).size(), 2u);
    const ToolResult walk = Run({"curves", "scene.vkt", "--take", "walk", "-o", "out.svg"});
    EXPECT_EQ(walk.err, "Info : loading \"scene.vkt\"\n");
    EXPECT_EQ(Titles(ReadFile("out.svg")).size(), 1u);
}

TEST_F(CurvesTool, WhatIsNotThereIsNamed)
{
    const std::string ball = Bone("ball", 1, 0) + Bone("bat", 2, 0);
    const std::string take =
        Take("walk", 3, {AnimatedNode(1, {Animated("visible", 1, {Pose("1")})})}) + Take("empty", 4, {});
    WriteFile("plate.vkt", kPlate);
    WriteFile("cycle.vkt", kHeader +
                               "ANIM_CYCLE \"old\"\n{\n\tnum_bones 0\n\tstart 0\n\tend 1\n\tnum_frames 2\n"
                               "\tfps 24\n}\n");
    WriteFile("scene.vkt", kHeader + ball + take);
    WriteFile("out.svg", "old");
    const std::vector<std::pair<Texts, const char*>> cases = {
        {{"plate.vkt"}, "vkt: \"plate.vkt\" holds no take\n"},
        {{"cycle.vkt"}, "vkt: \"cycle.vkt\" holds no take, and cycles are not drawn\n"},
        {{"scene.vkt", "--take", "fly"},
         "vkt: \"scene.vkt\" holds no take \"fly\"; the takes are \"empty\", \"walk\"\n"},
        {{"scene.vkt", "--take", "empty"}, "vkt: take \"empty\" animates nothing\n"},
        {{"scene.vkt", "--take", "walk", "--node", "bar"}, "vkt: \"scene.vkt\" holds no node \"bar\"\n"},
        {{"scene.vkt", "--take", "walk", "--node", "bat"}, "vkt: take \"walk\" does not animate \"bat\"\n"},
    };
    for (const auto& [options, message] : cases) {
        Texts arguments = {"curves", "-o", "out.svg"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ToolResult result = Run(arguments);
        EXPECT_EQ(result.status, 1) << message;
        EXPECT_THAT(result.err, HasSubstr(message));
        EXPECT_EQ(ReadFile("out.svg"), "old") << message;
    }
}

TEST_F(CurvesTool, AnOldPictureIsReplacedWhole)
{
    WriteFile("out.svg", "old");
    EXPECT_THAT(DrawStreams({kLinear}), HasSubstr("<svg"));
    EXPECT_EQ(ListFiles(), "out.svg scene.vkt ");
    EXPECT_EQ(Run({"curves", "scene.vkt", "-o", "missing/out.svg"}).status, 3);
    EXPECT_EQ(Run({"curves", "missing.vkt", "-o", "out.svg"}).status, 3);
    EXPECT_EQ(ListFiles(), "out.svg scene.vkt ");
}

TEST_F(CurvesTool, EveryPrefixOfAFileIsAnswered)
{
    const std::string text = VKT::Test::kAnimationSample;
    WriteFile("scene.vkt", text);
    ASSERT_EQ(Run({"convert", "scene.vkt", "binary.vkt", "--binary"}).status, 0);
    for (const std::string& bytes : {text, ReadFile("binary.vkt")})
        for (std::size_t length = 0; length < bytes.size(); length += 41) {
            WriteFile("cut.vkt", bytes.substr(0, length));
            EXPECT_THAT(Run({"curves", "cut.vkt", "-o", "out.svg"}).status, AnyOf(0, 1, 2, 3, 4, 5))
                << length << " bytes";
        }
}

}  // namespace
