#pragma once
// Generations of large records and models, for the failure tests, the fuzz targets and the
// benchmarks: the generator tests' in-memory doubles, and builders of large records and
// basic models.
#include <cmath>
#include <numbers>
#include <string>

#include "generator/generation_doubles.h"
#include "generator/record_values.h"
#include "generator/test_support.h"
#include "session/form_state.h"

namespace hardening {

using generator::test::FakeBasicModel;
using generator::test::FixedApplication;
using generator::test::HostRegistry;
using generator::test::QuietProgress;

// A ring of `edges` edges (every tenth an arc) around one labelled block, with labelled
// vertices every hundredth point and every fiftieth edge labelled.
inline FakeBasicModel RingModel(int edges) {
  FakeBasicModel model;
  const double step = 2 * std::numbers::pi / edges;
  const auto at = [&](int i) { return platform::Point2{std::cos(i * step), std::sin(i * step)}; };
  const int block = model.AddBlock("Core", 0);
  for (int i = 0; i < edges; ++i) {
    model.AddVertex(at(i), i % 100 == 0 ? "P" + std::to_string(i) : "");
    const int edge = i % 10 == 9 ? model.AddEdge(at(i), at(i + 1), {0, 0}, step)
                                 : model.AddEdge(at(i), at(i + 1));
    model.edges[edge].left = block;
    if (i % 50 == 0) model.edges[edge].label = "Boundary";
  }
  return model;
}

// A record of `inputs` inputs cycling through the four types and `outputs` custom
// outputs, its model converted into code, asynchronous, with a data file. theName is
// "Big"; the caller sets theLocation.
inline session::FormState LargeRecord(int inputs, int outputs) {
  using generator::InputType;
  session::FormState form;
  form.edLocation = "C:\\Models\\Big\\Big.vbp";
  form.theName = "Big";
  form.edAuthor = "Design group";
  form.chkAsync.SetValue(1);
  form.cmbType.SetListIndex(1);
  form.edModel = form.theModel = "C:\\Models\\Big\\big.mod";
  form.SelectModelCase(true);
  form.edData = form.theData = "C:\\Models\\Big\\big.dms";
  form.SelectDataCase(true);
  for (int i = 0; i < inputs; ++i) {
    const auto type = static_cast<InputType>(i % 4);
    const std::string n = std::to_string(i);
    generator::test::AddInput(form, "Parameter " + n, generator::TypeCaption(type), "V" + n,
                              "mm", "0", std::to_string(10 + i), "5");
  }
  for (int i = 0; i < outputs; ++i) {
    const std::string n = std::to_string(i);
    generator::test::AddOutput(form, "Result " + n, "K" + n, 3,
                               "Res.GetIntegral(zxFluxLinkage, Cnt).Abs * " + n);
  }
  return form;
}

}  // namespace hardening
