' The program that shows pages in the tests: it leaves a copy of the page that it is given.
Dim files
Set files = CreateObject("Scripting.FileSystemObject")
files.CopyFile WScript.Arguments(0), files.GetParentFolderName(WScript.ScriptFullName) & "\seen.html", True
