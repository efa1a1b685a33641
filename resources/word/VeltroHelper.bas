Attribute VB_Name = "VeltroHelper"
Option Explicit

' Nothing where Veltro is not installed for this Word.
Public Function NewButtons() As Object
    On Error Resume Next
    Set NewButtons = CreateObject("Veltro.Buttons")
End Function
