// Reads configurations as the OPC server does, through the system's XML parser, and prints what it finds there:
//     cscript //nologo read.js FILE...
// Everything but plain characters is printed by its number, so that no code page has a say. A line "end" follows each
// file, "refused" stands for one that the parser does not take.

var document = new ActiveXObject("MSXML2.DOMDocument");
var lines = [];

function print() {
    var fields = [];
    for (var i = 0; i < arguments.length; ++i) {
        fields.push(String(arguments[i]).replace(/[^ -~]|[|\\]/g, function (c) {
            return "\\" + c.charCodeAt(0);
        }));
    }
    lines.push(fields.join("|"));
}

function elementsOf(node) {
    var found = [];
    for (var i = 0; i < node.childNodes.length; ++i) {
        if (node.childNodes.item(i).nodeType == 1) found.push(node.childNodes.item(i));
    }
    return found;
}

function nameOf(element) {
    return element.tagName.toUpperCase();
}

// Of a child element by its name; a minus where there is none.
function field(element, name) {
    var children = elementsOf(element);
    for (var i = 0; i < children.length; ++i) {
        if (nameOf(children[i]) == name) return children[i].text;
    }
    return "-";
}

function attributes(element, names) {
    var values = [];
    for (var i = 0; i < names.length; ++i) values.push(element.getAttribute(names[i]));
    return values;
}

function children(element, names) {
    var values = [];
    for (var i = 0; i < names.length; ++i) values.push(field(element, names[i]));
    return values;
}

function readTag(tag, container) {
    var rest = children(tag, ["COMMENT", "ADDRESS", "DATATYPE", "ACCESSRIGHTS", "DATABIT", "ELEMENTS"]);
    print.apply(null, ["item", container + "." + field(tag, "NAME")].concat(rest));
}

function readBranch(element, container) {
    var inside = elementsOf(element);
    for (var i = 0; i < inside.length; ++i) {
        if (nameOf(inside[i]) == "TAG") {
            readTag(inside[i], container);
        } else {
            var key = container + "." + nameOf(inside[i]);
            print("branch", key);
            readBranch(inside[i], key);
        }
    }
}

function readUnit(unit, serial) {
    var fields = serial
        ? children(unit, ["NAME", "ID", "COM", "BAUDRATE", "PARITY", "STOPBITS", "DATABITS", "FLOWCONTROL", "TIMEOUT",
                          "SILENT"])
        : attributes(unit, ["name", "address", "id", "timeout"]);
    print.apply(null, ["unit"].concat(fields));
    var inside = elementsOf(unit);
    for (var i = 0; i < inside.length; ++i) {
        if (nameOf(inside[i]) == "TAGS") readBranch(inside[i], fields[0]);
    }
}

function readSection(section, serial) {
    var inside = elementsOf(section);
    for (var i = 0; i < inside.length; ++i) {
        if (nameOf(section) == "MODBUS") {
            var codes = attributes(inside[i], ["name", "readcode", "writecode", "singlewrcode"]);
            print.apply(null, ["type"].concat(codes));
        } else {
            readUnit(inside[i], serial);
        }
    }
}

document.async = false;
for (var n = 0; n < WScript.Arguments.length; ++n) {
    if (!document.load(WScript.Arguments.Item(n))) {
        print("refused");
    } else {
        var root = document.documentElement;
        print("root", nameOf(root));
        var sections = elementsOf(root);
        for (var i = 0; i < sections.length; ++i) readSection(sections[i], nameOf(root) == "VOSKMODBUSRTUCFG");
    }
    print("end");
}
WScript.Echo(lines.join("\r\n"));
