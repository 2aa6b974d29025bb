// The synchronous solving chain of the generated class: input values, BuildModel for a
// model loaded from file, meshing, saving, solving and termination.
#include "generator/printer.h"
#include "generator/sections.h"
#include "generator/solving_blocks.h"

namespace generator {

void PrintDeleteOldModel(Printer& vb) {
  vb.Print(R"(
    ''' Delete old model
    Mess.SetState "Deleting old model", Cancel
    If Cancel Then Exit Sub
    Set Mdl = Prb.Model
    If Not Mdl Is Nothing Then
        Mdl.Shapes.RemoveMesh
        Mdl.Close False
    End If
    Set Mdl = Nothing

)");
}

void PrintModelFileCopy(Printer& vb, std::string_view trapAfterCopy) {
  vb.Print(R"(
    ''' Copy basic model
    Mess.SetState "Copying model file", Cancel
    If Cancel Then Exit Sub
FileCopying:
    On Error GoTo ErrorCopyModel
    FileCopy ExploringObject_Path & "\" & theName & "_Files\" & theName & "_Basic.mod", ExploringObject_Path & "\" & theName & "_Files\" & theName & ".mod"
    On Error GoTo $trap$

)", {{"trap", trapAfterCopy}});
}

void PrintCopyModelHandler(Printer& vb) {
  vb.Print(R"(
ErrorCopyModel:
    Mess.SetError bvCritical Or bvErrorCopyData, "Error: Cann't copy basic model file '" & ExploringObject_Path & "\" & theName & "_Files\" & theName & "_Basic.mod'.", Cancel
    ''' If Cancel = False then try copy basic model file again
    If Not Cancel Then Resume FileCopying
    Exit Sub
)");
}

void PrintBuildModelEnd(Printer& vb) {
  vb.Print(R"(
    ''' Customize model
    ModifyModel
    If Cancel Then Exit Sub

    ''' Set Built flag to avoid unnecessary building
    Built = Not Prb.Model Is Nothing
    ''' Set other flags
    If Built Then
        Meshed = (Prb.Model.Shapes.Meshed = zxAllMeshed)
        Saved = Prb.Model.Saved
    Else
        Meshed = False
        Saved = False
    End If

    Mess.SetState "Ready", Cancel
    Exit Sub

)");
}

void PrintBuildModelServerError(Printer& vb) {
  vb.Print(R"(
ServerError:
    Mess.SetError bvCritical Or bvServerError, "Model building caused Zentrix error." & vbCRLF & Err.Description, Cancel
End Sub


)");
}

void WriteSetInputValues(Emitter& out) {
  Printer(out, Printer::Target::Class).Print(R"(
''' Set input parameter values (do not edit)
Private Sub SetInputValues(ByVal Prms As ZXBV.Parameters)
    Dim Prm As ZXBV.FixParameter

    For Each Prm In Prms
        If Prm.Value <> theParameters(Prm.Description).Value Then
            theParameters(Prm.Description).Value = Prm.Value
            Select Case Prm.ParameterType
            Case bvGeometrical:
                Built = False: Meshed = False: Saved = False: Solved = False
            Case bvPhysical:
                Solved = False
                SetLabel Prm.Description
            Case bvProblem:
                Solved = False
            End Select
        End If
    Next Prm
End Sub


)");
}

void WriteBuildModelLoad(const FormState& form, Emitter& out) {
  // The working model is restored from the untouched copy before every build; without a
  // basic model there is nothing to copy and the problem loads whatever model it has.
  const bool copyBasicModel = !form.edModel.empty();
  Printer vb(out, Printer::Target::Class);
  vb.Print(R"(
''' Build Zentrix problem model
Private Sub BuildModel()
    ''' Catch unknown server errors
    On Error GoTo ServerError

    ''' Current ZX Model object
    Dim Mdl As Zentrix.Model
    ''' Current ZX Result object
    Dim Res As Zentrix.Result

    ''' Delete old ZX Result document
    Set Res = Prb.Result
    If Not Res Is Nothing Then Res.Close
    Set Res = Nothing

)");
  PrintDeleteOldModel(vb);
  if (copyBasicModel) PrintModelFileCopy(vb, "ServerError");
  vb.Print(R"(
    ''' Get new model object
    Mess.SetState "Loading new model", Cancel
    If Cancel Then Exit Sub
    Prb.LoadModel

)");
  PrintBuildModelEnd(vb);
  if (copyBasicModel) {
    PrintCopyModelHandler(vb);
    vb.Line("");
  }
  PrintBuildModelServerError(vb);
}

void WriteMeshModel(Emitter& out) {
  Printer(out, Printer::Target::Class).Print(R"(
''' Mesh all model shapes
Private Sub MeshModel()
    ''' Catch unknown server errors
    On Error GoTo ServerError

    ''' Current ZX Model object
    Dim Mdl As Zentrix.Model

    ''' Loading geometrical model
    Mess.SetState "Loading model", Cancel
    If Cancel Then Exit Sub
    Set Mdl = Prb.Model
    If Mdl Is Nothing Then
        Prb.LoadModel
        Set Mdl = Prb.Model
    End If

    ''' Build new model mesh
    Mess.SetState "Building mesh", Cancel
    If Cancel Then Exit Sub
    If Mdl.Shapes.Meshed <> zxAllMeshed Then Mdl.Shapes.BuildMesh

    ''' Set Meshed flag to avoid unnecessary meshing
    Meshed = (Mdl.Shapes.Meshed = zxAllMeshed)

    Mess.SetState "Ready", Cancel
    Exit Sub

ServerError:
    Mess.SetError bvCritical Or bvServerError, "Model shapes meshing caused Zentrix error." & vbCRLF & Err.Description, Cancel
End Sub


)");
}

void WriteSaveModel(Emitter& out) {
  Printer(out, Printer::Target::Class).Print(R"(
''' Save geometrical model
Private Sub SaveModel()
    ''' Catch unknown server errors
    On Error GoTo ServerError

    ' Save current meshed model
    Mess.SetState "Saving model", Cancel
    If Cancel Then Exit Sub

    ''' Current ZX Model object
    Dim Mdl As Zentrix.Model

    ''' Get ZX model object
    Set Mdl = Prb.Model
    If Mdl Is Nothing Then Exit Sub

    If Not Mdl.Saved Then Mdl.Save

    ''' Set Saved flag to avoid unnecessary saving
    Saved = Mdl.Saved

    Mess.SetState "Ready", Cancel
    Exit Sub

ServerError:
    Mess.SetError bvCritical Or bvServerError, "Model saving caused Zentrix error." & vbCRLF & Err.Description, Cancel
End Sub


)");
}

void WriteSolveProblem(Emitter& out) {
  Printer(out, Printer::Target::Class).Print(R"(
''' Solving current ZX problem
Private Sub SolveProblem()
    ''' Catch unknown server errors
    On Error GoTo ServerError

    ''' Save problem - necessary to solve
    Prb.Save

    Mess.SetState "Solving problem", Cancel
    If Cancel Then Exit Sub

    ''' Unload model before solving to free memory
    ''' TODO: You can delete next 4 lines
    Dim Mdl As Zentrix.Model
    Set Mdl = Prb.Model
    If Not Mdl Is Nothing Then Mdl.Close True
    Set Mdl = Nothing

    ''' Solving by Zentrix
    Prb.SolveProblem

    ''' Set Solved flag to avoid unnecessary solving
    Solved = True

    Mess.SetState "Ready", Cancel
    Exit Sub

ServerError:
    Mess.SetError bvCritical Or bvServerError, "Problem solving caused Zentrix error." & vbCRLF & Err.Description, Cancel
End Sub


)");
}

void WriteClassTerminate(Emitter& out) {
  Printer(out, Printer::Target::Class).Print(R"(
''' Make all deinitialization (do not edit)
Private Sub Class_Terminate()
    ''' Catch all errors
    On Error Resume Next

    ''' Current ZX Model object
    Dim Mdl As Zentrix.Model

    If Not Mess Is Nothing Then
        Mess.SetState "Deinitializing ExploringObject", Cancel
    End If

    ''' Delete global references
    If Not Prb Is Nothing Then
        ''' Close model
        Set Mdl = Prb.Model
        If Not Mdl Is Nothing Then Mdl.Close False
        Set Mdl = Nothing

        ''' Close problem
        Prb.Close False
        Set Prb = Nothing
    End If

    ''' Close Zentrix application
    Set ZX = Nothing

    If Not Mess Is Nothing Then
        Mess.SetState "Ready", Cancel
    End If
End Sub



)");
}

}  // namespace generator
