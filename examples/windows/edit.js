// The smallest host: opens the editor on a document and writes it back.
//
//     cscript edit.js DOCUMENT
//
// The document is in the system's own code page.
var forReading = 1;
var files = new ActiveXObject("Scripting.FileSystemObject");
var xml = files.OpenTextFile(WScript.Arguments(0), forReading).ReadAll();

var component = new ActiveXObject("Tavisk.clsTavisk");
var edited = component.editXML(xml);

var out = files.CreateTextFile(WScript.Arguments(0), true);
out.Write(edited);
out.Close();
