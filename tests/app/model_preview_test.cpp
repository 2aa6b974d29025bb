#include "app/model_preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "../generator/converter_model.h"

namespace app {
namespace {

using testing::HasSubstr;

// The command's drawing is the window's picture written as SVG: arcs as arcs, either way
// round; labels escaped. The listing is compared whole in session_commands_test.cpp.
TEST(ModelPreviewTest, SvgOfTheConverter) {
  generator::test::FakeBasicModel model = generator::test::ConverterModel();
  model.blocks[1].label = "Coil <A&B>";
  std::ostringstream svg;
  WriteModelSvg(svg, model);
  EXPECT_THAT(svg.str(), HasSubstr("width=\"880\" height=\"880\""));
  EXPECT_THAT(svg.str(), HasSubstr("d=\"M820.00,439.98 A380.00,380.00 0 0 0 136.00,211.98\""));
  EXPECT_THAT(svg.str(), HasSubstr("d=\"M592.00,572.98 A95.00,95.00 0 0 1 630.00,648.98\""));
  EXPECT_THAT(svg.str(), HasSubstr(">block 2: Coil &lt;A&amp;B&gt;</text>"));
}

}  // namespace
}  // namespace app
