// A host in JScript: edits the help of a door.
//
//     cscript edit.js DOCUMENT

// What a real host computes from the item's construction.
var values = {code: "D45", type: "Door", width: "450", height: "720"};

function fillIn(document) {
    var formulas = document.getElementsByTagName("formula");
    for (var i = 0; i < formulas.length; ++i) {
        var name = formulas.item(i).getAttribute("name");
        if (values[name]) formulas.item(i).setAttribute("value", values[name]);
    }
}

var component = new ActiveXObject("Tavisk.clsTavisk");
var document = new ActiveXObject("MSXML2.DOMDocument");
document.async = false;
document.preserveWhiteSpace = true;
if (!document.load(WScript.Arguments(0))) {
    WScript.Echo(document.parseError.reason);
    WScript.Quit(1);
}

// As long as the user refreshes, compute the values and open the editor at the same place.
do {
    fillIn(document);
    var given = document.xml;
    var edited = component.editXML(given);
    // After an error, of which the user has been told, the host's own text comes back.
    if (edited == given) WScript.Quit();
    document.loadXML(edited);
} while (document.getElementsByTagName("location").length > 0);
document.save(WScript.Arguments(0));
