Attribute VB_Name = "Custom"
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


''' Modify basic geometrical model
Public Sub ModifyModel()
