#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "generator/sections.h"
#include "golden_lines.h"
#include "test_support.h"

namespace generator::test {
namespace {

FormState AsyncForm(bool modelByCode, std::string model) {
  FormState form;
  form.chkAsync.value = 1;
  form.SelectModelCase(modelByCode);
  form.edModel = std::move(model);
  return form;
}

TEST(AsyncSections, LoadedModelIsCopiedThenLoadedByTheHost) {
  RecordingEmitter out;
  WriteAsyncSolveAndLoaded(AsyncForm(false, R"(C:\Models\Coil\coil.mod)"), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "async_load.txt"));
  EXPECT_EQ(out.progress, 0);
}

TEST(AsyncSections, WithoutBasicModelTheCopyAndItsHandlerAreLeftOut) {
  RecordingEmitter out;
  WriteAsyncSolveAndLoaded(AsyncForm(false, ""), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "async_load_no_model.txt"));
}

TEST(AsyncSections, ModelBuiltByCodeStartsWithMeshing) {
  // The basic model path plays no part when the model is built by code.
  RecordingEmitter out;
  WriteAsyncSolveAndLoaded(AsyncForm(true, R"(C:\Models\Coil\coil.mod)"), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "async_generate.txt"));
}

TEST(AsyncSections, ChainIsTheSameForBothForms) {
  for (const bool byCode : {false, true}) {
    RecordingEmitter out;
    WriteAsyncChain(AsyncForm(byCode, ""), out);
    EXPECT_TRUE(MatchesGolden(out.classLines, "async_chain.txt"));
    EXPECT_TRUE(out.moduleLines.empty());
    EXPECT_EQ(out.progress, 0);
  }
}

}  // namespace
}  // namespace generator::test
