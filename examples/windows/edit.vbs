' The smallest host: opens the editor on a document and writes it back.
'
'     cscript edit.vbs DOCUMENT
'
' The document is in the system's own code page.
Option Explicit
Const forReading = 1
Dim files, component, xml, edited, out

Set files = CreateObject("Scripting.FileSystemObject")
xml = files.OpenTextFile(WScript.Arguments(0), forReading).ReadAll()

Set component = CreateObject("Tavisk.clsTavisk")
edited = component.editXML(xml)

Set out = files.CreateTextFile(WScript.Arguments(0), True)
out.Write edited
out.Close
