#pragma once
// Shared helpers of the generator tests: an emitter that records, and record builders.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "generator/emitter.h"
#include "session/form_state.h"

namespace generator::test {

class RecordingEmitter : public Emitter {
 public:
  std::vector<std::string> classLines;
  std::vector<std::string> moduleLines;
  int progress = 0;
  std::vector<std::size_t> steps;  // lines written (class and module) when each step came

  void AddClassLine(std::string_view text) override { classLines.emplace_back(text); }
  void AddModuleLine(std::string_view text) override { moduleLines.emplace_back(text); }
  void StepProgress(int step) override {
    progress += step;
    steps.push_back(classLines.size() + moduleLines.size());
  }
};

// Adds an input row before the "<new>" row.
inline void AddInput(session::FormState& form, std::string description, std::string type,
                     std::string variable, std::string unit = "", std::string min = "0",
                     std::string max = "10", std::string defaultValue = "1") {
  const int row = form.lvInput.Add(std::move(description), "", std::nullopt,
                                   form.lvInput.Count() - 1);
  form.lvInput.SetSubItem(row, 1, std::move(type));
  form.lvInput.SetSubItem(row, 2, std::move(variable));
  form.lvInput.SetSubItem(row, 3, std::move(unit));
  form.lvInput.SetSubItem(row, 4, std::move(min));
  form.lvInput.SetSubItem(row, 5, std::move(max));
  form.lvInput.SetSubItem(row, 6, std::move(defaultValue));
}

inline void AddOutput(session::FormState& form, std::string description, std::string key,
                      std::optional<int16_t> icon, std::string value) {
  const int row = form.lvOutput.Add(std::move(description), std::move(key), icon);
  form.lvOutput.SetSubItem(row, 1, std::move(value));
}

}  // namespace generator::test
