#include "session/record_check.h"

#include <gtest/gtest.h>

#include "session_test_support.h"

namespace session::test {
namespace {

using generator::test::AddInput;

TEST(RecordCheckTest, TheExampleIsFitForGeneration) {
  FormState form;
  FillCoil(form);
  EXPECT_EQ(CheckRecord(form), std::vector<std::string>{});
}

TEST(RecordCheckTest, GeneralFields) {
  FormState form;
  form.edAuthor = "The \"best\" group";
  form.cmbCoord.SetListIndex(-1);
  EXPECT_EQ(CheckRecord(form),
            (std::vector<std::string>{
                "PROJECT: the project path is empty",
                "AUTHOR: the author \"The \"best\" group\" holds a double quote, which would end "
                "a string in the generated code",
                "COORDINATES: no coordinate system is selected"}));
}

TEST(RecordCheckTest, InputRowsAreNamedWithTheirProblems) {
  FormState form;
  FillCoil(form);
  AddInput(form, "Coil radius", "Geometric", "9x", "", "a", "1", "1");
  AddInput(form, "12", "Physical", "R", "m\xE2\x80\xA8m", "5", "1", "3");
  AddInput(form, "Turns", "Physical", "", "", "0", "10", "11");
  const std::vector<std::string> expected = {
      "Input 2 \"Coil radius\": the description is not unique",
      "Input 2 \"Coil radius\": unknown parameter type \"Geometric\"",
      "Input 2 \"Coil radius\": the variable \"9x\" does not begin with a letter",
      "Input 2 \"Coil radius\": MIN \"a\" is not a number",
      "Input 3 \"12\": the description is a number",
      "Input 3 \"12\": the variable \"R\" is not unique",
      "Input 3 \"12\": the unit \"m?m\" holds a line break or control character, which would "
      "break the generated code",
      "Input 3 \"12\": MIN 5 is greater than MAX 1",
      "Input 4 \"Turns\": the variable is empty",
      "Input 4 \"Turns\": DEFAULT 11 lies outside MIN 0 to MAX 10",
  };
  EXPECT_EQ(CheckRecord(form), expected);
}

TEST(RecordCheckTest, OutputRows) {
  FormState form;
  FillCoil(form);
  form.lvOutput.Add("Magnetic flux");
  const int row = form.lvOutput.Add("Say \"hi\"");
  form.lvOutput.SetSubItem(row, 1, "Chr(34) & \"quoted\"");  // code may quote
  form.lvInput.SetText(0, "<new>");
  EXPECT_EQ(CheckRecord(form),
            (std::vector<std::string>{
                "Input 1 \"<new>\": the description is not unique",
                "Output 2 \"Magnetic flux\": the description is not unique",
                "Output 2 \"Magnetic flux\": the result expression (VALUE) is empty",
                "Output 3 \"Say \"hi\"\": the description \"Say \"hi\"\" holds a double quote, "
                "which would end a string in the generated code"}));
}

}  // namespace
}  // namespace session::test
