// Reads configurations through the system's XML parser, as the OPC server does, and prints what it finds there:
//     cscript //nologo read.js FILE...
// An element a line: its depth, its name, its attributes, and its text where it holds no elements. Everything but plain
// characters is printed by its number, so that no code page has a say. A line "end" follows each file, "refused" stands
// for one that the parser does not take.

var document = new ActiveXObject("MSXML2.DOMDocument");
var names = ["name", "address", "id", "timeout", "readcode", "writecode", "singlewrcode"];
var lines = [];

function printed(text) {
    return "|" + text.replace(/^\s+|\s+$/g, "").replace(/[^ -~]|[|\\]/g, function (c) {
        return "\\" + c.charCodeAt(0);
    });
}

function print(element, depth) {
    var line = depth + printed(element.tagName);
    for (var i = 0; i < names.length; ++i) {
        var value = element.getAttribute(names[i]);
        if (value !== null) line += printed(value);
    }
    var place = lines.length;
    lines.push(line);
    for (var child = element.firstChild; child !== null; child = child.nextSibling) {
        if (child.nodeType == 1) print(child, depth + 1);
    }
    if (lines.length == place + 1) lines[place] += printed(element.text);
}

document.async = false;
for (var n = 0; n < WScript.Arguments.length; ++n) {
    if (document.load(WScript.Arguments.Item(n))) {
        print(document.documentElement, 0);
    } else {
        lines.push("refused");
    }
    lines.push("end");
}
WScript.Echo(lines.join("\r\n"));
