' Shows a chart file as a host does. Arguments: the file, and perhaps a language to be set first.
Option Explicit
Dim component, shell
On Error Resume Next
If WScript.Arguments.Count > 1 Then
  Set shell = CreateObject("WScript.Shell")
  shell.RegWrite "HKCU\Software\VB and VB Program Settings\Kestrel v5.60\MyConf\strLanguage", WScript.Arguments(1), "REG_SZ"
End If
Set component = CreateObject("ChartProject.ChartClass")
If Err.Number <> 0 Then WScript.Quit 1
component.CreateChart WScript.Arguments(0)
If Err.Number <> 0 Then
  WScript.Echo Err.Number & " " & Err.Description
  WScript.Quit 2
End If
Set component = Nothing
WScript.Quit 0
