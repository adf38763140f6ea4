#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/ListContents.h"

namespace trevandix {

/// One row: key of its tree node, text of the first column, texts of the other columns.
struct ListRow {
    std::string key;
    std::string text;
    std::string_view smallIcon;  ///< name in the tree's image list; static storage
    std::string_view largeIcon;  ///< name in the list's image list; static storage
    std::vector<std::string> subItems;
};

enum class ListMode { Icon = 0, SmallIcon = 1, List = 2, Report = 3 };

/// The control that shows a list. It asks for the rows that it draws.
class ListDisplay {
public:
    virtual ~ListDisplay() = default;
    /// Rows, order or mode have changed, and the columns if `columns`. Restores the place, or without one
    /// clears the selection and scrolls to the first row.
    virtual void contentsChanged(bool columns, const std::optional<ListPlace>& place) = 0;
    virtual ListPlace place() const = 0;
    virtual void rowChanged(std::size_t row) = 0;
    virtual void setVisible(bool visible) = 0;
    /// Selected rows, ascending.
    virtual std::vector<std::size_t> selectedRows() const = 0;
    /// The focused row, if it is selected.
    virtual std::optional<std::size_t> currentRow() const = 0;
    virtual void selectAll() = 0;
};

/// The list of the main window: columns, rows and their order. A ListDisplay shows it.
class ListView : public ListContents {
public:
    /// May be nullptr. Not owned.
    void setDisplay(ListDisplay* display) { display_ = display; }

    /// Removes all rows and columns, to show the contents of `subject`. If the same subject was shown before,
    /// rows with the same keys keep selection, focus and scroll position.
    void begin(std::string_view subject);
    /// Removes all rows and columns; keeps no selection.
    void clear();
    void addColumn(std::string_view header, double width = 0);
    /// In a sorted list the row gets its position when the update ends.
    void addRow(ListRow row);
    void reserve(std::size_t rows) { rows_.reserve(rows); }

    const std::vector<ListRow>& rows() const { return rows_; }
    const std::vector<ListColumn>& columns() const override { return columns_; }
    std::size_t rowCount() const override { return rows_.size(); }
    std::string_view cell(std::size_t row, std::size_t column) const override;
    std::string_view icon(std::size_t row) const override { return rows_[row].smallIcon; }
    std::optional<std::size_t> sortColumn() const override {
        return sorted_ ? std::optional(sortKey_) : std::nullopt;
    }
    /// Sets the key of a row whose record has been given a new key.
    void setKey(std::size_t row, std::string_view key) { rows_.at(row).key = key; }
    /// Changes the key of a row; does nothing if there is no such row.
    void changeKey(std::string_view from, std::string_view to);
    void setCell(std::size_t row, std::size_t column, std::string_view text);

    void setMode(ListMode mode);
    ListMode mode() const { return mode_; }
    void setVisible(bool visible);
    bool visible() const { return visible_; }

    /// Sorts ascending by a column, ignoring case. The sort is stable.
    void sortBy(std::size_t column);
    /// Turning sorting off leaves the rows where they are.
    void setSorted(bool sorted);
    bool sorted() const { return sorted_; }
    std::size_t sortKey() const { return sortKey_; }

    std::vector<std::size_t> selectedRows() const;
    std::optional<std::size_t> currentRow() const;
    void selectAll();

    /// Groups changes: the display is told once, when the outermost Update ends.
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
    /// Selection, focus and scroll position by key.
    struct Kept {
        std::unordered_set<std::string> selected;
        std::string focused;
        std::string top;
        ListPlace place;
    };
    void aboutToChange();
    void changed();
    void sortRows();
    std::optional<ListPlace> keptPlace();

    ListDisplay* display_ = nullptr;
    std::vector<ListColumn> columns_;
    std::vector<ListRow> rows_;
    ListMode mode_ = ListMode::Report;
    bool visible_ = false;
    bool sorted_ = false;
    bool dirty_ = false;
    bool columnsChanged_ = false;
    int updates_ = 0;
    std::optional<Kept> kept_;  // from the first change until the display has been told
    std::optional<std::string> subject_;
    std::size_t sortKey_ = 0;
};

}  // namespace trevandix
