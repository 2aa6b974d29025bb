// The limits of the input parameters, their validation, and the descriptive properties
// of the exploring object.
#include <string>

#include "generator/printer.h"
#include "generator/record_values.h"
#include "generator/sections.h"
#include "vbrt/numbers.h"

namespace generator {
namespace {

// Below this a geometrical minimum counts as not positive; the generated object then
// asks for a positive value instead of the user's minimum.
constexpr double kPositiveThreshold = 1E-44;

}  // namespace

void WritePrmMin(const FormState& form, Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Print(R"(
''' Getting parameter minima
Private Function PrmMin(ByRef Prms As ZXBV.Parameters, ParamName As String, ByRef Min As Double, ByRef ErrMsg As String) As Boolean
    Select Case ParamName
    ''' ----------------------------------------
    ''' TODO : Correct next code for setting minimum valid parameter values
    '''        For each parameter you must set:
    '''    Min = <minimum valid value>
    '''    ErrMsg = <Error string if parameter validation failed>
    '''    PrmMin = <True - if minimum depends on another input parameter value>
)");
  const std::string geometrical = TypeCaption(InputType::Geometrical);
  for (const InputRow& row : InputRows(form)) {
    cls.Line(R"(    Case "$description$")", {{"description", row.description}});
    // Only a geometrical row's minimum is converted: a non-numeric one ends generation.
    if (row.type == geometrical && vbrt::CDbl(row.min) < kPositiveThreshold) {
      cls.Print(R"(
        Min = 0
        ErrMsg = "$description$ parameter should be positive"
)",
                {{"description", row.description}});
    } else {
      cls.Print(R"(
        Min = $min$
        ErrMsg = "$description$ parameter minimum validation error"
)",
                {{"min", row.min}, {"description", row.description}});
    }
    cls.Line("        PrmMin = False");
  }
  cls.Print(R"(
    ''' ----------------------------------------
    End Select
End Function


)");
}

void WritePrmMax(const FormState& form, Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Print(R"(
''' Getting parameter maxima
Private Function PrmMax(ByRef Prms As ZXBV.Parameters, ParamName As String, ByRef Max As Double, ByRef ErrMsg As String) As Boolean
    Select Case ParamName
    ''' ----------------------------------------
    ''' TODO : Correct next code for setting maximum valid parameter values
    '''        For each parameter you must set:
    '''    Max = <maximum valid value>
    '''    ErrMsg = <Error string if parameter validation failed>
    '''    PrmMax = <True - if maximum depends on another input parameter value>
)");
  for (const InputRow& row : InputRows(form)) {
    cls.Print(R"(
    Case "$description$"
        Max = $max$
        ErrMsg = "$description$ parameter maximum validation error"
        PrmMax = False
)",
              {{"description", row.description}, {"max", row.max}});
  }
  cls.Print(R"(
    ''' ----------------------------------------
    End Select
End Function



)");
}

void WriteValidate(Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Print(R"(
''' TODO:
''' Usually you need not to modify any of the next subroutines


''' Input parameters validation
Private Function ExploringObject_Validate(ByVal Prms As ZXBV.Parameters, ByRef ErrMsg As String) As Boolean
    Dim Prm As ZXBV.FixParameter
    Dim MinMax As Double

    For Each Prm In Prms
        PrmMin Prms, Prm.Description, MinMax, ErrMsg
        If Prm.Value < MinMax Then
            ExploringObject_Validate = False
            Exit Function
        End If
        PrmMax Prms, Prm.Description, MinMax, ErrMsg
        If Prm.Value > MinMax Then
            ExploringObject_Validate = False
            Exit Function
        End If
    Next Prm
    ExploringObject_Validate = True
End Function


)");
}

void WriteGetMinMax(Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Print(R"(
''' Getting parameter value boundaries
Private Function ExploringObject_GetMinMax(ByVal Prms As ZXBV.Parameters, ByVal ParamName As String) As ZXBV.VarParameter
    Dim VarPrm As New ZXBV.VarParameter
    Dim MinMax As Double
    Dim ErrMsg As String

    VarPrm.Description = ParamName
    PrmMin Prms, ParamName, MinMax, ErrMsg
    VarPrm.Min = MinMax
    PrmMax Prms, ParamName, MinMax, ErrMsg
    VarPrm.Max = MinMax
    Set ExploringObject_GetMinMax = VarPrm
    Set VarPrm = Nothing
End Function


)");
}

void WriteDescriptiveProperties(const FormState& form, Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Print(R"(
''' This file author
Private Property Get ExploringObject_Author() As String
    ExploringObject_Author = "$author$"
End Property


''' ExploringObject name
Private Property Get ExploringObject_Name() As String
    ExploringObject_Name = theName
End Property


''' This implementation version
Private Property Get ExploringObject_Version() As String
    ExploringObject_Version = "1.0"
End Property


''' Sketch picture
Private Property Get ExploringObject_Sketch() As String
)",
            {{"author", form.edAuthor}});
  // The generation copies the sketch into the files folder under the object's name.
  if (form.edSketch.empty()) {
    cls.Line(R"(    ExploringObject_Sketch = "")");
  } else {
    cls.Line(
        R"(    ExploringObject_Sketch = ExploringObject_Path & "\" & theName & "_Files\" & theName & ".$extension$")",
        {{"extension", SketchExtension(form)}});
  }
  cls.Print(R"(
End Property


''' Project (running DLL) folder
Private Property Get ExploringObject_Path() As String
    ExploringObject_Path = App.Path
End Property


''' Get Zentrix Application visibility
Private Property Get ExploringObject_Visible() As Boolean
    ''' Catch unknown server errors
    On Error GoTo ServerError

    ExploringObject_Visible = ZX.MainWindow.Visible
    Exit Property

ServerError:
    Mess.SetError bvServerError, "Getting Zentrix visibility property caused an error." & vbCRLF & Err.Description, Cancel
End Property


''' Set Zentrix Application visibility
Private Property Let ExploringObject_Visible(ByVal NewState As Boolean)
    ''' Catch unknown server errors
    On Error GoTo ServerError

    ZX.MainWindow.Visible = NewState
    Exit Property

ServerError:
    Mess.SetError bvServerError, "Setting Zentrix visibility property caused an error." & vbCRLF & Err.Description, Cancel
End Property


)");
}

}  // namespace generator
