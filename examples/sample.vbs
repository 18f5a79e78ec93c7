' Tries the component with the project in the folder "sample": simulated drives, and a recording of one.
'
'   sample.vbs            shows the recording
'   sample.vbs acquire    opens the acquisition dialog on the simulated drives
'   sample.vbs restore    gives the settings back the values that they had before
'
' The component takes its drives and folders from the host's settings, so these are made to name the sample.
' Where one has another value, the script asks; "yes" behind the word answers beforehand.
Option Explicit
Const kSettings = "HKCU\Software\VB and VB Program Settings\Kestrel v5.60\"
Const kAscii = 0
Const kUnicode = -1
Dim shell, files, home, folder, choice, before
Set shell = CreateObject("WScript.Shell")
If shell.Environment("Process").Item("PROCESSOR_ARCHITECTURE") <> "x86" Then UseOtherHost
Set files = CreateObject("Scripting.FileSystemObject")
home = files.GetParentFolderName(WScript.ScriptFullName)
folder = OwnSample(home & "\sample")
before = folder & "\settings_before.txt"
choice = "view"
If WScript.Arguments.Count > 0 Then choice = LCase(WScript.Arguments(0))

If choice = "restore" Then
  Restore
ElseIf choice = "view" Or choice = "acquire" Then
  SetUp
  Show
Else
  Fail "Usage: sample.vbs [view | acquire | restore] [yes]"
End If

' A 64-bit script host, which a double click starts on a 64-bit Windows, would need the component's surrogate.
Sub UseOtherHost()
  Dim command, at
  command = """" & shell.ExpandEnvironmentStrings("%SystemRoot%\SysWOW64\wscript.exe") & """ """ & _
            WScript.ScriptFullName & """"
  For at = 0 To WScript.Arguments.Count - 1
    command = command & " " & WScript.Arguments(at)
  Next
  WScript.Quit shell.Run(command, 1, True)
End Sub

' The sample itself where the user may write; else his own copy of it, which is made at first.
Function OwnSample(given)
  Dim probe, mine
  OwnSample = given
  On Error Resume Next
  probe = given & "\" & files.GetTempName
  files.CreateTextFile(probe).Close
  If Err.Number = 0 Then
    files.DeleteFile probe
    Exit Function
  End If
  On Error GoTo 0
  mine = shell.ExpandEnvironmentStrings("%LOCALAPPDATA%\ChartProject sample")
  If Not files.FolderExists(mine) Then files.CopyFolder given, mine
  OwnSample = mine
End Function

Sub Fail(text)
  WScript.Echo text
  WScript.Quit 1
End Sub

' The names and values of a file of lines SECTION\KEY=VALUE, "*" in a value being the sample's folder.
Function ReadValues(fileName, encoding)
  Dim values, stream, line, at
  Set values = CreateObject("Scripting.Dictionary")
  Set stream = files.OpenTextFile(fileName, 1, False, encoding)
  Do Until stream.AtEndOfStream
    line = stream.ReadLine
    at = InStr(line, "=")
    If at > 0 Then values.Add Left(line, at - 1), Replace(Mid(line, at + 1), "*", folder)
  Loop
  stream.Close
  Set ReadValues = values
End Function

' The value that a setting has; what the component takes for one that is missing. "0" names no drive.
Function Stored(name)
  Stored = ""
  If InStr(name, "DriveFile") > 0 Or InStr(name, "intSelectedDrive") > 0 Then Stored = "0"
  On Error Resume Next
  Stored = shell.RegRead(kSettings & name)
End Function

Sub Store(values)
  Dim name
  For Each name In values.Keys
    shell.RegWrite kSettings & name, values(name), "REG_SZ"
  Next
End Sub

Sub SetUp()
  Dim values, name, former, others, stream
  Set values = ReadValues(folder & "\settings.txt", kAscii)
  others = ""
  former = ""
  For Each name In values.Keys
    If Stored(name) <> values(name) Then
      former = former & name & "=" & Stored(name) & vbCrLf
      If Stored(name) <> "" And Stored(name) <> "0" Then others = others & vbCrLf & name & " = " & Stored(name)
    End If
  Next
  If former = "" Then Exit Sub
  If others <> "" And Not AnsweredYes() Then
    If MsgBox("These settings name another project. Let them name the sample? (""sample.vbs restore"" gives them back.)" & _
              vbCrLf & others, vbYesNo + vbQuestion + vbDefaultButton2, "ChartProject sample") <> vbYes Then
      Fail "Nothing was changed."
    End If
  End If
  ' The values from before the first set-up are the ones worth keeping.
  If Not files.FileExists(before) Then
    Set stream = files.CreateTextFile(before, True, True)
    stream.Write former
    stream.Close
  End If
  Store values
End Sub

Function AnsweredYes()
  AnsweredYes = False
  If WScript.Arguments.Count > 1 Then AnsweredYes = (LCase(WScript.Arguments(1)) = "yes")
End Function

Sub Restore()
  If Not files.FileExists(before) Then Fail "There is nothing to restore: the sample was not set up."
  Store ReadValues(before, kUnicode)
  files.DeleteFile before
  WScript.Echo "The settings have their former values."
End Sub

Sub Show()
  Dim component
  On Error Resume Next
  Set component = CreateObject("ChartProject.ChartClass")
  If Err.Number <> 0 Then Fail "ChartProject is not registered (see README-windows.md): " & Err.Description
  If choice = "view" Then
    component.CreateChart folder & "\projects\demo\Sample.cht"
  Else
    component.AcquireVar
  End If
  If Err.Number <> 0 Then Fail "Error " & Err.Number & ": " & Err.Description
  Set component = Nothing
End Sub
