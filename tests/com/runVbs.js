// Runs a script in VBScript as its own host does: cscript runVbs.js DOCUMENT SCRIPT. Wine's own host
// for scripts does not let that language create objects that want to know their surroundings, which
// those of its XML library do.
var forReading = 1;
var files = new ActiveXObject("Scripting.FileSystemObject");
var control = new ActiveXObject("ScriptControl");
control.Language = "VBScript";
control.AddObject("WScript", WScript, false);
control.AddCode(files.OpenTextFile(WScript.Arguments(1), forReading).ReadAll());
