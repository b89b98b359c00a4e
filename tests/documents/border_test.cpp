// The certificate's border: what is shipped is what the tool draws.

#include "makeborder/border.h"

#include <stdexcept>

#include <gmock/gmock.h>

#include "makeborder/path.h"
#include "platform/files.h"

namespace {

using namespace makeborder;

std::string withoutBetween(std::string text, const std::string& mark) {
    const std::size_t from = text.find("<!-- border: " + mark + " -->\n") + mark.size() + 18;
    const std::size_t to = text.find("<!-- border: end -->", from);
    return text.erase(from, to - from);
}

TEST(Border, StandsInTheShippedStylesAsItIsDrawn) {
    const std::string shipped =
        platform::readFile(KDL_SOURCE_DIR "/dist/tmp/certificateWork/styles.xml").value();
    const std::string bare = withoutBetween(withoutBetween(shipped, "styles"), "drawings");
    EXPECT_LT(bare.size(), shipped.size() / 4);
    EXPECT_THAT(bare, testing::Not(testing::HasSubstr("<draw:path")));
    EXPECT_TRUE(withBorder(shipped) == shipped) << "kdl-makeborder dist/tmp/certificateWork/styles.xml";
}

TEST(Border, AFileWithoutItsMarksIsLeftAlone) {
    const std::string marked = "<!-- border: styles -->\n<!-- border: end -->\n"
                               "<!-- border: drawings -->\n  <!-- border: end -->\n";
    EXPECT_THAT(withBorder("a" + marked + "z"),
                testing::AllOf(testing::StartsWith("a<!-- border: styles -->\n    <style:style"),
                               testing::EndsWith("/>\n  <!-- border: end -->\nz")));
    EXPECT_THROW(withBorder(""), std::runtime_error);
    EXPECT_THROW(withBorder(marked.substr(0, 50)), std::runtime_error);
    EXPECT_THROW(withBorder(marked.substr(45)), std::runtime_error);
}

TEST(Border, ShapesAreClosedWhereTheyBegin) {
    Path path;
    path.rectangle({1, 2}, 30, 40.25);
    EXPECT_EQ(path.data(), "M1 2h30v40.3h-30z");
    path = {};
    path.circle({100, 50}, 10);
    EXPECT_EQ(path.data(), "M90 50a10 10 0 1 1 20 0a10 10 0 1 1 -20 0z");
    path = {};
    path.wave({0, 5}, 3, 10, 4, true);
    EXPECT_EQ(path.data(), "M0 5q-4 5 0 10t0 10t0 10");
    path = {};
    path.rosette({0, 0}, 10, 4);
    EXPECT_EQ(path.data(),
              "M10 0a4 4 0 0 1 -2.9 7.1a4 4 0 0 1 -7.1 2.9a4 4 0 0 1 -7.1 -2.9a4 4 0 0 1 -2.9 -7.1"
              "a4 4 0 0 1 2.9 -7.1a4 4 0 0 1 7.1 -2.9a4 4 0 0 1 7.1 2.9a4 4 0 0 1 2.9 7.1z");
}

} // namespace
