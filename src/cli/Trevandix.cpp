#include "cli/Trevandix.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>

#include "Version.h"
#include "cli/ManPage.h"
#include "platform/Services.h"

namespace trevandix {

namespace {

constexpr const char* kNothing = " ";  // instead of what the library says of an option

/// All options, and what the command line asks for.
struct Parsing {
    Parsing(const Console& console, XmlParser& parser, Registry& registry);

    CLI::App app{"Checks, compares, writes, fills and publishes configurations of a Modbus OPC server.",
                 "trevandix"};
    std::function<ExitCode()> command;

private:
    CLI::App& add(const std::string& name, const std::string& what, const std::string& footer,
                  std::function<ExitCode()> run);
    void addCheck(const Console& console, XmlParser& parser);
    void addDiff(const Console& console, XmlParser& parser);
    void addFormat(const Console& console, XmlParser& parser);
    void addNew();
    void addList(const Console& console, XmlParser& parser);
    void addImport(const Console& console, XmlParser& parser);
    void addPublish(const Console& console, XmlParser& parser, Registry& registry);

    CheckCommand check_;
    DiffCommand diff_;
    FormatCommand format_;
    NewCommand new_;
    ListCommand list_;
    ImportCommand import_;
    PublishCommand publish_;
};

// A value such as "--force" stands where OUT was forgotten.
CLI::Option* addOut(CLI::App& sub, std::string& out) {
    const auto refused = [](const std::string& value) {
        return value.starts_with('-') ? "OUT begins with \"-\"; ./" + value + " is a file of that name"
                                      : std::string();
    };
    return sub.add_option("-o", out, "Write to OUT.")->check(refused, "")->option_text("OUT");
}

constexpr char kForce[] = "Replace OUT if it exists; with --in-place, drop what is no configuration.";

Parsing::Parsing(const Console& console, XmlParser& parser, Registry& registry) {
    app.allow_windows_style_options(false);  // "/" begins a path
    app.get_formatter()->label("OPTIONS", "OPTION...");
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("Positionals", "Arguments");
    app.get_formatter()->column_width(24);
    app.set_help_flag("-h,--help", "Show this text.");
    app.set_version_flag("--version", std::string(kProduct) + " " + std::string(kVersion),
                         "Show the version.");
    const auto page = [this] { throw CLI::CallForVersion(manPage(app), 0); };
    app.add_flag_callback("--man-page", page)->group("");
    app.require_subcommand(0, 1);  // with a minimum, a wrong command would be called a missing one
    app.footer(
        "Exit code: 2 if a file cannot be read or written, or the command line is\n"
        "wrong; for others see the commands. The environment variable NO_COLOR turns\n"
        "colours off.\n\n"
        "Example:\n  trevandix check --help");
    addCheck(console, parser);
    addDiff(console, parser);
    addFormat(console, parser);
    addNew();
    addList(console, parser);
    addImport(console, parser);
    addPublish(console, parser, registry);
}

CLI::App& Parsing::add(const std::string& name, const std::string& what, const std::string& footer,
                       std::function<ExitCode()> run) {
    CLI::App& added = *app.add_subcommand(name, what)->group("Commands");
    added.footer(footer);
    added.callback([this, run = std::move(run)] { command = run; });
    return added;
}

void Parsing::addCheck(const Console& console, XmlParser& parser) {
    CLI::App& sub = add("check", "Tell what is wrong in configurations.",
                        "Prints a line for each finding: FILE: error: OBJECT: RULE: text. Findings come\n"
                        "in the order of the rules, those of a rule in the order of the file. JSON also\n"
                        "lists the rules.\n\n"
                        "Exit code: 0 no errors, 1 errors (with --strict also warnings), 2 a file cannot\n"
                        "be read.\n\n"
                        "Example:\n  trevandix check --strict plant.xml",
                        [&] { return check_.run(console, parser); });
    sub.add_option("FILE", check_.files, "Configurations.")->required()->option_text(kNothing);
    sub.add_option("--format", check_.format, "How to print findings; text unless given.")
        ->check(CLI::IsMember({"text", "json"}))
        ->option_text("text|json");
    sub.add_flag("--strict", check_.strict, "Exit with 1 for warnings, too.");
}

void Parsing::addDiff(const Console& console, XmlParser& parser) {
    CLI::App& sub = add("diff", "Tell how two configurations differ.",
                        "Prints a line for each difference: \"- OBJECT\" only in OLD, \"+ OBJECT\" only in\n"
                        "NEW, \"~ OBJECT: field old -> new\" changed. Order, and capitals of branches, do\n"
                        "not count.\n\n"
                        "Exit code: 0 equal, 1 different, 2 a file cannot be read.\n\n"
                        "Example:\n  trevandix diff plant.xml plant-new.xml",
                        [&] { return diff_.run(console, parser); });
    sub.add_option("OLD", diff_.before, "Configuration before.")->required()->option_text(kNothing);
    sub.add_option("NEW", diff_.after, "Configuration after.")->required()->option_text(kNothing);
}

void Parsing::addFormat(const Console& console, XmlParser& parser) {
    CLI::App& sub = add("format", "Write a configuration as the editor would.",
                        "Prints the result unless there is a target.\n\n"
                        "Exit code: 0 done, 2 a file cannot be read or written.\n\n"
                        "Example:\n  trevandix format plant.xml --in-place",
                        [&] { return format_.run(console, parser); });
    sub.add_option("FILE", format_.file, "Configuration.")->required()->option_text(kNothing);
    CLI::Option* out = addOut(sub, format_.out);
    sub.add_flag("--in-place", format_.inPlace, "Write to FILE; not together with -o.")
        ->excludes(out)
        ->option_text(kNothing);
    sub.add_flag("--force", format_.force, kForce);
}

void Parsing::addNew() {
    CLI::App& sub = add("new", "Make an empty configuration with the four data types.",
                        "Exit code: 0 done, 2 OUT exists or cannot be written.\n\n"
                        "Example:\n  trevandix new tcp -o plant.xml",
                        [&] { return new_.run(); });
    sub.add_option("KIND", new_.kind, "tcp for Modbus TCP/IP, rtu for serial lines.")
        ->required()
        ->check(CLI::IsMember({"tcp", "rtu"}))
        ->option_text(kNothing);
    addOut(sub, new_.out)->required()->description("Write to OUT; required.");
    sub.add_flag("--force", new_.force, "Replace OUT if it exists.");
}

void Parsing::addList(const Console& console, XmlParser& parser) {
    CLI::App& sub = add("list", "List items, units or data types as a table for spreadsheets.",
                        "Prints the table unless there is a target: CSV as UTF-8 with mark, which import\n"
                        "takes back.\n\n"
                        "Exit code: 0 done, 2 a file cannot be read or written.\n\n"
                        "Example:\n  trevandix list plant.xml -o items.csv",
                        [&] { return list_.run(console, parser); });
    sub.add_option("FILE", list_.file, "Configuration.")->required()->option_text(kNothing);
    CLI::Option* units =
        sub.add_flag("--units", list_.units, "List units instead of items.")->option_text(kNothing);
    sub.add_flag("--types", list_.types, "List data types; not together with --units.")
        ->excludes(units)
        ->option_text(kNothing);
    sub.add_option("--separator", list_.separator, "What separates cells; comma unless given.")
        ->check(CLI::IsMember({"comma", "semicolon", "tab"}))
        ->option_text("comma|semicolon|tab");
    addOut(sub, list_.out);
    sub.add_flag("--force", list_.force, "Replace OUT if it exists.");
}

void Parsing::addImport(const Console& console, XmlParser& parser) {
    CLI::App& sub = add("import", "Change and add what tables hold.",
                        "Takes data types first, then units, then items. Prints a line for each change:\n"
                        "\"+ OBJECT\" added, \"~ OBJECT: column old -> new\" changed; and for each row that\n"
                        "is refused, on standard error: \"TABLE: line 12: OBJECT: reason\". Nothing is\n"
                        "written then without --skip-refused. Without changes --in-place leaves FILE as\n"
                        "it is. One of -o and --in-place is required.\n\n"
                        "Exit code: 0 done, 1 rows were refused, 2 a file cannot be read or written.\n\n"
                        "Example:\n  trevandix import plant.xml units.csv items.csv --in-place",
                        [&] {
                            if (import_.out.empty() && !import_.inPlace)
                                throw CLI::RequiredError("-o OUT or --in-place");
                            return import_.run(console, parser);
                        });
    sub.add_option("FILE", import_.file, "Configuration.")->required()->option_text(kNothing);
    sub.add_option("TABLE", import_.tables, "Tables as list writes them; - is standard input.")
        ->required()
        ->option_text(kNothing);
    CLI::Option* out = addOut(sub, import_.out);
    sub.add_flag("--in-place", import_.inPlace, "Write to FILE; not together with -o.")
        ->excludes(out)
        ->option_text(kNothing);
    sub.add_flag("--force", import_.force, kForce);
    sub.add_flag("--dry-run", import_.dryRun, "Print everything, but write nothing.");
    sub.add_flag("--skip-refused", import_.skipRefused, "Write although rows were refused.");
}

void Parsing::addPublish(const Console& console, XmlParser& parser, Registry& registry) {
    CLI::App& sub =
        add("publish", "Tell the server to use a configuration, as the editor does on Save.",
            "Publishes the full path of FILE where the server of its interface kind looks for\n"
            "it. Warns of a path on a network drive, which the server's account may not see.\n\n"
            "Exit code: 0 done, 1 refused, 2 the file cannot be read.\n\n"
            "Example:\n  trevandix publish plant.xml",
            [&] {
                if (publish_.elevate && !registry.canAsk())
                    throw CLI::ParseError("--elevate is for Windows only", CLI::ExitCodes::ValidationError);
                return publish_.run(console, parser, registry);
            });
    sub.add_option("FILE", publish_.file, "Configuration.")->required()->option_text(kNothing);
    sub.add_flag("--elevate", publish_.elevate,
                 "Ask for administrator's rights if they are needed; Windows only.");
}

}  // namespace

ExitCode runTrevandix(const Console& console, XmlParser& parser, Registry& registry,
                      std::vector<std::string> arguments) {
    Parsing parsing(console, parser, registry);
    try {
        std::ranges::reverse(arguments);  // as the library wants them
        parsing.app.parse(std::move(arguments));
        if (!parsing.command) throw CLI::RequiredError("COMMAND");
        return parsing.command();
    } catch (const CLI::CallForHelp&) {
        console.out.write(parsing.app.help());
        return kNothingFound;
    } catch (const CLI::CallForVersion& version) {
        console.out.write(std::string(version.what()) + "\n");
        return kNothingFound;
    } catch (const CLI::ParseError& wrong) {
        complain(console, wrong.what());
        complain(console, "\"trevandix --help\" and \"trevandix COMMAND --help\" show what is possible.");
    } catch (const std::exception& failure) {
        complain(console, failure.what());
    }
    return kFailed;
}

}  // namespace trevandix
