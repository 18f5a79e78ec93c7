' A host in a few lines: shows a chart file, or records one.
' Exit code: 0, 1 when the component cannot be created, 2 when its method fails.
' Usage: %SystemRoot%\SysWOW64\cscript example.vbs [chart file]     (System32 on a 32-bit Windows)
Option Explicit
Dim component, architecture, hint
On Error Resume Next
Set component = CreateObject("ChartProject.ChartClass")
If Err.Number <> 0 Then
  hint = "ChartProject is not registered: " & Err.Description
  architecture = "x86"
  architecture = CreateObject("WScript.Shell").Environment("Process").Item("PROCESSOR_ARCHITECTURE")
  If architecture <> "x86" Then
    hint = hint & vbCrLf & "For a 64-bit script host it must be registered with its surrogate. Else" & vbCrLf & _
           "use %SystemRoot%\SysWOW64\cscript """ & WScript.ScriptFullName & """"
  End If
  WScript.Echo hint
  WScript.Quit 1
End If
If WScript.Arguments.Count > 0 Then
  component.CreateChart WScript.Arguments(0)
Else
  component.AcquireVar
End If
If Err.Number <> 0 Then
  WScript.Echo "Error " & Err.Number & ": " & Err.Description
  WScript.Quit 2
End If
Set component = Nothing
