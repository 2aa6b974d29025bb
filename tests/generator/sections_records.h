#pragma once
// Records and an emitter shared by the section writer tests.
#include <cstddef>
#include <utility>
#include <vector>

#include "session/form_state.h"
#include "test_support.h"

namespace generator::test {

// Notes how many class and module lines were written when each progress step came.
class StepWatchingEmitter : public RecordingEmitter {
 public:
  std::vector<std::pair<std::size_t, std::size_t>> steps;  // (class lines, module lines)

  void StepProgress(int step) override {
    RecordingEmitter::StepProgress(step);
    steps.emplace_back(classLines.size(), moduleLines.size());
  }
};

// "Motor": Magnetostatics, plane-parallel, Cartesian, millimetres, asynchronous, both
// basic files linked, a data file, files folder without suffix.
inline session::FormState MotorRecord() {
  session::FormState form;
  form.theName = "Motor";
  form.FilesFolder = "\\Motor_Files";
  form.edAuthor = "Jo Smith";
  form.edData = "C:\\data\\motor.dms";
  form.chkAsync.value = 1;
  form.cmbType.listIndex = 1;
  form.cmbClass.listIndex = 0;
  form.cmbCoord.listIndex = 0;
  form.cmbUnit.listIndex = 1;
  form.SelectModelCase(false);
  form.SelectDataCase(false);
  return form;
}

// "Coil": Transient Heat Transfer, axisymmetric, polar, microns, synchronous, model and
// data built by code, no data file, the third files folder.
inline session::FormState CoilRecord() {
  session::FormState form;
  form.theName = "Coil";
  form.FilesFolder = "\\Coil_Files 3";
  form.chkAsync.value = 0;
  form.cmbType.listIndex = 3;
  form.cmbClass.listIndex = 1;
  form.cmbCoord.listIndex = 1;
  form.cmbUnit.listIndex = 7;
  form.SelectModelCase(true);
  form.SelectDataCase(true);
  return form;
}

// One input of every type, an unknown caption first (no host constant yet) and one in
// the middle (keeps the constant before it), and a default that is no number.
inline void AddEveryInputType(session::FormState& form) {
  AddInput(form, "Weird", "Other", "w", "", "1", "2", "3");
  AddInput(form, "Gap", "Geometrical", "g", "mm", "0", "10", "2.5");
  AddInput(form, "Current", "Physical", "I", "A", "-5", "100", "10");
  AddInput(form, "Turns", "physical", "n", "", "1", "500", "20");
  AddInput(form, "Radius", "Postprocess", "r", "mm", "0", "50", "1,5e");
  AddInput(form, "Frequency", "Problem", "f", "Hz", "1", "1000", "50");
}

}  // namespace generator::test
