// The declaration of the input parameters to the host and the templates that apply
// them to the model and its labels.
#include <cstddef>
#include <vector>

#include "generator/input_locals.h"
#include "generator/printer.h"
#include "generator/record_values.h"
#include "generator/sections.h"

namespace generator {

void WriteParameters(const FormState& form, Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Print(R"(
''' Get all input parameters
Private Property Get ExploringObject_Parameters() As ZXBV.Parameters
    Dim thePrms As New ZXBV.Parameters

    ''' ----------------------------------------
    ''' Start input parameters definition
    ''' AddNew parameters: ParameterType, Description, Notation, Unit, Value
)");
  const std::vector<InputRow> rows = InputRows(form);
  const std::vector<std::string> constants = HostTypeConstants(form);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    cls.Line(R"(    thePrms.AddNew $type$, "$description$", "$variable$", "$unit$", $default$)",
             {{"type", constants[i]},
              {"description", rows[i].description},
              {"variable", rows[i].variable},
              {"unit", rows[i].unit},
              {"default", rows[i].defaultValue}});
  }
  cls.Print(R"(
    ''' End input parameters definition
    ''' ----------------------------------------

    Set ExploringObject_Parameters = thePrms
End Property

''' Set all input parameters
Private Property Set ExploringObject_Parameters(ByVal Prms As ZXBV.Parameters)
    Set theParameters = Prms
End Property


)");
}

void WriteModifyModel(const FormState& form, Emitter& out) {
  Printer mod(out, Printer::Target::Module);
  mod.Print(R"(
''' Modify basic geometrical model
Public Sub ModifyModel()
    ''' Catch unknown server errors
    On Error GoTo ServerError

    Mess.SetState "Modifying model", Cancel
    If Cancel Then Exit Sub

    ''' Zentrix Model Object
    Dim Mdl As Zentrix.Model
    Set Mdl = Prb.Model

    ''' Local variables for all geometrical input parameters
)");
  for (const InputRow& row : InputRowsOfType(form, InputType::Geometrical)) {
    PrintInputLocal(mod, row);
  }
  mod.Print(R"(

    ''' ----------------------------------------
    ''' TODO: Modify Zentrix model (Mdl) here

    ''' ----------------------------------------
    Mess.SetState "Ready", Cancel
    Exit Sub

ServerError:
    Mess.SetError bvCritical Or bvServerError, "Model modifying caused Zentrix error:" & vbCRLF & Err.Description, Cancel
End Sub


)");
}

void WriteInitLabels(const FormState& form, Emitter& out) {
  Printer cls(out, Printer::Target::Class);
  cls.Print(R"(
''' Init problem basic data
Public Sub InitLabels()
    On Error GoTo ErrorInitLabels
    ''' Copy basic data file onto work data file
    FileCopy ExploringObject_Path & "\" & theName & "_Files\" & theName & "_Basic.$ext$", ExploringObject_Path & "\" & theName & "_Files\" & theName & ".$ext$"
    Exit Sub

ErrorInitLabels:
    Mess.SetError bvCritical Or bvErrorCopyData, "Error: Cann't copy basic data file '" & ExploringObject_Path & "\" & theName & "_Files\" & theName & ".$ext$'.", Cancel
End Sub


)",
            {{"ext", DataExtension(form)}});
}

void WriteSetLabel(const FormState& form, Emitter& out) {
  Printer mod(out, Printer::Target::Module);
  mod.Print(R"(
''' Set label data (has call for each 'Physical' input parameter)
Public Sub SetLabel(ByVal ParamName As String)
    ''' Catch unknown server errors
    On Error GoTo ServerError

    Mess.SetState "Editing " & ParamName & " data.", Cancel
    If Cancel Then Exit Sub

    ''' Labels collection
    Dim Lbs As Zentrix.Labels
    ''' Editing label
    Dim Lab As Zentrix.Label
    ''' Editing label content
    Dim LabCnt As Zentrix.LabelBlock$suffix$

    Select Case ParamName
)",
            {{"suffix", LabelSuffix(form)}});
  for (const InputRow& row : InputRowsOfType(form, InputType::Physical)) {
    mod.Print(R"(
    Case "$description$"
        ''' ----------------------------------------
        Dim $variable$ As Double
        $variable$ = theParameters("$description$").Value

        ''' TODO: Edit Zentrix label corresponding '$description$' parameter
        '''     Probable code for Block label:
        '''     - uncomment code below
        '''     - for Vertex and Edges use 'zxVertex' or 'zxEdge' constants
        '''     - replace 'Air' with your Zentrix label name
        '''
        ' Set Lbs = Prb.DataDoc.Labels(zxBlock)  'Select labels collection
        ' Set Lab = Lbs("Air")  'Get label
        ' Set LabCnt = Lab.Content  'Get label content

        ''' TODO: Edit here the LabCnt properties

        ''' TODO: Uncomment next code line
        ' Lab.Content = LabCnt  'Update label content
        ''' ----------------------------------------

)",
              {{"variable", row.variable}, {"description", row.description}});
  }
  mod.Print(R"(
    End Select

    ''' Save modified label data
    Prb.DataDoc.Save

    Mess.SetState "Ready", Cancel
    Exit Sub

ServerError:
    Mess.SetError bvCritical Or bvServerError, "Label editing caused Zentrix error." & vbCRLF & Err.Description, Cancel
End Sub


)");
}

}  // namespace generator
