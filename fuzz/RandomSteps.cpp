#include "RandomSteps.h"

#include <algorithm>
#include <random>

namespace trevandix::testing {

namespace {

// Relative frequencies.
const std::vector<std::pair<std::string, unsigned>> kVerbs{
    {"click", 80},        {"edit", 40},        {"rows", 110},        {"editRow", 12},
    {"collapse", 4},      {"expand", 4},       {"sort", 6},          {"drag", 24},
    {"copy", 24},         {"focus", 6},        {"find", 6},          {"next", 6},
    {"endFind", 2},       {"mnuFind", 4},      {"mnuAddMBType", 30}, {"mnuAddPlc", 30},
    {"mnuAddBranch", 50}, {"mnuAddItem", 120}, {"mnuCopy", 24},      {"mnuCut", 6},
    {"mnuPaste", 32},     {"mnuDelete", 12},   {"mnuPasteName", 40}, {"mnuPasteComment", 16},
    {"mnuIcon", 2},       {"mnuSmallIcon", 2}, {"mnuList", 2},       {"mnuReport", 2},
    {"mnuNewCfg", 1},     {"mnuOpenCfg", 4},   {"mnuSaveCfg", 6},    {"mnuSaveAs", 3},
    {"mnuCloseCfg", 1},   {"undo", 50},        {"redo", 30}};

// Of users who change many objects at once, and what they begin with.
const std::vector<std::pair<std::string, unsigned>> kBulkVerbs{{"click", 40},
                                                               {"rows", 40},
                                                               {"focus", 10},
                                                               {"sort", 4},
                                                               {"copy", 6},
                                                               {"drag", 4},
                                                               {"edit", 10},
                                                               {"undo", 20},
                                                               {"redo", 10},
                                                               {"mnuAddItem", 10},
                                                               {"mnuAddBranch", 6},
                                                               {"mnuDelete", 10},
                                                               {"mnuChangeItems", 120},
                                                               {"mnuDuplicate", 40},
                                                               {"mnuPasteName", 10}};
const std::vector<Step> kPlant{
    {"mnuNewCfg", "", "one.xml", {"cmdOk"}},
    {"mnuAddPlc", "", "", {"txtName=A", "cmdOk"}},
    {"mnuAddBranch", "", "", {"txtBranchName=B", "cmdOk"}},
    {"click", "ModBus"},
    {"mnuAddMBType", "", "", {"cmbMBType=coil", "cmdOk"}},
    {"mnuAddMBType", "", "", {"cmbMBType=input register", "cmdOk"}},
    {"mnuAddMBType", "", "", {"cmbMBType=holding register", "cmdOk"}},
    {"click", "A.B"},
    {"mnuAddItem",
     "",
     "",
     {"cmbModbusType=holding register", "cmbDataType=signed 16 bit", "cmbAccessRight=READ", "txtAddress=10",
      "txtItemName=n1", "cmdGroup", "txtNumbItems=3", "cmdOkNumber", "cmbDataType=string", "txtElements=5",
      "txtItemName=N2", "txtComment=pump 1", "cmdOk"}},
    {"click", "A"},
    {"mnuAddItem",
     "",
     "",
     {"cmbModbusType=coil", "cmbDataType=boolean", "cmbAccessRight=READWRITE", "txtAddress=0",
      "txtItemName=a", "cmdAdd", "txtItemName=b1", "cmdOk"}}};

const Texts kRowVerbs{"mnuCopy",         "mnuCopy", "mnuPasteName", "mnuPasteName",
                      "mnuPasteComment", "mnuCut",  "sort",         "rows"};

/// What to type or choose in a field, and how often out of eight times.
struct Entries {
    std::string field;
    unsigned often;
    Texts texts;
};
const Texts kNames{"A",  "a",          "A.B",           "B",  "B.A", "tag", "",   "ModBus", "coil", "x&y",
                   "A ", "New_Item_1", "Copied_Item_1", "N1", "N2",  "N3",  "N4", "n1",     "n2",   "n3",
                   "n4", "b"};
const std::map<std::string, std::vector<Entries>> kDialogs{
    {"mnuAddPlc",
     {{"txtName", 6, kNames},
      {"txtUI", 7, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "254", "255", "-1", "abc", "2.5", ""}},
      {"txtTimeout", 1, {"3.5", "3e9", "x", ""}},
      {"txtAddress", 2, {"10.0.0.1", "host", ""}},
      {"txtPort", 3, {"COM1", "COM2", "COM2", "COM3", "COM", "com3", "COMx", ""}},
      {"cmbBaud", 2, {"9600", "19200"}},
      {"cmbParity", 1, {"NO", "ODD"}},
      {"cmbData", 1, {"8", "7 bits", "x"}},
      {"cmbStop", 1, {"1", "2"}},
      {"cmbFlow", 1, {"NONE", "HARDWARE"}},
      {"txtSilent", 1, {"2.5", "1ms", "", "20"}}}},
    {"mnuAddMBType",
     {{"cmbMBType", 7, {"input status", "coil", "input register", "holding register"}},
      {"txtReadCode", 2, {"3.5", "2.5", "x", "300", ""}},
      {"txtWriteCode", 2, {"0", "7", "", "-1"}},
      {"chkSingle", 2, {}},
      {"txtSingleCode", 2, {"0", "9", "x"}}}},
    {"mnuAddBranch", {{"txtBranchName", 6, kNames}}},
    {"mnuAddItem",
     {{"txtItemName", 6, kNames},
      {"txtComment", 4, {"pump", "", "a  b", "x<y"}},
      {"cmbModbusType",
       7,
       {"input status", "coil", "input register", "holding register", "holding register"}},
      {"cmbDataType",
       7,
       {"boolean", "boolean", "boolean array", "string", "signed 16 bit", "32 bit float",
        "unsigned 8 bit array", "signed 32 bit array", "unsigned 16 bit array"}},
      {"txtAddress", 7, {"0", "1", "7", "99", "100", "40000", "40", "300", "65535", "65536", "-1", ""}},
      {"cmbBit", 3, {"0", "3", "15"}},
      {"txtElements", 3, {"1", "2", "3", "5", "8", "20", "-1", "", "40000"}},
      {"cmbAccessRight", 7, {"READ", "READ", "READ", "WRITE", "READWRITE"}}}},
    {"mnuChangeItems",
     {{"cmbModbusType", 2, {"input status", "coil", "input register", "holding register"}},
      {"cmbDataType", 2, {"boolean", "boolean array", "string", "signed 16 bit", "32 bit float"}},
      {"txtElements", 1, {"3", "5", "-1", "", "40000"}},
      {"cmbAccessRight", 1, {"READ", "WRITE"}},
      {"txtComment", 1, {"pump", "", "x<y"}},
      {"txtMove", 2, {"1", "-1", "100", "70000"}},
      {"txtStart", 2, {"0", "10", "65530"}},
      {"cmbBit", 1, {"3", "15"}},
      {"cmbWhere", 2, {"Comments"}},
      {"txtFind", 5, {"a", "N", "n1", "1", "2", "N2"}},
      {"txtReplace", 6, {"2", "n2", "", "N", "b c", "1"}},
      {"chkCase", 4, {}}}},
    {"mnuDuplicate",
     {{"txtName", 3, kNames},
      {"txtUI", 2, {"1", "3", "7", "250", "255", "-1", "abc", ""}},
      {"txtMove", 4, {"1", "10", "-1", "70000", ""}},
      {"txtCopies", 2, {"2", "3", "0", ""}}}},
    {"mnuNewCfg", {{"optRTU", 4, {}}}}};
const std::vector<Texts> kEndings{{"cmdOk"}, {"cmdOk"}, {"cmdOk"},     {"cmdOk"},
                                  {"cmdOk"}, {"cmdOk"}, {"cmdCancel"}, {"cmdOk", "cmdCancel"},
                                  {}};
const std::vector<Texts> kItemEndings{{"cmdAdd", "cmdOk"},
                                      {"cmdAdd", "cmdAdd", "cmdCancel"},
                                      {"cmdGroup", "txtNumbItems=3", "cmdOkNumber", "cmdCancel"},
                                      {"cmdGroup", "txtNumbItems=2.5", "cmdOkNumber", "cmdOk"},
                                      {"cmdGroup", "txtNumbItems=x", "cmdOk", "cmdOkNumber", "cmdOk"},
                                      {"cmdGroup", "txtNumbItems=", "cmdOkNumber", "cmdOk"}};
const std::vector<Texts> kBulkEndings{{"cmdOk", "Only", "Confirm"},
                                      {"cmdOk", "Only", "Confirm"},
                                      {"cmdOk", "Confirm"},
                                      {"cmdOk"},
                                      {"cmdCancel"}};
const Texts kEdited{"mnuAddPlc", "mnuAddMBType", "mnuAddItem", "mnuAddItem"};
const Texts kFiles{"one.xml", "two.xml", "TrevandixTcpIp.xml", "TrevandixRTU.xml"};
const Texts kLines{"A", "a", "B", "N1", "N2", "N3", "n1", "n2", "n3", " x ", "b c", "B.A", "", "coil"};
const Texts kSought{"a", "N", "new", "mod", "", "co", "zz"};

/// Chooses the next step from what the reference shows.
class User {
public:
    User(const Choice& choice, const Reference& reference, bool careless, bool bulk)
        : choice_(choice), reference_(reference), careless_(careless), bulk_(bulk) {}

    Step next() {
        if (!reference_.treeVisible()) return file(choice_(3) == 0 ? "mnuOpenCfg" : "mnuNewCfg");
        // Who takes back something often goes on with it. A click may sort what an Undo puts back into.
        if (undoing_ && often(bulk_ ? 3 : 6)) {
            if (often(1)) return {"click", anyKey()};
            return {often(4) ? "undo" : "redo"};
        }
        undoing_ = false;
        for (int tries = 0; tries < 8; ++tries) {
            // With rows selected, prefers a command for rows.
            const bool rows = !bulk_ && reference_.selectedRows().size() > 0 && often(4);
            Step step{rows ? one(kRowVerbs) : verb()};
            if (!reference_.enabled(step.verb)) continue;
            complete(step);
            undoing_ = step.verb == "undo";
            return step;
        }
        return {"click", anyKey()};
    }

private:
    template <typename Values>
    typename Values::value_type one(const Values& values) {
        return values[choice_(static_cast<unsigned>(values.size()))];
    }
    bool often(unsigned ofEight) { return choice_(8) < ofEight; }

    std::string verb() {
        const auto& verbs = bulk_ ? kBulkVerbs : kVerbs;
        unsigned all = 0;
        for (const auto& [name, weight] : verbs) all += weight;
        unsigned rest = choice_(all);
        for (const auto& [name, weight] : verbs) {
            if (rest < weight) return name;
            rest -= weight;
        }
        return "click";
    }

    // Sometimes chooses the kind of node first, so that rare kinds get their share.
    std::string anyKey() {
        std::vector<int> ids = reference_.order();
        const std::string tag = one(Texts{"config", "modbus", "datatype", "plc", "branch", "item"});
        const auto other = [&](int id) { return reference_.node(id).tag != tag; };
        if (often(3) && !std::ranges::all_of(ids, other)) std::erase_if(ids, other);
        return reference_.node(one(ids)).key;
    }

    void complete(Step& step) {
        const std::string& verb = step.verb;
        if (verb == "click" || verb == "expand" || verb == "collapse") step.key = anyKey();
        if (verb == "drag" || verb == "copy") drag(step);
        if (verb == "edit") {
            step.key = anyKey();
            step.entries = entries(dialogOf(reference_.find(step.key)));
        }
        if (verb == "rows" || verb == "editRow") {
            const bool alone = verb == "editRow";
            for (std::size_t row = 0; row < reference_.rowCount(); ++row)
                if (alone ? row == choice_(static_cast<unsigned>(reference_.rowCount())) : often(5))
                    step.arg += (step.arg.empty() ? "" : " ") + std::to_string(row);
            if (alone) step.entries = entries(one(kEdited));
        }
        if (verb == "sort") step.arg = std::to_string(choice_(7));
        if (verb == "focus") step.arg = one(Texts{"list", "tree", "tree", "none"});
        if (verb == "find" || verb == "next") step.arg = one(kSought);
        if (kDialogs.contains(verb)) step.entries = entries(verb);
        if (verb.starts_with("mnuPaste") && verb != "mnuPaste") bulkPaste(step);
        if (verb == "mnuDelete" || verb == "mnuCut") step.answers = often(2) ? "n" : "";
        if (verb.ends_with("Cfg") || verb == "mnuSaveAs") step = file(verb);
    }

    static std::string dialogName(const std::string& tag) {
        return tag == "plc"        ? "mnuAddPlc"
               : tag == "datatype" ? "mnuAddMBType"
               : tag == "branch"   ? "mnuAddBranch"
                                   : "mnuAddItem";
    }
    std::string dialogOf(int id) { return dialogName(reference_.node(id).tag); }

    Texts entries(const std::string& dialog) {
        Texts made;
        for (const Entries& each : kDialogs.at(dialog))
            if (often(each.often))
                made.push_back(each.texts.empty() ? each.field : each.field + "=" + one(each.texts));
        const bool item = dialog == "mnuAddItem";
        const bool bulk = dialog == "mnuChangeItems" || dialog == "mnuDuplicate";
        for (const std::string& each : bulk              ? one(kBulkEndings)
                                       : item&& often(3) ? one(kItemEndings)
                                                         : one(kEndings))
            made.push_back(each);
        return made;
    }

    void drag(Step& step) {
        const std::string tag = reference_.node(reference_.find(step.key = anyKey())).tag;
        step.arg = anyKey();
        if (!careless_ && tag != "item" && tag != "branch") step.key = step.arg;
    }

    void bulkPaste(Step& step) {
        std::size_t lines = reference_.selectedRows().size();
        const bool exchange = lines > 0 && often(4);
        if (often(1)) lines = choice_(4);
        for (; lines > 0; --lines) {
            step.arg += exchange ? reference_.row(one(reference_.selectedRows())).cells[0] : one(kLines);
            step.arg += lines > 1 || often(4) ? "\r\n" : "";
        }
        step.entries = {often(6) ? "Command2" : "Command1"};
    }

    Step file(const std::string& verb) {
        Step step{verb};
        step.arg = often(1) ? "" : one(kFiles);
        if (verb == "mnuOpenCfg") {
            if (!reference_.readable(step.arg)) step.arg.clear();
            step.answers = "n";  // a Yes could overwrite the file before it is opened
            return step;
        }
        for (unsigned answers = choice_(4); answers > 0; --answers) step.answers += one(std::string("yyync"));
        if (verb == "mnuNewCfg") {
            step.entries = entries(verb);
            std::erase_if(step.entries,
                          [](const std::string& each) { return each != "optRTU" && each != "cmdOk"; });
        }
        return step;
    }

    const Choice& choice_;
    const Reference& reference_;
    bool careless_;
    bool bulk_;
    bool undoing_ = false;
};

std::string differenceOf(const std::vector<Step>& steps) {
    Desk desk;
    for (const Step& step : steps)
        if (std::string difference = desk.apply(step); !difference.empty()) return difference;
    return {};
}

}  // namespace

namespace {

Walk walkAs(const Choice& choice, std::size_t most, bool careless, bool bulk) {
    Desk desk;
    User user(choice, desk.reference(), careless, bulk);
    Walk walked;
    const auto goOn = [&](const Step& step) {
        walked.steps.push_back(step);
        walked.difference = desk.apply(step);
    };
    for (std::size_t i = 0; i < most && walked.difference.empty(); ++i)
        goOn(bulk && i < kPlant.size() ? kPlant[i] : user.next());
    // At last everything back, and everything again.
    while (walked.difference.empty() && desk.reference().canUndo()) goOn({"undo"});
    while (walked.difference.empty() && desk.reference().canRedo()) goOn({"redo"});
    return walked;
}

}  // namespace

Walk walk(const Choice& choice, std::size_t most, bool careless) {
    return walkAs(choice, most, careless, false);
}

Walk walk(unsigned seed, std::size_t most, bool careless) {
    std::mt19937 random(seed);
    return walk([&](unsigned limit) { return static_cast<unsigned>(random() % limit); }, most, careless);
}

Walk bulkWalk(unsigned seed, std::size_t most) {
    std::mt19937 random(seed);
    return walkAs([&](unsigned limit) { return static_cast<unsigned>(random() % limit); }, most, false, true);
}

// Removes parts of the walk, long ones first, as long as a difference remains.
std::string Walk::told() const {
    if (difference.empty()) return {};
    std::vector<Step> left = steps;
    std::string found = difference;
    for (std::size_t length = left.size() / 2; length > 0; length /= 2) {
        for (std::size_t from = 0; from + length <= left.size();) {
            std::vector<Step> fewer = left;
            const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(from);
            fewer.erase(first, first + static_cast<std::ptrdiff_t>(length));
            const std::string other = differenceOf(fewer);
            if (other.empty()) {
                from += length;
            } else {
                left = fewer;
                found = other;
            }
        }
    }
    std::string text;
    for (const Step& step : left) text += step.told() + "\n";
    return text + found;
}

}  // namespace trevandix::testing
