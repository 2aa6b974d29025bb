#include "session/record_check.h"

#include <gtest/gtest.h>

#include "session_test_support.h"
#include "vbrt/codepage.h"

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

// The input rules themselves are the input page's; here, that each row's refusals are
// reported in its words, a repeat against the rows above it.
TEST(RecordCheckTest, InputRowsAreNamedWithTheirProblems) {
  FormState form;
  FillCoil(form);
  AddInput(form, "Coil radius", "Geometric", "x", "", "a", "1", "1");
  AddInput(form, "Current", "Physical", "R", "m\xE2\x80\xA8m", "5", "1", "3");
  AddInput(form, "Turns", "Physical", "n", "", "0", "10", "11");
  const std::vector<std::string> expected = {
      "Input 2 \"Coil radius\": Parameter description must be unique.",
      "Input 2 \"Coil radius\": unknown parameter type \"Geometric\"",
      "Input 2 \"Coil radius\": MIN \"a\" is not a number",
      "Input 3 \"Current\" VARIABLE \"R\": Parameter variable name must be unique.",
      "Input 3 \"Current\": the unit \"m?m\" holds a line break or control character, which "
      "would break the generated code",
      "Input 3 \"Current\": MIN 5 is greater than MAX 1",
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
                "Input 1 \"<new>\": Parameter description must be unique.",
                "Output 2 \"Magnetic flux\": the description is not unique",
                "Output 2 \"Magnetic flux\": the result expression (VALUE) is empty",
                "Output 3 \"Say \"hi\"\": the description \"Say \"hi\"\" holds a double quote, "
                "which would end a string in the generated code"}));
}

// A session written by hand in UTF-8 is read in the code page: what that does to each line.
TEST(RecordCheckTest, FileTextTheCodePageReadsOtherwise) {
  const std::string kept = "these characters would be written as \"?\" in the session file and "
                           "the generated code.";
  const struct {
    const char* codePage;
    std::string line;
    std::string problem;  // "" when the line reads as written
  } cases[] = {
      {"WINDOWS-1252", "AUTHOR=Design group", ""},
      {"WINDOWS-1252", "AUTHOR=Jos\xE9", ""},  // the code page's own é
      {"WINDOWS-1252", "AUTHOR=José Müller 张伟",
       "line 1 AUTHOR: \"José Müller 张伟\" is UTF-8 text, which WINDOWS-1252 reads as "
       "\"JosÃ© MÃ¼ller å¼\u00A0ä¼Ÿ\". The code page WINDOWS-1252 cannot hold \"张伟\": " + kept},
      {"WINDOWS-1252", "UNIT=µm",
       "line 1 UNIT: \"µm\" is UTF-8 text, which WINDOWS-1252 reads as \"Âµm\"; save the file "
       "in WINDOWS-1252"},
      {"WINDOWS-1252", "DESCRIPTION=a\x81?b",
       "line 1 DESCRIPTION: bytes that are no characters of WINDOWS-1252 are read as \"?\": "
       "\"a??b\""},
      {"UTF-8", "AUTHOR=José 张伟", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    vbrt::SetAnsiCodePage(c.codePage);
    const std::vector<std::string> problems = CheckFileText(c.line + "\r\n[END]\r\n");
    vbrt::SetAnsiCodePage("WINDOWS-1252");
    EXPECT_EQ(problems, c.problem.empty() ? std::vector<std::string>{}
                                          : std::vector<std::string>{c.problem});
  }
}

}  // namespace
}  // namespace session::test
