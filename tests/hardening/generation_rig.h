#pragma once
// What a generation needs besides the record, in memory: a registry that holds the host's
// type library, a progress window that checks its bar like the real one, an analysis
// application that opens one fixed basic model, and builders of large records and models.
// Shared by the failure tests, the fuzz targets and the benchmarks.
#include <cmath>
#include <map>
#include <memory>
#include <numbers>
#include <string>
#include <string_view>

#include "generator/fake_basic_model.h"
#include "generator/progress.h"
#include "generator/record_values.h"
#include "generator/test_support.h"
#include "platform/analysis_application.h"
#include "platform/registry.h"
#include "session/form_state.h"
#include "vbrt/error.h"

namespace hardening {

using generator::test::FakeBasicModel;

// HKEY_CLASSES_ROOT with the host's messenger class and its type library registered.
class HostRegistry : public platform::Registry {
 public:
  platform::RegistryValue QueryRegValue(platform::RegistryRoot, std::string_view key,
                                        std::string_view value) const override {
    if (!value.empty()) return std::monostate{};
    if (key == "ZXBV.Messenger\\Clsid") return std::string(kClassId);
    if (key == std::string("CLSID\\") + kClassId + "\\TypeLib") {
      return std::string("{5A1F0C11-3C2B-4E7D-9A51-00AD0EBF0002}");
    }
    return std::monostate{};
  }

 private:
  static constexpr const char* kClassId = "{5A1F0C10-3C2B-4E7D-9A51-00AD0EBF0001}";
};

// The progress window without a window: the bar refuses values outside its range.
class QuietProgress : public generator::ProgressSink {
 public:
  void Load(std::string_view) override {}
  void Show() override {}
  void Unload() override {}
  void Repaint() override {}
  void SetState(std::string_view) override {}
  void SetBarVisible(bool) override {}
  void SetMin(float min) override { min_ = min; }
  void SetMax(float max) override { max_ = max; }
  float Value() const override { return value_; }
  void SetValue(float value) override {
    if (value < min_ || value > max_) vbrt::Raise(vbrt::kInvalidPropertyValue);
    value_ = value;
  }

 private:
  float min_ = 0;
  float max_ = 100;
  float value_ = 0;
};

// Opens a copy of `model` whatever the path.
class FixedApplication : public platform::AnalysisApplication {
 public:
  explicit FixedApplication(FakeBasicModel model) : model_(std::move(model)) {}
  std::string ProductName() const override { return "Zentrix 5.2"; }
  std::unique_ptr<platform::BasicModel> OpenModel(std::string_view) override {
    return std::make_unique<FakeBasicModel>(model_);
  }

 private:
  FakeBasicModel model_;
};

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
