' Opens the acquisition dialog as a host does. Argument: a language to be set first. Exit code 0 when all went well.
Option Explicit
Dim component, shell
On Error Resume Next
If WScript.Arguments.Count > 0 Then
  Set shell = CreateObject("WScript.Shell")
  shell.RegWrite "HKCU\Software\VB and VB Program Settings\Kestrel v5.60\MyConf\strLanguage", WScript.Arguments(0), "REG_SZ"
End If
Set component = CreateObject("ChartProject.ChartClass")
If Err.Number <> 0 Then WScript.Quit 1
component.AcquireVar
If Err.Number <> 0 Then
  WScript.Echo Err.Number & " " & Err.Description
  WScript.Quit 2
End If
Set component = Nothing
WScript.Quit 0
