#pragma once
// The wizard form's controls that hold one session record, named as the form names them.
// The session file, the generator and the pages all read and write the record here.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/list_view.h"

namespace session {

struct OptionButton {
  bool value = false;
  bool enabled = true;
};

struct CheckBox {
  int16_t value = 0;
  // 0 unchecked, 1 checked, 2 grayed; anything else throws vbrt::VbError(kInvalidPropertyValue).
  void SetValue(int16_t newValue);
};

struct ComboBox {
  std::vector<std::string> items;
  int16_t listIndex = -1;  // -1: nothing selected
  // Throws vbrt::VbError(kInvalidPropertyValue) outside -1..items.size() - 1.
  void SetListIndex(int16_t index);
  // The selected item's text, "" when nothing is selected.
  std::string Text() const;
};

// The text boxes of pages 1, 2 and 4. Setting a path field (Location, Model, Data,
// Sketch) runs its change handler.
enum class TextField { File, Location, Author, Model, Data, Sketch };

class FormState;

// The page checks that run when the program sets one of the text boxes above.
class FieldHandlers {
 public:
  virtual ~FieldHandlers() = default;
  virtual void TextSet(FormState& form, TextField field) = 0;
};

// The list-view columns of the two parameter lists.
inline constexpr int kInputColumns = 7;   // Description, Type, Variable, Unit, Min, Max, Default
inline constexpr int kOutputColumns = 2;  // Description, Value
inline constexpr const char* kNewInputText = "<new>";

// The name of every generated project. Its class is named after the wizard's project
// (theName), so the object it registers is "Sondel.<theName>".
inline constexpr std::string_view kGeneratedProjectName = "Sondel";

// Sub-items of an lvInput row; the row's own text is the Description.
inline constexpr int kInputType = 1;
inline constexpr int kInputVariable = 2;
inline constexpr int kInputUnit = 3;
inline constexpr int kInputMin = 4;
inline constexpr int kInputMax = 5;
inline constexpr int kInputDefault = 6;
// Sub-item of an lvOutput row: the result expression.
inline constexpr int kOutputValue = 1;

class FormState {
 public:
  // The record as a freshly started wizard holds it: the four choice lists filled from
  // the string table (each tries its base number + 0 to + 9 and skips misses) with item 0
  // selected, the "from file" options selected and all four options disabled, lvInput
  // holding just the "<new>" row, every text empty, Finish disabled.
  FormState();

  // Text boxes.
  std::string edFile;      // SessionFile
  std::string edLocation;  // ProjectPath
  std::string edAuthor;    // Author
  std::string edModel;     // Model
  std::string edData;      // Data
  std::string edSketch;    // Sketch

  CheckBox chkAsync;  // Asynchronous

  ComboBox cmbType;   // ProblemType
  ComboBox cmbClass;  // ProblemClass
  ComboBox cmbCoord;  // Coordinates
  ComboBox cmbUnit;   // Units

  OptionButton optModelCode;  // ModelCase "Generate"
  OptionButton optModelLink;  // ModelCase "Load"
  OptionButton optDataCode;   // DataCase "Generate"
  OptionButton optDataLink;   // DataCase "Load"

  ListView lvInput{kInputColumns};  // Inputs, then the "<new>" row
  ListView lvOutput{kOutputColumns};  // Outputs
  ListView lvStandard{kOutputColumns};  // standard outputs offered for cmbType

  // Public fields of the form.
  std::string theLocation;  // Location; "" while no valid project path is given
  std::string theName;      // Project
  std::string theWork;
  std::string theModel;
  std::string theData;
  std::string theSketch;
  std::string FilesFolder;  // "\<Project>_Files" with an optional " <n>"; set by generation

  bool btnFinishEnabled = false;

  // The text box's text.
  std::string& Text(TextField field) { return this->*TextBox(field); }
  const std::string& Text(TextField field) const { return this->*TextBox(field); }
  // Sets the text box and runs its change handler, as if the user had typed the text.
  void SetText(TextField field, std::string text);
  // Selects optModelCode (code = true) or optModelLink; the same for the data pair.
  void SelectModelCase(bool code);
  void SelectDataCase(bool code);
  // "Generate" when the code option is selected, otherwise "Load".
  std::string ModelCase() const;
  std::string DataCase() const;

  // The handlers that SetText runs; none until set. Not owned.
  void SetFieldHandlers(FieldHandlers* handlers) { handlers_ = handlers; }

  // Number of input parameters: the rows of lvInput before the "<new>" row.
  int InputCount() const;

 private:
  static std::string FormState::*TextBox(TextField field);
  FieldHandlers* handlers_ = nullptr;
};

}  // namespace session
