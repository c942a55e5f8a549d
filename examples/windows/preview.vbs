' Shows the page of a document, with the values of its formulas.
'
'     cscript preview.vbs DOCUMENT
Option Explicit
Const forReading = 1
Dim files, component, xml

Set files = CreateObject("Scripting.FileSystemObject")
xml = files.OpenTextFile(WScript.Arguments(0), forReading).ReadAll()

Set component = CreateObject("Tavisk.clsTavisk")
On Error Resume Next
component.previewXML xml, True
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " of " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If
