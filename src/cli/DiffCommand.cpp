#include "cli/Commands.h"
#include "cli/Differences.h"
#include "cli/Files.h"

namespace trevandix {

namespace {

// Quotes show where a text begins and ends.
std::string valueText(const std::string& text) {
    const bool plain = !text.empty() && text.find_first_of(" \"") == std::string::npos;
    return plain ? escaped(text) : '"' + escaped(text) + '"';
}

std::string lineOf(const Difference& difference) {
    if (difference.kind == Difference::Kind::Removed) return "- " + escaped(difference.object);
    if (difference.kind == Difference::Kind::Added) return "+ " + escaped(difference.object);
    std::string line = "~ ";
    if (!difference.object.empty()) line += escaped(difference.object) + ": ";
    return line.append(difference.field) + ' ' + valueText(difference.before) + " -> " +
           valueText(difference.after);
}

Colour colourOf(Difference::Kind kind) {
    switch (kind) {
        case Difference::Kind::Removed:
            return Colour::Red;
        case Difference::Kind::Added:
            return Colour::Green;
        case Difference::Kind::Changed:
            break;
    }
    return Colour::Yellow;
}

}  // namespace

ExitCode DiffCommand::run(const Console& console, XmlParser& parser) const {
    const Configuration& old = readFile(parser, before);
    const Configuration& now = readFile(parser, after);
    ExitCode code = kNothingFound;
    compare(old, now, [&](const Difference& difference) {
        code = kFound;
        console.out.write(coloured(console, colourOf(difference.kind), lineOf(difference)) + "\n");
    });
    return code;
}

}  // namespace trevandix
