' A host in VBScript: host.vbs CALLS..., one after the other on one object:
'
'     edit IN OUT         OUT receives what comes back
'     named IN 0|1        a preview whose arguments are values of other types
'     preview IN 0|1
'
' Files are UTF-16 with a byte order mark. One line is written for each call.
Option Explicit
Const forReading = 1, unicodeFile = -1
Dim files, component, word

Set files = CreateObject("Scripting.FileSystemObject")
Set component = CreateObject("Tavisk.clsTavisk")
For word = 0 To WScript.Arguments.Count - 1 Step 3
    Perform WScript.Arguments(word), WScript.Arguments(word + 1), WScript.Arguments(word + 2)
Next
Set component = Nothing

Sub Perform(command, name, argument)
    Dim file, xml, before, answer, out
    Set file = files.OpenTextFile(name, forReading, False, unicodeFile)
    If Not file.AtEndOfStream Then xml = file.ReadAll()
    before = xml
    On Error Resume Next
    If command = "edit" Then
        answer = component.editXML(xml)
    ElseIf command = "named" Then
        answer = component.previewXML(xml, argument)
    Else
        answer = component.previewXML(xml, argument = "1")
    End If
    If Err.Number <> 0 Then
        WScript.Echo Err.Number & " " & Err.Source & ": " & Err.Description
        Exit Sub
    End If
    On Error GoTo 0
    If xml <> before Then
        WScript.Echo "changed"
    ElseIf command <> "edit" Then
        WScript.Echo TypeName(answer)
    Else
        Set out = files.CreateTextFile(argument, True, True)
        out.Write answer
        out.Close
        WScript.Echo TypeName(answer)
    End If
End Sub
