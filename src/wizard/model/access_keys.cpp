#include "wizard/model/access_keys.h"

#include <cctype>

#include "resources/string_ids.h"
#include "wizard/model/control_names.h"

namespace wizard {

using namespace controls;   // the control names
using namespace resources;  // the string numbers

const std::vector<AccessKey>& AccessKeys() {
  static const std::vector<AccessKey> keys = {
      // Back, Next and Finish mark their own keys; the finish page leaves P to its
      // Preview button.
      {"bar", btnHelp, kHelpButton, 'H'},
      {"bar", btnCancel, kCancelButton, 'C'},
      {"bar", btnBack, kBackButton, 'B'},
      {"bar", btnNext, kNextButton, 'N'},
      {"bar", btnFinish, kFinishButton, 'F'},
      {"page1", lblSaving_File, kSavingFileLabel, 'E'},
      {"page2", lblGeneral_Project, kProjectLocationLabel, 'P'},
      {"page2", lblGeneral_Author, kAuthorLabel, 'A'},
      {"page2", chkAsync, kAsyncCheck, 'I'},
      {"page3", lblProblem_Type, kProblemTypeLabel, 'T'},
      {"page3", lblProblem_Class, kProblemClassLabel, 'A'},
      {"page3", lblProblem_Coord, kCoordinatesLabel, 'O'},
      {"page3", lblProblem_Units, kLengthUnitsLabel, 'L'},
      {"page4", lblData_ModelFile, kModelFileLabel, 'M'},
      {"page4", optModelCode, kModelCodeOption, 'V'},
      {"page4", optModelLink, kModelLinkOption, 'L'},
      {"page4", lblData_DataFile, kDataFileLabel, 'D'},
      {"page4", optDataCode, kDataCodeOption, 'O'},
      {"page4", optDataLink, kDataLinkOption, 'A'},
      {"page4", lblData_Sketch, kSketchFileLabel, 'S'},
      {"page4", btnCreateSketch, kCreateSketchButton, 'K'},
      {"page5", lblInput_List, kInputListLabel, 'I'},
      {"page5", btnInputAdd, kInputAddButton, 'A'},
      {"page5", btnInputEdit, kInputEditButton, 'E'},
      {"page5", btnInputRemove, kInputRemoveButton, 'R'},
      {"page6", lblOutput_List1, kOutputListLabel, 'O'},
      {"page6", lblOutput_List2, kStandardListLabel, 'S'},
      {"page6", btnOutputCustom, kOutputCustomButton, 'A'},
      {"page6", btnOutputEdit, kOutputEditButton, 'E'},
      {"page6", btnOutputRemove, kOutputRemoveButton, 'R'},
      {"page7", btnPreview, kPreviewButton, 'P'},
      {dlgInput, lblName, kNameLabel, 'N'},
      {dlgInput, lblVariable, kVariableLabel, 'V'},
      {dlgInput, lblUnit, kUnitLabel, 'U'},
      {dlgInput, lblMin, kMinLabel, 'M'},
      {dlgInput, lblMax, kMaxLabel, 'A'},
      {dlgInput, lblDefault, kDefaultValueLabel, 'D'},
      {dlgInput, grpType, kTypeGroupCaption, 'T'},
      {dlgInput, optGeom, kTypeGeometrical, 'G'},
      {dlgInput, optPhys, kTypePhysical, 'P'},
      {dlgInput, optPost, kTypePostprocess, 'S'},
      {dlgInput, btnOK, kOkButton, 'O'},
      {dlgInput, btnCancel, kCancelButton, 'C'},
      {dlgInput, btnHelp, kHelpButton, 'H'},
      {dlgOutput, lblName, kNameLabel, 'N'},
      {dlgOutput, lblValue, kValueLabel, 'V'},
      {dlgOutput, btnOK, kOkButton, 'O'},
      {dlgOutput, btnCancel, kCancelButton, 'C'},
      {dlgOutput, btnHelp, kHelpButton, 'H'},
      {dlgPreview, lblFind, kPreviewFind, 'F'},
      {dlgPreview, btnClose, kPreviewClose, 'C'},
      {dlgPreview, btnHelp, kHelpButton, 'H'},
  };
  return keys;
}

std::optional<char> AccessKeyOf(std::string_view control) {
  for (const AccessKey& key : AccessKeys()) {
    if (key.control == control) return key.key;
  }
  return std::nullopt;
}

std::string WithAccessKey(std::string_view caption, std::optional<char> key) {
  std::string marked(caption);
  if (!key) return marked;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&') {
      if (i + 1 < caption.size() && caption[i + 1] == '&') {
        ++i;  // "&&" shows one "&"
        continue;
      }
      return marked;  // the caption marks its own key
    }
  }
  const std::string either{*key, static_cast<char>(std::tolower(static_cast<unsigned char>(*key)))};
  const size_t at = marked.find_first_of(either);
  if (at != std::string::npos) marked.insert(at, "&");
  return marked;
}

}  // namespace wizard
