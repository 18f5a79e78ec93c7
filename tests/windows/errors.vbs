' What a script sees of wrong calls. Exit code: the number of the check that failed, 0 for none.
Option Explicit
Dim component, other
On Error Resume Next
Set component = CreateObject("ChartProject.ChartClass")
If Err.Number <> 0 Then WScript.Quit 1
If TypeName(component) <> "_ChartClass" Then WScript.Quit 2
component.CreateChart
If Err.Number <> 450 Then WScript.Quit 3
Err.Clear
component.CreateChart "a", "b"
If Err.Number <> 450 Then WScript.Quit 4
Err.Clear
component.CreateChart component
If Err.Number <> 13 Then WScript.Quit 5
Err.Clear
component.CreateChart Null
If Err.Number <> 13 Then WScript.Quit 8
Err.Clear
component.DeleteChart
If Err.Number <> 438 Then WScript.Quit 6
Err.Clear
Set other = CreateObject("ChartProject.ChartClass.1")
If Err.Number <> 0 Then WScript.Quit 7
Set other = Nothing
Set component = Nothing
WScript.Quit 0
