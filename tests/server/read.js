// Reads configurations with the system's XML parser, as the OPC server does, and prints their content:
//     cscript //nologo read.js FILE...
// Each line is one element: depth, name, attributes and, if it contains no elements, its text. Characters outside ASCII
// are printed as numbers, so that the code page has no effect. After each file comes a line "end"; a file that the
// parser does not accept gives "refused".

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
