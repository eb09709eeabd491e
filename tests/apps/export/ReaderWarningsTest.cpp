#include "export/ReaderWarnings.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;
using tool::FoldWarnings;

TEST(ReaderWarnings, WeightyOnesComeFirst)
{
    EXPECT_THAT(
        FoldWarnings({"node \"mesh\": the property \"skin\" is no single value and is left out",
                      "node \"eye\": its camera is left out", "animation \"walk\": is left out",
                      "material \"red\": its picture is left out", "mesh \"plate\": 3 triangles left out"}),
        ElementsAre("mesh \"plate\": 3 triangles left out", "material \"red\": its picture is left out",
                    "animation \"walk\": is left out", "node \"eye\": its camera is left out",
                    "node \"mesh\": the property \"skin\" is no single value and is left out"));
}

TEST(ReaderWarnings, EqualOnesAreOneLine)
{
    EXPECT_THAT(FoldWarnings({"node \"a\": its light is left out", "mesh \"a\": is empty",
                              "node \"b: c\": its light is left out", "mesh \"b\": is empty", "odd", "odd"}),
                ElementsAre("2 meshes: is empty", "2 nodes: its light is left out", "odd (2 times)"));
}

}  // namespace
