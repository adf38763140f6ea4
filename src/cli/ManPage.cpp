#include "cli/ManPage.h"

#include <CLI/CLI.hpp>

#include "Version.h"

namespace trevandix {

namespace {

// A line of text for troff, which takes backslashes and what begins with "." or "'" for commands.
std::string line(std::string_view text) {
    std::string result = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (const char c : text) {
        if (c == '\\' || c == '-') result += '\\';
        result += c == '\\' ? 'e' : c;
    }
    return result + "\n";
}

std::string described(const std::string& term, const std::string& description) {
    return ".TP\n.B " + line(term) + line(description);
}

std::string options(const CLI::App& app) {
    std::string page;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_group().empty()) continue;
        const std::string value = option->get_positional() ? "" : option->get_option_text();
        page +=
            described(option->get_name(option->get_positional(), true) + (value.empty() ? "" : " " + value),
                      option->get_description());
    }
    return page;
}

// Lines as they are, so that the examples stay lines of their own.
std::string footer(const CLI::App& app) {
    std::string page = ".PP\n.nf\n";
    for (const std::string& each : CLI::detail::split(app.get_footer(), '\n')) page += line(each);
    return page + ".fi\n";
}

}  // namespace

std::string manPage(const CLI::App& app) {
    const std::string name = app.get_name();
    std::string page = ".TH TREVANDIX 1 \"\" " + line(name + " " + std::string(kVersion)).insert(0, "\"");
    page.insert(page.size() - 1, "\" \"User Commands\"");
    page += ".SH NAME\n" + line(name + " - check, compare and write configurations of a Modbus OPC server");
    page += ".SH DESCRIPTION\n" + line(app.get_description()) + ".SH OPTIONS\n" + options(app);
    page += footer(app) + ".SH COMMANDS\n";
    for (const CLI::App* command : app.get_subcommands({})) {
        page += ".SS " + line(name + " " + command->get_name());
        page += line(command->get_description()) + options(*command) + footer(*command);
    }
    return page + ".SH SEE ALSO\n.BR trevandix-editor (1)";
}

}  // namespace trevandix
