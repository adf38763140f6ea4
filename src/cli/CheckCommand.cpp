#include <nlohmann/json.hpp>

#include "check/Check.h"
#include "cli/Commands.h"
#include "cli/Files.h"

namespace trevandix {

namespace {

using Json = nlohmann::ordered_json;

void print(const Console& console, const std::string& file, const Finding& finding) {
    const Severity severity = finding.rule->severity;
    std::string word(severityName(severity));
    if (severity == Severity::Error) word = coloured(console, Colour::Red, word);
    if (severity == Severity::Warning) word = coloured(console, Colour::Yellow, word);
    std::string line = escaped(file) + ": " + word + ": ";
    if (!finding.object.empty()) line += escaped(finding.object) + ": ";
    console.out.write(line.append(finding.rule->name) + ": " + escaped(finding.text) + "\n");
}

Json jsonOf(const Finding& finding) {
    return {{"severity", severityName(finding.rule->severity)},
            {"object", finding.object.view()},
            {"rule", finding.rule->name},
            {"text", finding.text}};
}

Json jsonOfRules() {
    Json all = Json::array();
    for (const Rule& rule : rules())
        all.push_back({{"rule", rule.name}, {"severity", severityName(rule.severity)}});
    return all;
}

}  // namespace

ExitCode CheckCommand::run(const Console& console, XmlParser& parser) const {
    const bool asJson = format == "json";
    ExitCode code = kNothingFound;
    FindingCounts total;
    Json results = Json::array();
    for (const std::string& file : files) {
        Json result{{"file", file}};
        try {
            std::string skipped;
            const std::vector<Finding> findings = check(readFile(parser, file, &skipped)).value();
            warnOfSkipped(console, file, skipped, false, false);
            const FindingCounts counts = countFindings(findings);
            total.errors += counts.errors;
            total.warnings += counts.warnings + (skipped.empty() ? 0 : 1);
            if (!skipped.empty()) result["skipped"] = skipped;
            result["findings"] = Json::array();
            for (const Finding& finding : findings) {
                if (asJson)
                    result["findings"].push_back(jsonOf(finding));
                else
                    print(console, file, finding);
            }
        } catch (const CommandError& error) {
            complain(console, error.what());
            result["unreadable"] = error.what();
            code = kFailed;
        }
        if (asJson) results.push_back(std::move(result));
    }
    if (asJson) {
        const Json all{{"rules", jsonOfRules()},
                       {"files", std::move(results)},
                       {"errors", total.errors},
                       {"warnings", total.warnings}};
        const auto lossy = Json::error_handler_t::replace;
        console.out.write(escaped(all.dump(-1, ' ', false, lossy)) + "\n");
    }
    if (code == kFailed) return code;
    return total.errors > 0 || (strict && total.warnings > 0) ? kFound : kNothingFound;
}

}  // namespace trevandix
