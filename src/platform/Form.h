#pragma once

#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ListContents.h"
#include "platform/MapContents.h"

namespace trevandix {

enum class ControlKind {
    Heading,  ///< a line of text
    Text,     ///< one-line text box with label
    Choice,   ///< drop-down list without typed text
    Combo,    ///< drop-down list with typed text
    Check,
    Option,  ///< radio button; exclusive within its frame
    Button,
    Frame,  ///< box around the controls that name it
    Grid,   ///< read-only cells; the first row is the header
    List,   ///< rows of a ListContents, of which the user can select several
    Map,    ///< a MapContents, drawn
    Note,   ///< read-only text of several lines; only screen readers get its caption
};

/// Which typed or pasted characters a text box accepts.
enum class KeyFilter { None, Numeric, ItemName };

/// True when the filter accepts the character.
bool keeps(KeyFilter filter, char32_t character);
/// The part of a typed or pasted text that a one-line box accepts: up to the first line break or TAB, without
/// the characters that the filter discards.
std::string entered(KeyFilter filter, std::string_view text);

/// The text behind a one-line box. A stored text may contain characters that the box cannot show; it is
/// returned unchanged until the user edits the box.
class BoxText {
public:
    /// The text as the box shows it, with line breaks and TABs replaced by blanks.
    static std::string oneLine(std::string_view text);
    /// `shown` is the text of the box afterwards.
    void set(std::string_view text, std::string_view shown) {
        text_ = text;
        shown_ = shown;
    }
    /// `shown` is the present text of the box.
    const std::string& text(const std::string& shown) const { return shown == shown_ ? text_ : shown; }

private:
    std::string text_;
    std::string shown_;
};

/// Position of a control relative to the one before it in the table.
enum class Place { NextRow, SameRow, ButtonRow, ButtonColumn };

/// One control of a form. The order of the table is the reading and tab order.
struct ControlSpec {
    ControlKind kind;
    std::string_view name;
    std::string_view caption{};  ///< on the control or its label; "&" marks the access key
    std::string_view frame{};    ///< name of the enclosing frame; empty for the form itself
    Place place = Place::NextRow;
    int columns = 24;  ///< width of a field, in average characters
    KeyFilter filter = KeyFilter::None;
    std::string_view labelName{};    ///< name of the label if it is enabled or shown by itself
    std::string_view description{};  ///< purpose in a few words, for screen readers

    constexpr ControlSpec describedAs(std::string_view text) const {
        ControlSpec described = *this;
        described.description = text;
        return described;
    }
};

struct FormSpec {
    std::string_view name;
    std::string_view caption;
    std::span<const ControlSpec> controls;
    /// Pressed by Enter. While it is disabled or hidden, Enter presses the button in the frame that has the
    /// focus.
    std::string_view defaultButton;
    /// Pressed by Escape. If it is empty, disabled or hidden, Escape closes a frame that has a handler, else
    /// the form.
    std::string_view cancelButton;
    std::string_view initialFocus;  ///< empty for the first control
    bool modeless = false;          ///< shown beside the main window, not in front of the active one
};

/// Gives the captions of one form access keys (A to Z, 0 to 9) that do not clash.
class AccessKeys {
public:
    /// Reserves the key that the caption already marks with "&".
    void reserve(std::string_view caption);
    /// The caption with a free letter marked, preferably the first of a word. Unchanged when it already has a
    /// mark or no letter is free. `previous` is the control's old key, which becomes free; 0 for none.
    std::string marked(std::string_view caption, char previous = 0);

    /// The letter behind "&" in upper case, or 0. "&&" stands for the character itself.
    static char keyOf(std::string_view caption);

private:
    std::set<char> used_;
};

/// What the user does in a List besides selecting rows. What has no handler does nothing.
struct ListHandlers {
    std::function<void()> open{};                    ///< double click on a row
    std::function<void(std::size_t column)> sort{};  ///< click on a header
    std::function<void()> copy{};                    ///< Ctrl+C
    std::function<void()> move{};                    ///< another row has the focus
};

/// One window built from a table. Controls have the names of the table; texts are UTF-8. Errors:
/// ElementNotFound for an unknown name.
class Form {
public:
    using Handler = std::function<void()>;

    virtual ~Form() = default;

    /// The text of a field, the chosen entry of a list, or the caption of any other control.
    virtual std::string text(std::string_view name) const = 0;
    /// Sets the text without calling a handler. A Choice without this entry has none chosen afterwards.
    virtual void setText(std::string_view name, std::string_view text) = 0;
    virtual void setItems(std::string_view name, const std::vector<std::string>& items) = 0;
    virtual std::vector<std::string> items(std::string_view name) const = 0;
    /// The control's own state, even while its frame is disabled.
    virtual bool enabled(std::string_view name) const = 0;
    /// Enables or disables a field and its label, a frame and its contents, or a label by its own name.
    virtual void setEnabled(std::string_view name, bool enabled) = 0;
    virtual bool visible(std::string_view name) const = 0;
    virtual void setVisible(std::string_view name, bool visible) = 0;
    virtual bool checked(std::string_view name) const = 0;
    virtual void setChecked(std::string_view name, bool checked) = 0;
    /// Moves the focus to the control; selects the text of a text box.
    virtual void setFocus(std::string_view name) = 0;
    virtual void setCells(std::string_view name, const std::vector<std::vector<std::string>>& rows) = 0;

    /// Shows `contents`, which must outlive the form, in a List.
    virtual void connectList(std::string_view name, const ListContents& contents, ListHandlers handlers) = 0;
    /// The rows of a List have changed; selection, focus and scroll position shall be these.
    virtual void refreshList(std::string_view name, const ListPlace& place) = 0;
    virtual ListPlace listPlace(std::string_view name) const = 0;
    /// Shows `contents`, which must outlive the form, in a Map.
    virtual void connectMap(std::string_view name, const MapContents& contents, MapHandlers handlers) = 0;
    /// What a Map shows has changed. Scrolls to the current place, if that is another one now.
    virtual void refreshMap(std::string_view name) = 0;

    /// Called when the user presses a button, check box or option, or chooses an entry of a list. For a
    /// frame: on Escape while the frame is visible and the cancel button cannot be pressed.
    virtual void on(std::string_view name, Handler handler) = 0;
    /// Called when the user or `close` has closed the form.
    virtual void onClosed(Handler handler) = 0;
    /// Called when the form becomes the active window.
    virtual void onActivated(Handler handler) = 0;

    /// Shows the form and returns when it is closed. All other windows are disabled meanwhile.
    virtual void showModal() = 0;
    /// Shows the form beside the main window, or raises it, and returns at once.
    virtual void showModeless() = 0;
    virtual void close() = 0;
};

class Forms {
public:
    virtual ~Forms() = default;
    /// `shape` must outlive the form.
    virtual std::unique_ptr<Form> create(const FormSpec& shape) = 0;
};

}  // namespace trevandix
