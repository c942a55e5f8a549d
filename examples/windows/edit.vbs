' A host in VBScript: edits the help of a door.
'
'     cscript edit.vbs DOCUMENT
Option Explicit
Dim component, document, given, values, changed

' What a real host computes from the item's construction.
Set values = CreateObject("Scripting.Dictionary")
values("code") = "D45"
values("type") = "Door"
values("width") = "450"
values("height") = "720"

Set component = CreateObject("Tavisk.clsTavisk")
Set document = CreateObject("MSXML2.DOMDocument")
document.async = False
document.preserveWhiteSpace = True
If Not document.load(WScript.Arguments(0)) Then
    WScript.Echo document.parseError.reason
    WScript.Quit 1
End If

' As long as the user refreshes, compute the values and open the editor at the same place.
Do
    FillIn document
    given = document.xml
    changed = component.editXML(given)
    ' After an error, of which the user has been told, the host's own text comes back.
    If changed = given Then WScript.Quit
    document.loadXML changed
Loop While document.getElementsByTagName("location").length > 0
document.save WScript.Arguments(0)

Sub FillIn(document)
    Dim formula, name
    For Each formula In document.getElementsByTagName("formula")
        name = formula.getAttribute("name") & ""
        If values.Exists(name) Then formula.setAttribute "value", values(name)
    Next
End Sub
