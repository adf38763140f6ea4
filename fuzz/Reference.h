#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace trevandix::testing {

/// A user action. `verb` is a command, or click, edit (double click), expand, collapse, drag or copy with a
/// node's `key`, or rows, editRow, sort, focus, find, next, endFind, undo or redo. Depending on the verb,
/// `arg` is the target, the rows, the header, the view, the text to find, the clipboard or the file.
/// `entries` go into the dialog. `answers` are for the questions: y, n or c.
struct Step {
    std::string verb;
    std::string key{};
    std::string arg{};
    std::vector<std::string> entries{};
    std::string answers{};
    std::string told() const;
};

/// A second implementation of the editor's rules in maps and vectors, written for simplicity. Can be copied
/// to save its state.
class Reference {
public:
    using Texts = std::vector<std::string>;
    using Record = std::map<std::string, std::string>;  // texts by field name
    struct Node {
        std::string key, text, tag, image, selectedImage;
        bool expanded = false, sorted = false;
        int parent = 0;
        std::vector<int> children{};
    };
    struct Row {
        std::string key, icon;
        Texts cells;
    };
    /// An open dialog: its controls by name.
    struct Box {
        std::string text{};
        Texts items{};
        bool on = true, checked = false;
    };
    struct Sheet {
        std::string name;
        bool edit = false;
        std::map<std::string, Box> boxes{};
        bool open = true, panel = false;
        std::string oldKey{};
        Record old{};
        std::string& text(const std::string& box) { return boxes.at(box).text; }
    };

    /// `folder` ends with a separator.
    explicit Reference(std::string folder) : folder_(std::move(folder)) {}

    void apply(const Step& step);
    /// Everything that the user sees, and the messages since the step began. `seenIn` returns the same lines
    /// for the editor.
    Texts seen() const;

    /// The lines of its file, sorted because the order of siblings is no change. Empty if it cannot be
    /// written.
    Texts content();

    // State that the choice of the next step depends on.
    std::vector<int> order() const;
    const Node& node(int id) const { return nodes_.at(id); }
    int find(const std::string& key) const;
    int selected() const { return selected_; }
    std::size_t rowCount() const { return rows_.size(); }
    const Row& row(std::size_t row) const { return rows_.at(row); }
    const std::vector<std::size_t>& selectedRows() const { return selectedRows_; }
    bool treeVisible() const { return treeVisible_; }
    bool enabled(const std::string& command) const;
    bool canUndo() const { return !done_.empty(); }
    bool canRedo() const { return !undone_.empty(); }
    /// False for a file with texts that a parser may take for markup; other tests cover these.
    bool readable(const std::string& name) const {
        return files_.contains(folder_ + name) && !doubtful_.contains(folder_ + name);
    }

private:
    struct Failure {
        int number;
        std::string procedure{};
    };
    using Body = std::function<void()>;
    using Entry = std::pair<std::string, int>;  // key and record

    /// What Undo goes back to.
    struct State {
        std::map<int, Node> nodes;
        std::map<std::string, std::vector<Entry>> collections;
        std::map<int, Record> records;
        std::map<std::string, int> counters;
        int selected, mark;
    };
    State now() const { return {nodes_, collections_, records_, counters_, selected_, mark_}; }
    std::string inFile() const;
    void beginStep();
    void endStep();
    void turn(std::vector<std::pair<State, State>>& from, std::vector<std::pair<State, State>>& to,
              State std::pair<State, State>::*aim);
    void restore(const State& state);
    void act(const Step& step);

    // Tree and collections. They throw 5 (no record), 457 (key taken in collection), 35601 (no node) and
    // 35602 (key taken in tree).
    int at(const std::string& key) const;
    int add(int parent, const std::string& key, const std::string& text, const std::string& tag,
            const std::string& image, const std::string& selectedImage);
    void place(int id);
    void remove(int id);
    void sort(int id);
    void makeVisible(int id);
    void rename(int id, const std::string& key, const std::string& text);
    bool lies(int id, int top) const;
    int below(int id, int after) const;
    std::vector<int> subtree(int top) const;
    const Entry* entry(const std::string& tag, const std::string& key) const;
    int recordAt(const std::string& tag, const std::string& key) const;
    Record& record(const std::string& tag, const std::string& key) { return records_[recordAt(tag, key)]; }
    void put(const std::string& tag, const std::string& key, int record);
    void drop(const std::string& tag, const std::string& key);
    void dropRecords(int top);
    int store(Record record);
    int addWithRecord(const std::string& tag, int record, int parent, const std::string& selectedImage);

    void guarded(const std::string& procedure, const Body& body);
    void say(const std::string& text) { log_.push_back("say " + text); }
    char ask(const std::string& text);
    void enable(const std::string& situation);
    void enableFor(int id);

    void select(int id);
    void fillList(int id);
    void addRow(const std::string& tag, const std::string& key, bool index);
    void sortRows();
    void selectRows(const std::set<std::string>& keys);
    void showAs(int mode);
    void clickList();
    void editSelected(const Texts& entries);
    void command(const Step& step);
    void addObject(const std::string& command, const Texts& entries);
    void copyItems();
    void pasteItems();
    void deleteObjects();
    void deleteRows();
    void drag(int source, int target, bool copies);
    void copyBelow(int source, int target);
    void shareRecord(int source, int target);
    void pasteTexts(bool names, const std::string& clipboard, const Texts& entries);
    void pasteNames(const Texts& lines, const std::vector<std::size_t>& rows);
    bool nameClashes(const Texts& lines, const std::vector<std::size_t>& rows) const;
    void lookFor(const std::string& text, int passed);

    void initObjects();
    char askToSave(const std::string& question, const std::string& choice);
    void newConfiguration(const std::string& choice, const Texts& entries);
    void open(const std::string& path);
    void buildRoot();
    void save(const std::string& choice);
    void saveAs(const std::string& choice);
    bool write();
    void close(const std::string& choice);
    void read(const std::string& bytes);
    std::string written(bool& plain);
    void writeBelow(int id, int depth, std::string& out, bool& plain);

    Sheet sheet(const std::string& name, bool edit, const Texts& boxes);
    void work(Sheet& sheet, const Texts& entries);
    bool enter(Sheet& sheet, const std::string& entry);
    std::string shown(const Sheet& sheet) const;
    void pressed(Sheet& sheet, const std::string& control);
    bool nameTaken(const std::string& tag, const std::string& name, bool edit);
    Sheet unitSheet(bool edit);
    Sheet typeSheet(bool edit);
    Sheet itemSheet(bool edit);
    std::string wrongUnit(Sheet& sheet) const;
    std::string wrongItem(Sheet& sheet) const;
    void confirmUnit(Sheet& sheet);
    void confirmType(Sheet& sheet);
    void confirmBranch(Sheet& sheet);
    bool confirmItem(Sheet& sheet);
    void replace(const std::string& tag, const std::string& oldKey, Record record);
    void chooseTable(Sheet& sheet);
    void chooseLabel(Sheet& sheet);
    void presetType(Sheet& sheet);
    void addAndIncrement(Sheet& sheet);
    void addOne(Sheet& sheet);
    void addGroup(Sheet& sheet);

    /// What a record is to become. `node` is that of an item; see also `intendCopies`.
    struct Intended {
        Record record;
        std::string tag;
        int node;
        bool refused;
    };
    Record itemTexts(const Record& item) const;
    int unitAround(int id) const;
    std::vector<int> chosen() const;
    void changeItems(const Texts& entries);
    void offerValues(Sheet& sheet);
    void chooseLabelOfMany(Sheet& sheet);
    void intendChanges(Sheet& sheet);
    static void number(Record& fields, std::pair<int, int>& place);
    void intendChange(int id, const Record& old, const Record& before, Record fields, bool elementsGiven);
    void refuseTakenNames();
    bool preview(const Texts& entries, const std::string& one, const std::string& what);
    void applyChanges();
    void duplicate(const Texts& entries);
    void intendCopies(Sheet& sheet);
    std::string takenInCapitals(const Node& container, const std::string& name) const;
    std::string wrongCopy(Sheet& sheet, int copy, const std::string& name,
                          const std::set<std::string>& identifiers, Record& made);

    std::string folder_;
    std::map<int, Node> nodes_;  // numbered in order of addition
    int nextNode_ = 1, root_ = 0, selected_ = 0, highlight_ = 0;
    std::map<std::string, std::vector<Entry>> collections_;
    std::map<int, Record> records_;
    std::string kind_ = "TrevandixTcpIp", path_;
    bool open_ = false, saved_ = false, treeVisible_ = false, panelVisible_ = false;
    std::map<std::string, int> counters_;
    int pasteCounter_ = 1;
    std::vector<int> buffer_{-1};
    std::string enabled_ = "start", focus_ = "none";
    bool listVisible_ = false, listSorted_ = false;
    std::size_t sortKey_ = 0;
    int mode_ = 3;
    std::optional<std::string> subject_;
    Texts columns_;
    std::vector<Row> rows_;
    std::vector<std::size_t> selectedRows_;
    bool finding_ = false;
    int matches_ = 0;
    bool added_ = false;                        // the dialog's result
    std::vector<int> bulk_;                     // what a bulk change is about
    std::vector<Intended> intended_;            // and what it would do
    std::map<std::string, std::string> files_;  // content by path
    std::set<std::string> doubtful_;
    std::string wrote_, answers_;
    Texts log_;
    // Steps to undo and to redo, each with what was before and after it. A mark tells states that a file
    // would tell apart.
    std::vector<std::pair<State, State>> done_, undone_;
    State begun_{};
    std::string begunInFile_;
    bool touched_ = false;
    int mark_ = 0, lastMark_ = 0, savedMark_ = -1;
    std::map<int, std::pair<bool, bool>> seen_;  // expanded and sorted, of nodes that are gone
};

Reference::Texts pieces(const std::string& text, const std::string& separator);

}  // namespace trevandix::testing
