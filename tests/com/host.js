// A host in JScript, which is called as host.vbs is and answers as that does.
var forReading = 1, unicodeFile = -1;
var files = new ActiveXObject("Scripting.FileSystemObject");
var component = new ActiveXObject("Tavisk.clsTavisk");

function typeName(value) {
    return typeof value == "undefined" ? "Empty" : "String";
}

function perform(command, name, argument) {
    var file = files.OpenTextFile(name, forReading, false, unicodeFile);
    var xml = file.AtEndOfStream ? "" : file.ReadAll();
    var before = xml, answer;
    try {
        if (command == "edit") {
            answer = component.editXML(xml);
        } else {
            answer = component.previewXML(xml, command == "named" ? argument : argument == "1");
        }
    } catch (error) {
        return (error.number & 0xFFFF) + " Tavisk: " + error.description;
    }
    if (xml != before) return "changed";
    if (command == "edit") {
        var out = files.CreateTextFile(argument, true, true);
        out.Write(answer);
        out.Close();
    }
    return typeName(answer);
}

for (var i = 0; i < WScript.Arguments.length; i += 3) {
    WScript.Echo(perform(WScript.Arguments(i), WScript.Arguments(i + 1), WScript.Arguments(i + 2)));
}
component = null;
CollectGarbage();
