#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace trevandix {

/// One row: the key of the tree node it stands for, its text and the texts of the columns after the first.
struct ListRow {
    std::string key;
    std::string text;
    std::string_view smallIcon;  ///< image name of the tree's image list; static storage
    std::string_view largeIcon;  ///< image name of the list's image list; static storage
    std::vector<std::string> subItems;
};

struct ListColumn {
    std::string header;
    double width = 0;  ///< fraction of the list's width; 0 for the control's default width
};

enum class ListMode { Icon = 0, SmallIcon = 1, List = 2, Report = 3 };

/// What the user has made of the rows shown: which are selected, which has the keyboard, and which is the
/// topmost. Positions of rows.
struct ListPlace {
    std::vector<std::size_t> selected;  ///< ascending
    std::optional<std::size_t> focused;
    std::optional<std::size_t> top{};  ///< nothing where rows do not stand in lines
    int left = 0;                      ///< scrolled sideways, in the display's own unit
};

/// The control that shows a list; it asks for rows when it draws them, so no row is ever copied into it.
class ListDisplay {
public:
    virtual ~ListDisplay() = default;
    /// Rows, order or mode are other ones, and the columns too where `columns` says so. Afterwards nothing is
    /// selected and the first row is scrolled to.
    virtual void contentsChanged(bool columns) = 0;
    virtual ListPlace place() const = 0;
    /// Follows `contentsChanged` where rows are shown that were there before.
    virtual void restore(const ListPlace& place) = 0;
    virtual void rowChanged(std::size_t row) = 0;
    virtual void setVisible(bool visible) = 0;
    /// Positions of the selected rows, ascending.
    virtual std::vector<std::size_t> selectedRows() const = 0;
    /// The row that the keyboard is on, when it is selected.
    virtual std::optional<std::size_t> currentRow() const = 0;
    virtual void selectAll() = 0;
};

/// The list of the main window: columns, rows and their order. The display shows them.
class ListView {
public:
    /// The display, or nullptr. Not owned.
    void setDisplay(ListDisplay* display) { display_ = display; }

    /// Removes all rows and columns, to show the contents of `subject`. Where that is what was shown before,
    /// rows keep their selection, the keyboard and the scroll position by their keys.
    void begin(std::string_view subject);
    /// Removes all rows and columns; nothing is kept.
    void clear();
    void addColumn(std::string_view header, double width = 0);
    /// The row's place is settled when the update ends, where rows are sorted.
    void addRow(ListRow row);
    void reserve(std::size_t rows) { rows_.reserve(rows); }

    const std::vector<ListColumn>& columns() const { return columns_; }
    const std::vector<ListRow>& rows() const { return rows_; }
    /// The text at a column counted from 0; empty where the row has none.
    std::string_view cell(std::size_t row, std::size_t column) const;
    /// For a row whose record has got another key.
    void setKey(std::size_t row, std::string_view key) { rows_.at(row).key = key; }
    /// The same for the row of this key, if there is one.
    void changeKey(std::string_view from, std::string_view to);
    void setCell(std::size_t row, std::size_t column, std::string_view text);

    void setMode(ListMode mode);
    ListMode mode() const { return mode_; }
    void setVisible(bool visible);
    bool visible() const { return visible_; }

    /// Ascending by the texts of a column, ignoring case; rows of equal text keep their order.
    void sortBy(std::size_t column);
    /// Rows already shown stay where they are when sorting is turned off.
    void setSorted(bool sorted);
    bool sorted() const { return sorted_; }
    std::size_t sortKey() const { return sortKey_; }

    std::vector<std::size_t> selectedRows() const;
    std::optional<std::size_t> currentRow() const;
    void selectAll();

    /// Changes made while one lives reach the display once, at its end.
    class Update {
    public:
        explicit Update(ListView& list) : list_(list) { ++list_.updates_; }
        ~Update();
        Update(const Update&) = delete;
        Update& operator=(const Update&) = delete;

    private:
        ListView& list_;
    };

private:
    /// What the user has made of rows, by their keys.
    struct Kept {
        std::unordered_set<std::string> selected;
        std::string focused;
        std::string top;
        ListPlace place;
    };
    void aboutToChange();
    void changed();
    void sortRows();
    void restorePlace();

    ListDisplay* display_ = nullptr;
    std::vector<ListColumn> columns_;
    std::vector<ListRow> rows_;
    ListMode mode_ = ListMode::Report;
    bool visible_ = false;
    bool sorted_ = false;
    bool dirty_ = false;
    bool columnsChanged_ = false;
    int updates_ = 0;
    std::optional<Kept> kept_;  // from the first change on, until the display has been told
    std::optional<std::string> subject_;
    std::size_t sortKey_ = 0;
};

}  // namespace trevandix
