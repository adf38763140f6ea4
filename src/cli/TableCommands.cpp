#include <algorithm>
#include <filesystem>

#include "cli/Commands.h"
#include "cli/Differences.h"
#include "cli/Files.h"
#include "platform/FileAccess.h"
#include "platform/SafeFile.h"
#include "table/ChangeSet.h"
#include "table/Csv.h"
#include "table/Table.h"

namespace trevandix {

namespace {

struct NamedTable {
    std::string name;  // of its file
    Table table;
};

Separator separatorCalled(const std::string& name) {
    if (name == "tab") return Separator::Tab;
    return name == "semicolon" ? Separator::Semicolon : Separator::Comma;
}

// Items need units and data types.
int rank(const NamedTable& named) {
    if (named.table.kind == NodeTag::DataType) return 0;
    return named.table.kind == NodeTag::Plc ? 1 : 2;
}

std::vector<NamedTable> readTables(const Console& console, const std::vector<std::string>& files) {
    std::vector<NamedTable> tables;
    for (const std::string& file : files) {
        const std::string name = file == "-" ? "standard input" : file;
        forFile(name, [&] {
            tables.push_back({name, readTable(file == "-" ? console.in() : readWholeFile(file))});
        });
        for (const std::string& column : tables.back().table.unknownColumns)
            complain(console, name + ": warning: The column \"" + column + "\" is unknown and ignored.");
    }
    std::ranges::stable_sort(tables, {}, rank);
    return tables;
}

void printChange(const Console& console, const std::string& object, const IntendedChange& change) {
    if (change.adds) {
        const std::string remark = change.remark.empty() ? "" : " (" + change.remark + ")";
        return print(console, {Difference::Kind::Added, object + remark});
    }
    for (const FieldChange& field : change.fields)
        print(console, {Difference::Kind::Changed, object, field.header, field.before, field.after});
}

void printChanges(const Console& console, const std::string& table, const ChangeSet& changes) {
    const std::string folder =
        changes.kind() == NodeTag::DataType ? std::string(kModBusFolder) + "." : std::string();
    for (const IntendedChange& change : changes.changes()) {
        const std::string object = folder + change.object;
        if (!change.refused()) {
            printChange(console, object, change);
            continue;
        }
        std::string line = escaped(table) + ": line " + std::to_string(change.line) + ": ";
        if (!change.object.empty()) line += escaped(object) + ": ";
        console.err.write(line + escaped(change.refusal) + "\n");
    }
}

}  // namespace

ExitCode ListCommand::run(const Console& console, XmlParser& parser) const {
    std::error_code none;
    if (!out.empty() && std::filesystem::equivalent(fromUtf8(out), fromUtf8(file), none))
        throw CommandError(out + ": The table would replace the configuration.");
    if (!out.empty() && !force) requireFree(out);
    const NodeTag kind = units ? NodeTag::Plc : types ? NodeTag::DataType : NodeTag::Item;
    const std::string table = csvFile(exportTable(readFile(parser, file), kind), separatorCalled(separator));
    if (out.empty())
        console.out.write(table);
    else
        forFile(out, [&] { SafeFile().replace(out, [&](OutputFile& target) { target.write(table); }); });
    return kNothingFound;
}

ExitCode ImportCommand::run(const Console& console, XmlParser& parser) const {
    if (!out.empty() && !force) requireFree(out);
    const auto stamp = FileStamp::of(file);  // before reading: who writes meanwhile is noticed
    std::string skipped;
    Configuration& configuration = readFile(parser, file, &skipped);
    warnOfSkipped(console, file, skipped, inPlace, force);
    std::size_t refused = 0;
    std::size_t accepted = 0;
    for (const auto& [name, table] : readTables(console, tables)) {
        const ChangeSet changes(configuration, table);
        printChanges(console, name, changes);
        forFile(name, [&] { changes.apply(configuration); });
        refused += changes.refused();
        accepted += changes.accepted();
    }
    const ExitCode code = refused > 0 ? kFound : kNothingFound;
    if (refused > 0 && !skipRefused) {
        complain(console, std::to_string(refused) + (refused == 1 ? " row was" : " rows were") +
                              " refused, so nothing is written. --skip-refused writes the others.");
        return code;
    }
    warnOfUnreadable(console, file, configuration);
    if (dryRun || (inPlace && accepted == 0)) return code;
    requireUnchanged(file, stamp);
    if (!inPlace && !force) requireFree(out);
    writeFile(configuration, inPlace ? file : out);
    return code;
}

}  // namespace trevandix
