' Opens the dialog, or a chart file, as a host does. Arguments: perhaps a language to be set first, perhaps a file.
Option Explicit
Dim component, shell, given, file
On Error Resume Next
Set given = WScript.Arguments
If given.Count > 0 Then
  Set shell = CreateObject("WScript.Shell")
  shell.RegWrite "HKCU\Software\VB and VB Program Settings\Kestrel v5.60\MyConf\strLanguage", given(0), "REG_SZ"
End If
Set component = CreateObject("ChartProject.ChartClass")
If Err.Number <> 0 Then WScript.Quit 1
If given.Count > 1 Then file = given(1)
If given.Count < 2 Then component.AcquireVar Else component.CreateChart file
If Err.Number <> 0 Then
  WScript.Echo Err.Number & " " & Err.Description
  WScript.Quit 2
End If
Set component = Nothing
WScript.Quit 0
