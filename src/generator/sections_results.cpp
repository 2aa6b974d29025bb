// The templates run before solving and for the contour, the declaration of the output
// parameters, the template that computes them and the host's entry that gets one result.
#include <string>

#include "generator/input_locals.h"
#include "generator/printer.h"
#include "generator/record_values.h"
#include "generator/sections.h"

namespace generator {

void WritePreSolve(const FormState& form, Emitter& out) {
  Printer mod(out, Printer::Target::Module);
  mod.Print(R"(
''' Define actions to be executed before each problem solving
Public Sub PreSolve()
    ''' Catch unknown server errors
    On Error GoTo ServerError

    Mess.SetState "Zentrix problem initialization", Cancel
    If Cancel Then Exit Sub

    ''' Local variables for all input parameters
)");
  for (const InputRow& row : InputRowsOfType(form, InputType::Problem)) {
    PrintInputLocal(mod, row);
  }
  mod.Print(R"(

    ''' ----------------------------------------
    ''' TODO: Make Zentrix problem initialization here

    Prb.Save
    ''' ----------------------------------------
    Mess.SetState "Ready", Cancel
    Exit Sub

ServerError:
    Mess.SetError bvCritical Or bvServerError, "Problem initializing caused Zentrix error." & vbCRLF & Err.Description, Cancel
End Sub


)");
}

void WriteBuildContour(const FormState& form, Emitter& out) {
  Printer mod(out, Printer::Target::Module);
  mod.Print(R"(
''' Build contour for exploring integral output parameters
Public Function BuildContour() As Zentrix.Contour
    ''' Catch unknown server errors
    On Error GoTo ServerError

    Mess.SetState "Building contour", Cancel
    If Cancel Then Exit Function

    ''' Zentrix result window object
    Dim Wnd As Zentrix.FieldWindow
    ''' Contour object
    Dim Cnt As Zentrix.Contour

    ''' Get FieldWindow object
    Set Wnd = Prb.Result.Windows.Item(1)
    ''' Get new Contour object
    Set Cnt = Wnd.Contour

    ''' Local variables for all geometrical input parameters
)");
  for (const InputRow& row : InputRowsOfType(form, InputType::Geometrical)) {
    PrintInputLocal(mod, row);
  }
  mod.Print(R"(

    ''' ----------------------------------------
    ''' TODO: Build Contour here
    Cnt.AddLineTo ZX.PointXY(0, 1), 0
    Cnt.AddLineTo ZX.PointXY(2, 1), 180
    Cnt.AddLineTo ZX.PointXY(0, 1), 180
    ''' ----------------------------------------

    Set BuildContour = Cnt
    Exit Function

ServerError:
    Mess.SetError bvCritical Or bvServerError, "Contour building caused Zentrix error." & vbCRLF & Err.Description, Cancel
End Function


)");
  out.StepProgress(1);
}

void WriteResultNames(const FormState& form, Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Print(R"(
''' Return output parameter names
Private Property Get ExploringObject_ResultNames() As ZXBV.Parameters
    ''' Clear Cancel flag
    Cancel = False

    ''' Parameter names collection
    Dim Prms As New ZXBV.Parameters

    ''' ----------------------------------------
    ''' Start output parameter names definition
)");
  for (const OutputRow& row : OutputRows(form)) {
    cls.Line(R"(    Prms.AddResult "$description$")", {{"description", row.description}});
  }
  cls.Print(R"(
    ''' End output parameter names definition
    ''' ----------------------------------------

    ''' Set function return value
    Set ExploringObject_ResultNames = Prms
End Property


)");
  out.StepProgress(1);
}

void WriteCalculations(const FormState& form, Emitter& out) {
  Printer mod(out, Printer::Target::Module);
  mod.Print(R"(
''' Calculate point output parameters
Public Sub Calculations(ByRef Pt As ZXBV.ResultPoint)
    ''' Zentrix result document object
    Dim Res As Zentrix.Result

    ''' Get Result document
    Set Res = Prb.Result

    ''' Local variables for all input postprocessor parameters
)");
  for (const InputRow& row : InputRowsOfType(form, InputType::Postprocess)) {
    PrintInputLocal(mod, row);
    mod.Line("");
  }
  mod.Print(R"(

    ''' ----------------------------------------
    ''' TODO:
    '''   - if you have point output parameters:
    '''       Replace 'ZX.PointXY(0, 0)' by a Point you need accordingly input parameters
    '''   - if you have no point output parameters:
    '''       Remove these code lines
    Dim Locals$suffix$ As Zentrix.FieldPoint$suffix$
    Set Locals$suffix$ = Res.GetLocalValues(ZX.PointXY(0, 0))
    ''' ----------------------------------------

    ''' ----------------------------------------
    ''' TODO:
    '''   - if you have no integral output parameters:
    '''       Remove these code lines
    Dim Cnt As Zentrix.Contour
    Set Cnt = BuildContour
    ''' ----------------------------------------

    Mess.SetState "Getting result values", Cancel
    If Cancel Then Exit Sub

    ''' ----------------------------------------
    ''' Start getting output parameter values
)",
            {{"suffix", FieldPointSuffix(form)}});
  int index = 0;
  for (const OutputRow& row : OutputRows(form)) {
    const std::string position = std::to_string(++index);
    mod.Print(R"(
    '$description$
    Pt.Value($index$) = $value$
)",
              {{"description", row.description}, {"index", position}, {"value", row.value}});
  }
  mod.Print(R"(
    ''' End getting output parameter values
    ''' ----------------------------------------

    Mess.SetState "Ready", Cancel
End Sub


)");
}

void WriteGetResult(Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Print(R"(
''' Get output parameter values
Private Sub ExploringObject_GetResult(ByVal Prms As ZXBV.Parameters, ByRef Pt As ZXBV.ResultPoint)
    ''' Clear Cancel flag
    Cancel = False

    ''' Catch unknown server errors
    On Error GoTo ServerError

    Mess.SetState "Getting result", Cancel
    If Cancel Then Exit Sub

    ''' Update input parameter values and flags
    SetInputValues Prms

    ''' Build ZX model
ModelBuilding:
    If Not Built Then BuildModel
    If Cancel Then Exit Sub
    ''' Check model existance
    If Prb.Model Is Nothing Then
        Mess.SetError bvModelNotLoaded, "", Cancel
        ''' If Cancel = False then try to build model again
        If Not Cancel Then
            Built = False
            GoTo ModelBuilding
        End If
        Exit Sub
    End If
    If Cancel Then Exit Sub

    ''' Mesh model
ShapesMeshing:
    If Not Meshed Then MeshModel
    If Cancel Then Exit Sub
    ''' Check model shapes meshed
    If Prb.Model.Shapes.Meshed <> zxAllMeshed Then
        Mess.SetError bvShapesNotMeshed, "", Cancel
        ''' If Cancel = False then try to mesh shapes again
        If Not Cancel Then
            Meshed = False
            GoTo ShapesMeshing
        End If
        Exit Sub
    End If
    If Cancel Then Exit Sub

    ''' Save model
ModelSaving:
    If Not Saved Then SaveModel
    If Cancel Then Exit Sub
    ''' Check model shapes meshed
    If Not Prb.Model.Saved Then
        Mess.SetError bvShapesNotMeshed, "", Cancel
        ''' If Cancel = False then try to save model again
        If Not Cancel Then
            Saved = False
            GoTo ModelSaving
        End If
        Exit Sub
    End If
    If Cancel Then Exit Sub

    ''' Solve problem
ProblemSolving:
    If Not Solved Then
        PreSolve
        SolveProblem
    End If
    If Cancel Then Exit Sub
    ''' Check problem solved
    If Not Prb.Solved Then
        Mess.SetError bvProblemNotSolved, "", Cancel
        ''' If Cancel = False then try to solve problem again
        If Not Cancel Then
            Solved = False
            GoTo ProblemSolving
        End If
        Exit Sub
    End If
    If Cancel Then Exit Sub


    ''' Create ZX Postprocessor View to getting result
    Mess.SetState "Creating ZX Postprocessor View", Cancel
    If Cancel Then Exit Sub

    Prb.AnalyzeResults

    ''' Calculate output parameters
    Calculations Pt
    Exit Sub

ServerError:
    Mess.SetError bvCritical Or bvServerError, "Getting result caused Zentrix error." & vbCRLF & Err.Description, Cancel
End Sub


)");
}

}  // namespace generator
