#pragma once
// The names of the wizard's windows and controls, as the form names them. The model refers
// to them (captions, tab order, focus, access keys) and the views give their widgets these
// names, so that each finds the other's.

namespace wizard::controls {

// Windows.
inline constexpr const char* dlgInput = "dlgInput";
inline constexpr const char* dlgOutput = "dlgOutput";
inline constexpr const char* dlgPreview = "dlgPreview";
inline constexpr const char* frmWizard = "frmWizard";

// Buttons.
inline constexpr const char* btnBack = "btnBack";
inline constexpr const char* btnCancel = "btnCancel";
inline constexpr const char* btnClose = "btnClose";
inline constexpr const char* btnCreateSketch = "btnCreateSketch";
inline constexpr const char* btnData = "btnData";
inline constexpr const char* btnFile = "btnFile";
inline constexpr const char* btnFinish = "btnFinish";
inline constexpr const char* btnHelp = "btnHelp";
inline constexpr const char* btnInputAdd = "btnInputAdd";
inline constexpr const char* btnInputEdit = "btnInputEdit";
inline constexpr const char* btnInputRemove = "btnInputRemove";
inline constexpr const char* btnLocation = "btnLocation";
inline constexpr const char* btnModel = "btnModel";
inline constexpr const char* btnNext = "btnNext";
inline constexpr const char* btnOK = "btnOK";
inline constexpr const char* btnOutputCustom = "btnOutputCustom";
inline constexpr const char* btnOutputEdit = "btnOutputEdit";
inline constexpr const char* btnOutputRemove = "btnOutputRemove";
inline constexpr const char* btnOutputStandard = "btnOutputStandard";
inline constexpr const char* btnPreview = "btnPreview";
inline constexpr const char* btnSketch = "btnSketch";

// Text fields.
inline constexpr const char* edAuthor = "edAuthor";
inline constexpr const char* edData = "edData";
inline constexpr const char* edFile = "edFile";
inline constexpr const char* edLocation = "edLocation";
inline constexpr const char* edModel = "edModel";
inline constexpr const char* edSketch = "edSketch";

// Choice lists.
inline constexpr const char* cmbClass = "cmbClass";
inline constexpr const char* cmbCoord = "cmbCoord";
inline constexpr const char* cmbType = "cmbType";
inline constexpr const char* cmbUnit = "cmbUnit";

// Option buttons and check boxes.
inline constexpr const char* chkAsync = "chkAsync";
inline constexpr const char* optDataCode = "optDataCode";
inline constexpr const char* optDataLink = "optDataLink";
inline constexpr const char* optGeom = "optGeom";
inline constexpr const char* optModelCode = "optModelCode";
inline constexpr const char* optModelLink = "optModelLink";
inline constexpr const char* optPhys = "optPhys";
inline constexpr const char* optPost = "optPost";

// Lists.
inline constexpr const char* lvInput = "lvInput";
inline constexpr const char* lvOutput = "lvOutput";
inline constexpr const char* lvStandard = "lvStandard";

// Frames.
inline constexpr const char* grpType = "grpType";

// Labels.
inline constexpr const char* lblData_Caption = "lblData_Caption";
inline constexpr const char* lblData_Caption2 = "lblData_Caption2";
inline constexpr const char* lblData_DataFile = "lblData_DataFile";
inline constexpr const char* lblData_ModelFile = "lblData_ModelFile";
inline constexpr const char* lblData_Sketch = "lblData_Sketch";
inline constexpr const char* lblDefault = "lblDefault";
inline constexpr const char* lblFin_Caption = "lblFin_Caption";
inline constexpr const char* lblFind = "lblFind";
inline constexpr const char* lblGeneral_Author = "lblGeneral_Author";
inline constexpr const char* lblGeneral_Caption = "lblGeneral_Caption";
inline constexpr const char* lblGeneral_Caption2 = "lblGeneral_Caption2";
inline constexpr const char* lblGeneral_Project = "lblGeneral_Project";
inline constexpr const char* lblInput_Caption = "lblInput_Caption";
inline constexpr const char* lblInput_Caption2 = "lblInput_Caption2";
inline constexpr const char* lblInput_List = "lblInput_List";
inline constexpr const char* lblIntro_Caption = "lblIntro_Caption";
inline constexpr const char* lblMax = "lblMax";
inline constexpr const char* lblMin = "lblMin";
inline constexpr const char* lblName = "lblName";
inline constexpr const char* lblOutput_Caption = "lblOutput_Caption";
inline constexpr const char* lblOutput_Caption2 = "lblOutput_Caption2";
inline constexpr const char* lblOutput_List1 = "lblOutput_List1";
inline constexpr const char* lblOutput_List2 = "lblOutput_List2";
inline constexpr const char* lblProblem_Caption = "lblProblem_Caption";
inline constexpr const char* lblProblem_Caption2 = "lblProblem_Caption2";
inline constexpr const char* lblProblem_Class = "lblProblem_Class";
inline constexpr const char* lblProblem_Coord = "lblProblem_Coord";
inline constexpr const char* lblProblem_Type = "lblProblem_Type";
inline constexpr const char* lblProblem_Units = "lblProblem_Units";
inline constexpr const char* lblSaving_Caption = "lblSaving_Caption";
inline constexpr const char* lblSaving_Caption2 = "lblSaving_Caption2";
inline constexpr const char* lblSaving_File = "lblSaving_File";
inline constexpr const char* lblUnit = "lblUnit";
inline constexpr const char* lblValue = "lblValue";
inline constexpr const char* lblVariable = "lblVariable";
// The introduction's five texts.
inline constexpr const char* lblIntro[] = {"lblIntro(0)", "lblIntro(1)", "lblIntro(2)",
                                           "lblIntro(3)", "lblIntro(4)"};

}  // namespace wizard::controls
