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

// "trevandix check [OPTION...] FILE...", for all commands.
std::string synopsis(const CLI::App& app) {
    CLI::Formatter formatter;
    formatter.label("OPTIONS", "OPTION...");
    std::string page = ".SH SYNOPSIS\n.nf\n";
    for (const CLI::App* command : app.get_subcommands({})) {
        const std::string usage = formatter.make_usage(command, app.get_name() + " " + command->get_name());
        page +=
            line(usage.substr(usage.find(app.get_name()), usage.rfind('\n') - usage.find(app.get_name())));
    }
    return page + ".fi\n";
}

std::string options(const CLI::App& app) {
    std::string page;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_group().empty()) continue;
        std::string name = option->get_name(option->get_positional(), true);
        if (const std::size_t comma = name.find(','); comma != std::string::npos) name.insert(comma + 1, " ");
        if (!option->get_positional()) name += " " + option->get_option_text();
        page += ".TP\n.B " + line(name) + line(option->get_description());
    }
    return page;
}

// Lines stay lines, so that the examples do.
std::string footer(const CLI::App& app) {
    std::string page = ".PP\n.nf\n";
    for (const std::string& each : CLI::detail::split(app.get_footer(), '\n')) page += line(each);
    return page + ".fi\n";
}

}  // namespace

std::string manPage(const CLI::App& app) {
    const std::string& name = app.get_name();
    std::string page = ".TH TREVANDIX 1 \"\" \"trevandix " + std::string(kVersion) + "\" \"User Commands\"\n";
    page += ".SH NAME\n" +
            line(name + " - check, compare, write, fill and publish configurations of a Modbus OPC server");
    page += synopsis(app) + ".SH DESCRIPTION\n" + line(app.get_description());
    page += ".SH OPTIONS\n" + options(app) + footer(app) + ".SH COMMANDS\n";
    for (const CLI::App* command : app.get_subcommands({})) {
        page += ".SS " + line(name + " " + command->get_name()) + line(command->get_description());
        page += options(*command) + footer(*command);
    }
    return page + ".SH SEE ALSO\n.BR trevandix-editor (1)";
}

}  // namespace trevandix
