#pragma once

#include <string>
#include <vector>

#include "model/Configuration.h"

namespace trevandix {

/// Where texts stand that may come back from the file as others, as a user would name the place ("comment of
/// PLC1.Run"). The writer escapes nothing, so for these two contents of the editor can give the same bytes,
/// or programs that read XML and those that read lines can differ over them:
/// - anything that looks like a character reference: "&amp;", "&#65;", "&#x20AC;"
/// - line breaks and NUL characters, with which a file that is no XML may even be refused; in units of Modbus
///   TCP/IP tabs as well, which XML makes blanks in attributes
/// - a value with its own end tag and, behind it, its own start tag ("a</comment><comment>b")
/// - in units of Modbus TCP/IP, the text between name and address (`" address = "`) inside one of them, and a
///   quotation mark with a "<PLC" behind it
/// - a branch called "tag", in small or capital letters; one whose name has both "<" and ">"
/// - branches that get the name of a sibling, be it branch or item, once all branch names are in capitals
std::vector<std::string> ambiguousTexts(const Configuration& configuration);

}  // namespace trevandix
