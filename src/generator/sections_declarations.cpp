// The class header with its flags, the shared declarations of the "Custom" module, and
// the procedures that initialise a loaded exploring object.
#include "generator/printer.h"
#include "generator/record_values.h"
#include "generator/sections.h"

namespace generator {

void WriteDeclarations(const FormState& form, Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Line("Implements ZXBV.ExploringObject");
  if (IsAsynchronous(form)) cls.Line("Implements ZXBV.Asynchronous");
  cls.Print(R"(


''' Current problem solved flag
Private Solved As Boolean
''' Current model shapes meshed flag
Private Meshed As Boolean
''' Current model saved flag
Private Saved As Boolean
''' Current model built flag
Private Built As Boolean

''' Terminating flag
Private Cancel As Boolean



)");
  out.StepProgress(1);

  Printer mod(out, Printer::Target::Module);
  mod.Print(R"(
''' Object for sending messages to Bravant
Public Mess As ZXBV.Messenger

''' Global Zentrix variables
Public ZX As Zentrix.Application
Public Prb As Zentrix.Problem

''' Variable contains all input parameters
Public theParameters As ZXBV.Parameters

''' Variable contains project, problem and model name
Public theName As String

''' Terminating flag
Private Cancel As Boolean


)");
}

void WriteInitialisation(const FormState& form, Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  const bool linked = IsLinked(form);

  // The work-folder line leaves its string open on purpose: the development environment
  // closes it when the line is inserted.
  cls.Print(R"(
''' Initialize global variables
Private Sub Class_Initialize()
    theName = "$project$"
End Sub


''' Make all initialization
Private Sub ExploringObject_Init(ByRef M As ZXBV.Messenger)
    ''' Clear Cancel flag
    Cancel = False

    ''' Clear old references
    Set Prb = Nothing
    Set ZX = Nothing

    ''' Init global flags
    Solved = False: Saved = False: Meshed = False: Built = False

    ''' Create input parameters storing object
    Set theParameters = ExploringObject_Parameters

    ''' Store Messenger object in global variable
    Set Mess = M
    Mess.SetState "Initializing ExploringObject", Cancel
    If Cancel Then Exit Sub

    ''' Check work folder existance
    On Error GoTo NoWorkFolder
    ChDir ExploringObject_Path & "$filesFolder$
    On Error GoTo 0

)",
            {{"project", form.theName}, {"filesFolder", form.FilesFolder}});
  if (linked) {
    cls.Print(R"(
ResumeWorkFolder:

)");
  }
  if (!form.edData.empty()) {
    cls.Print(R"(
    ''' Init problem basic data
    InitLabels
    If Cancel Then Exit Sub

)");
  }

  cls.Print(R"(
    ''' Launch Zentrix
    On Error GoTo NoZentrix
    Set ZX = New Zentrix.Application
    If ZX Is Nothing Then GoTo NoZentrix

    ''' Catch unknown server errors
    On Error GoTo ServerError

    ''' Check for '$project$' problem already opened
CheckProblemExist:
    Set Prb = ZX.Problems(theName)
    If Not Prb Is Nothing Then
        Set Prb = Nothing
        Mess.SetError bvProblemAlreadyOpened, "Problem '" & theName & "' already opened by Zentrix. Click Yes to close that problem. Otherwise click No after you will close that problem manually.", Cancel
        ''' if Cancel = False then check problem existance again
        If Not Cancel Then GoTo CheckProblemExist
        Exit Sub
    End If

    ''' Check for '$project$' model already opened
    Dim Mdl As Zentrix.Model
CheckModelExist:
    Set Mdl = ZX.Models(theName)
    If Not Mdl Is Nothing Then
        Set Mdl = Nothing
        Mess.SetError bvModelAlreadyOpened, "Model '" & theName & "' already opened by Zentrix. Click Yes to close that model. Otherwise click No after you will close that model manually.", Cancel
        ''' if Cancel = False then check model existance again
        If Not Cancel Then GoTo CheckModelExist
        Exit Sub
    End If

    ''' Create new Zentrix problem
    Set Prb = ZX.Problems.Add

    ''' Set main problem parameters
    Prb.ProblemType = $type$
    Prb.Class = $class$
    Prb.Coordinates = $coordinates$
    Prb.LengthUnits = $units$

    Prb.ReferencedFile(zxModelFile) = ExploringObject_Path & "\" & theName & "_Files\" & theName & ".mod"
    Prb.ReferencedFile(zxDataFile) = ExploringObject_Path & "\" & theName & "_Files\" & theName & ".$extension$"

    ''' Saving problem
    Prb.SaveAs ExploringObject_Path & "\" & theName & "_Files\" & theName & ".pbm"

    Mess.SetState "Ready", Cancel
    Exit Sub

)",
            {{"project", form.theName},
             {"type", ProblemTypeId(form)},
             {"class", ProblemClassId(form)},
             {"coordinates", CoordinatesId(form)},
             {"units", LengthUnitsId(form)},
             {"extension", DataExtension(form)}});

  // A linked object expects its work folder; otherwise the object creates it and resumes.
  if (linked) {
    cls.Print(R"(
NoWorkFolder:
    Mess.SetError bvCritical Or bvNoWorkFolder, "Error: Folder '" & ExploringObject_Path & "\" & theName & "_Files' not found.", Cancel
)");
  } else {
    cls.Print(R"(
CreateWorkFolder:
    On Error Goto ErrorCreateFolder
    MkDir ExploringObject_Path & "\" & theName & "_Files"
    GoTo ResumeWorkFolder

NoWorkFolder:
    Resume CreateWorkFolder

ErrorCreateFolder:
    Mess.SetError bvCritical Or bvNoWorkFolder, "Error: Cann't create folder '" & ExploringObject_Path & "\" & theName & "_Files'.", Cancel
)");
  }

  cls.Print(R"(
    Exit Sub

NoZentrix:
    Mess.SetError bvCritical Or bvErrorZXLaunch, "Error: Cann't launch Zentrix", Cancel
    Exit Sub

ServerError:
    Mess.SetError bvCritical Or bvServerError, Err.Description, Cancel
    Exit Sub
End Sub


)");
}

}  // namespace generator
