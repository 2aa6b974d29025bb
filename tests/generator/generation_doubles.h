#pragma once
// What a whole generation needs besides the record and the files, in memory: a registry
// holding the host's type library, a progress window without a window, and an analysis
// application that opens one fixed basic model.
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fake_basic_model.h"
#include "generator/progress.h"
#include "platform/analysis_application.h"
#include "platform/registry.h"
#include "vbrt/error.h"

namespace generator::test {

// Default values by key path; at first the messenger class and the type library of the
// demo host, as examples/registry/demo-host.reg registers them.
class HostRegistry : public platform::Registry {
 public:
  std::map<std::string, std::string, std::less<>> defaults = {
      {"ZXBV.Messenger\\Clsid", "{6D1F2A40-93C5-4E0B-9A7E-2B5C81D04E11}"},
      {"CLSID\\{6D1F2A40-93C5-4E0B-9A7E-2B5C81D04E11}\\TypeLib",
       "{6D1F2A41-93C5-4E0B-9A7E-2B5C81D04E11}"},
      {"TypeLib\\{6D1F2A41-93C5-4E0B-9A7E-2B5C81D04E11}\\2.0", "ZXBV 2.0 Type Library (demo)"},
      {"TypeLib\\{6D1F2A41-93C5-4E0B-9A7E-2B5C81D04E11}\\2.0\\0\\win32",
       "C:\\Program Files\\Bravant\\ZXBV.tlb"}};

  platform::RegistryValue QueryRegValue(platform::RegistryRoot, std::string_view key,
                                        std::string_view value) const override {
    const auto it = defaults.find(key);
    if (!value.empty() || it == defaults.end()) return std::monostate{};
    return it->second;
  }
};

// Notes what it is told; its bar refuses values outside its range as the real one does.
class QuietProgress : public ProgressSink {
 public:
  bool loaded = false;
  bool shown = false;
  float min = 0;
  float max = 100;
  float value = 0;
  std::vector<std::string> states;

  void Load(std::string_view) override { loaded = true; }
  void Show() override { shown = true; }
  void Unload() override { loaded = shown = false; }
  void Repaint() override {}
  void SetState(std::string_view text) override { states.emplace_back(text); }
  void SetBarVisible(bool) override {}
  void SetMin(float newMin) override { min = newMin; }
  void SetMax(float newMax) override { max = newMax; }
  float Value() const override { return value; }
  void SetValue(float newValue) override {
    if (newValue < min || newValue > max) vbrt::Raise(vbrt::kInvalidPropertyValue);
    value = newValue;
  }
};

// Opens a copy of `model` whatever the path, or fails with `failure` when that is set.
class FixedApplication : public platform::AnalysisApplication {
 public:
  explicit FixedApplication(FakeBasicModel fixed = {}) : model(std::move(fixed)) {}

  FakeBasicModel model;
  std::string failure;
  std::string opened;  // the path last asked for

  std::string ProductName() const override { return "Zentrix 5.2"; }
  std::unique_ptr<platform::BasicModel> OpenModel(std::string_view path) override {
    opened = path;
    if (!failure.empty()) throw vbrt::VbError(1001, failure);
    return std::make_unique<FakeBasicModel>(model);
  }
};

}  // namespace generator::test
