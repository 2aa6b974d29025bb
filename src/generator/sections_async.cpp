// The asynchronous solving chain of the generated class: each procedure starts one long
// operation through the host and returns; the host calls the next one when it is done.
#include "generator/printer.h"
#include "generator/sections.h"
#include "generator/solving_blocks.h"

namespace generator {
namespace {

void PrintSolveHeading(Printer& vb) {
  vb.Print(R"(
''' Asynchronous solving functions implementation


''' Solving problem without getting result
Private Sub Asynchronous_Solve(ByVal Prms As ZXBV.Parameters)
    ''' Clear Cancel flag
    Cancel = False

    ''' Update input parameter values and flags
    SetInputValues Prms

    ''' Checking dependencies
)");
}

// From the announcement of meshing to the end of the procedure; meshing is skipped when
// the mesh is still valid.
void PrintStartMeshing(Printer& vb) {
  vb.Print(R"(
    ''' Create model shapes mesh
    Mess.SetState "Building mesh", Cancel
    If Cancel Then Exit Sub

    ''' Checking dependencies
    If Meshed Then
        Asynchronous_Meshed
        Exit Sub
    End If

    Mess.BuildMeshAsync
End Sub


)");
}

// The model is restored from the basic model's copy and loaded by the host.
void WriteLoadForm(const FormState& form, Printer& vb) {
  const bool copyBasicModel = !form.edModel.empty();
  PrintSolveHeading(vb);
  vb.Print(R"(
    If Built Then GoTo ModelLoading

    ''' Forget old ZX Result document
    Dim Res As Zentrix.Result
    Set Res = Prb.Result
    If Not Res Is Nothing Then Res.Close
    Set Res = Nothing

    ''' ZX Model object
    Dim Mdl As Zentrix.Model

)");
  PrintDeleteOldModel(vb);
  if (copyBasicModel) PrintModelFileCopy(vb, "0");
  vb.Print(R"(
    ''' Get new model object
ModelLoading:
    Mess.SetState "Opening new model", Cancel
    If Cancel Then Exit Sub
    Mess.LoadModelAsync
    Exit Sub

)");
  if (copyBasicModel) PrintCopyModelHandler(vb);
  vb.Print(R"(
End Sub


''' Asynchronous solving continue
Private Sub Asynchronous_Loaded()
    ''' Clear Cancel flag
    Cancel = False

    ''' Customize model
    If Not Built Then ModifyModel
    If Cancel Then Exit Sub

    ''' Check model existance
    If Prb.Model Is Nothing Then
        Mess.SetError bvModelNotLoaded, "", Cancel
        If Not Cancel Then
            Built = False: Meshed = False: Saved = False: Solved = False
            Mess.LoadModelAsync
        End If
        Exit Sub
    End If

    ''' Set Built flag to avoid unnecessary building
    Built = True

)");
  PrintStartMeshing(vb);
}

// The model is built synchronously by BuildModel; the chain starts with meshing.
void WriteGenerateForm(Printer& vb) {
  PrintSolveHeading(vb);
  vb.Print(R"(
    If Built Then GoTo Meshing

    ''' Build new geometrical model
    BuildModel

    ''' Set Built flag to avoid unnecessary building
    Built = True

Meshing:
)");
  PrintStartMeshing(vb);
  vb.Print(R"(
''' Asynchronous solving continue (unreachable code)
Private Sub Asynchronous_Loaded()
    ''' Clear Cancel flag
    Cancel = False

    ''' Set Built flag to avoid unnecessary building
    Built = True

)");
  PrintStartMeshing(vb);
}

}  // namespace

void WriteAsyncSolveAndLoaded(const FormState& form, Emitter& out) {
  Printer vb(out, Printer::Target::Class);
  if (form.optModelLink.value) {
    WriteLoadForm(form, vb);
  } else {
    WriteGenerateForm(vb);
  }
}

void WriteAsyncChain(Emitter& out) {
  Printer(out, Printer::Target::Class).Print(R"(
''' Asynchronous solving continue
Private Sub Asynchronous_Meshed()
    ''' Clear Cancel flag
    Cancel = False

    ''' Check meshing
    If Prb.Model.Shapes.Meshed <> zxAllMeshed Then
        Mess.SetError bvShapesNotMeshed, "", Cancel
        If Not Cancel Then
            Meshed = False: Saved = False: Solved = False
            Mess.BuildMeshAsync
        End If
        Exit Sub
    End If

    ''' Set Meshed flag to avoid unnecessary meshing
    Meshed = True

    ''' Save current model
    Mess.SetState "Saving model", Cancel
    If Cancel Then Exit Sub

    ''' Checking dependencies
    If Saved Then
        Asynchronous_Saved
        Exit Sub
    End If

    Mess.SaveModelAsync
End Sub


''' Asynchronous solving continue
Private Sub Asynchronous_Saved()
    ''' Clear Cancel flag
    Cancel = False

    ''' Check model saving
    If Not Prb.Model.Saved Then
        Mess.SetError bvModelNotSaved, "", Cancel
        If Not Cancel Then
            Saved = False: Solved = False
            Mess.SaveModelAsync
        End If
        Exit Sub
    End If

    ''' Set Saved flag to avoid unnecessary building
    Saved = True

    ''' Resolving problem
    Mess.SetState "Solving problem", Cancel
    If Cancel Then Exit Sub

    ''' Checking dependencies
    If Solved Then
        Asynchronous_Solved
        Exit Sub
    End If

    If Not Solved Then
        PreSolve
        Mess.SolveAsync
    End If

End Sub


''' Asynchronous solving continue
Private Sub Asynchronous_Solved()
    ''' Clear Cancel flag
    Cancel = False

    ''' Check problem solving
    If Not Prb.Solved Then
        Mess.SetError bvProblemNotSolved, "", Cancel
        If Not Cancel Then
            Solved = False
            Mess.SolveAsync
        End If
        Exit Sub
    End If

    ''' Set Solved flag to avoid unnecessary solving
    Solved = True

    Mess.SetState "Ready", Cancel
    ''' Notify Bravant about solving end
    Mess.SetDone
End Sub


''' Asynchronous solving continue
Private Sub Asynchronous_Calculated(ByVal List As Variant)
    ''' TODO: You can use this subroutine in optimizing integrals calculating

    ''' Notify Bravant about solving end
    Mess.SetDone
End Sub


)");
}

}  // namespace generator
