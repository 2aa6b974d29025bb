#include "app/session_views.h"

#include <sstream>

#include <gtest/gtest.h>

namespace app {
namespace {

session::FormState Record() {
  session::FormState form;
  form.edLocation = "C:\\Models\\Coil\\Coil.vbp";
  form.edAuthor = "J\xC3\xBCrgen";
  form.chkAsync.SetValue(1);
  form.cmbType.SetListIndex(1);
  form.cmbUnit.SetListIndex(-1);
  const int row = form.lvInput.Add("Radius", "", std::nullopt, 0);
  form.lvInput.SetSubItem(row, 1, "Geometrical");
  form.lvInput.SetSubItem(row, 2, "R");
  form.lvInput.SetSubItem(row, 6, "5");
  form.lvOutput.Add("Flux", "F", int16_t{2});
  form.lvOutput.SetSubItem(0, 1, "Res.Flux");
  form.lvOutput.Add("Custom\x01");
  return form;
}

TEST(SessionViewsTest, ListingShowsChoicesBesideTheirIndicesAndAlignsTables) {
  std::ostringstream out;
  WriteSessionListing(out, Record());
  EXPECT_EQ(out.str(),
            "General\n"
            "  APPLICATION   Zentrix Bravant ExploringObject Wizard\n"
            "  PROJECT       C:\\Models\\Coil\\Coil.vbp\n"
            "  AUTHOR        J\xC3\xBCrgen\n"
            "  ASYNCHRONOUS  1 (checked)\n"
            "  TYPE          1 (Magnetostatics)\n"
            "  CLASS         0 (Plane Parallel)\n"
            "  COORDINATES   0 (Cartesian)\n"
            "  UNITS         -1 (none selected)\n"
            "  MODEL\n"
            "  MODELCASE     Load\n"
            "  DATA\n"
            "  DATACASE      Load\n"
            "  SKETCH\n"
            "\n"
            "Input parameters: 1\n"
            "  #  DESCRIPTION  TYPE         VARIABLE  UNIT  MIN  MAX  DEFAULT\n"
            "  1  Radius       Geometrical  R                         5\n"
            "\n"
            "Output parameters: 2\n"
            "  #  DESCRIPTION  KEY  ICON  VALUE\n"
            "  1  Flux         F    2     Res.Flux\n"
            "  2  Custom?\n");
}

TEST(SessionViewsTest, JsonUsesTheFileKeysWithNumbersAndNulls) {
  std::ostringstream out;
  WriteSessionJson(out, Record(), false, "Error loading data from generation file");
  const std::string json = out.str();
  EXPECT_NE(json.find("\"result\": false,\n  \"message\": \"Error loading data from generation "
                      "file\",\n  \"APPLICATION\": \"Zentrix Bravant ExploringObject Wizard\",\n"
                      "  \"PROJECT\": \"C:\\\\Models\\\\Coil\\\\Coil.vbp\",\n  \"AUTHOR\": "
                      "\"J\\u00fcrgen\",\n  \"ASYNCHRONOUS\": 1,\n  \"TYPE\": 1,\n  \"CLASS\": "
                      "0,\n  \"COORDINATES\": 0,\n  \"UNITS\": -1,\n"),
            std::string::npos)
      << json;
  EXPECT_NE(json.find("\"DESCRIPTION\": \"Radius\",\n      \"TYPE\": \"Geometrical\",\n      "
                      "\"VARIABLE\": \"R\",\n      \"UNIT\": \"\",\n      \"MIN\": \"\",\n      "
                      "\"MAX\": \"\",\n      \"DEFAULT\": \"5\"\n"),
            std::string::npos)
      << json;
  EXPECT_NE(json.find("\"DESCRIPTION\": \"Custom\\u0001\",\n      \"KEY\": \"\",\n      "
                      "\"ICON\": null,\n      \"VALUE\": \"\"\n"),
            std::string::npos)
      << json;

  std::ostringstream unchanged;
  WriteSessionJson(unchanged, session::FormState(), true, std::nullopt);
  EXPECT_NE(unchanged.str().find("\"result\": true,\n  \"message\": null,\n"), std::string::npos);
  EXPECT_NE(unchanged.str().find("\"INPUT\": [],\n  \"OUTPUT\": []\n}\n"), std::string::npos);
}

}  // namespace
}  // namespace app
