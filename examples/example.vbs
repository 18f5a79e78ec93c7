' A host in a few lines: shows a chart file, or records one. Usage: cscript example.vbs [chart file]
Option Explicit
Dim component
On Error Resume Next
Set component = CreateObject("ChartProject.ChartClass")
If Err.Number <> 0 Then
  WScript.Echo "ChartProject is not registered: " & Err.Description
  WScript.Quit 1
End If
If WScript.Arguments.Count > 0 Then
  component.CreateChart WScript.Arguments(0)
Else
  component.AcquireVar
End If
If Err.Number <> 0 Then WScript.Echo "Error " & Err.Number & ": " & Err.Description
Set component = Nothing
