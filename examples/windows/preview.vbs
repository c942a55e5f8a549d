' Shows the page of a document, with the values that its formulas carry.
'
'     cscript preview.vbs DOCUMENT
Option Explicit
Dim component, document

Set document = CreateObject("MSXML2.DOMDocument")
document.async = False
document.preserveWhiteSpace = True
If Not document.load(WScript.Arguments(0)) Then
    WScript.Echo document.parseError.reason
    WScript.Quit 1
End If

Set component = CreateObject("Tavisk.clsTavisk")
On Error Resume Next
component.previewXML document.xml, True
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " of " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If
