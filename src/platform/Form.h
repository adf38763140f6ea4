#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace trevandix {

enum class ControlKind {
    Heading,  ///< a line of text of its own
    Text,     ///< one-line text box with its label
    Choice,   ///< drop-down list that accepts only its entries
    Combo,    ///< drop-down list that accepts typed text too
    Check,
    Option,  ///< option buttons of one frame exclude each other
    Button,
    Frame,  ///< box that holds the controls naming it
    Grid,   ///< read-only cells, the first row being the header
};

/// Which typed or pasted characters a text box keeps.
enum class KeyFilter { None, Numeric, ItemName };

/// True when the filter keeps the character.
bool keeps(KeyFilter filter, char32_t character);
/// The part of a typed or pasted text that a one-line box accepts: everything before the first line break or
/// TAB, without the characters that the filter discards.
std::string entered(KeyFilter filter, std::string_view text);

/// The text behind a one-line box. A stored text may contain what such a box cannot show; it is returned
/// unchanged until the user edits the box.
class BoxText {
public:
    /// The text with line breaks and TABs as blanks, as the box shows it.
    static std::string oneLine(std::string_view text);
    /// `shown` is what the box then holds.
    void set(std::string_view text, std::string_view shown) {
        text_ = text;
        shown_ = shown;
    }
    /// `shown` is what the box holds now.
    const std::string& text(const std::string& shown) const { return shown == shown_ ? text_ : shown; }

private:
    std::string text_;
    std::string shown_;
};

/// Where a control goes, seen from the one before it in the table.
enum class Place { NextRow, SameRow, ButtonRow, ButtonColumn };

/// One control of a form. The order of the table is the order of reading and of the Tab key.
struct ControlSpec {
    ControlKind kind;
    std::string_view name;
    std::string_view caption{};  ///< on the control, or the label in front of it; "&" marks the access key
    std::string_view frame{};    ///< name of the frame that holds it; empty for the form itself
    Place place = Place::NextRow;
    int columns = 24;  ///< width of the field, in average characters
    KeyFilter filter = KeyFilter::None;
    std::string_view labelName{};    ///< name of the label, where it is switched apart from its field
    std::string_view description{};  ///< what it is for, in a few words that a screen reader says

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
    /// Pressed by Enter. While it is out of reach, Enter presses the button of the frame that has the
    /// keyboard.
    std::string_view defaultButton;
    /// Pressed by Escape. Empty, or out of reach, Escape only closes the form, or a frame with a handler.
    std::string_view cancelButton;
    std::string_view initialFocus;  ///< empty for the first control
};

/// One window made from a table. Controls are named as in the table; texts are UTF-8.
/// Errors: ElementNotFound for a name that the table does not have.
class Form {
public:
    using Handler = std::function<void()>;

    virtual ~Form() = default;

    /// The text of a field, the chosen entry of a list, the caption of a button, check box, option, label or
    /// heading.
    virtual std::string text(std::string_view name) const = 0;
    /// Sets it without running a handler. A Choice whose list lacks the text has nothing chosen afterwards.
    virtual void setText(std::string_view name, std::string_view text) = 0;
    virtual void setItems(std::string_view name, const std::vector<std::string>& items) = 0;
    virtual std::vector<std::string> items(std::string_view name) const = 0;
    /// The control's own switch, whatever that of the frame around it.
    virtual bool enabled(std::string_view name) const = 0;
    /// Switches a field together with its label, or a frame with all it holds; a label by its own name.
    virtual void setEnabled(std::string_view name, bool enabled) = 0;
    virtual bool visible(std::string_view name) const = 0;
    virtual void setVisible(std::string_view name, bool visible) = 0;
    virtual bool checked(std::string_view name) const = 0;
    virtual void setChecked(std::string_view name, bool checked) = 0;
    /// Puts the keyboard into the control, a text box with its text selected.
    virtual void setFocus(std::string_view name) = 0;
    virtual void setCells(std::string_view name, const std::vector<std::vector<std::string>>& rows) = 0;

    /// A press of a button, check box or option; an entry chosen in a list by the user; Escape for a frame
    /// that is shown while the cancel button is out of reach.
    virtual void on(std::string_view name, Handler handler) = 0;
    /// The form is closed by its title bar or Escape where there is no cancel button, or has been closed by
    /// `close`.
    virtual void onClosed(Handler handler) = 0;
    /// The form has become the active window.
    virtual void onActivated(Handler handler) = 0;

    /// Shows the form and returns when it is closed. Everything else is out of reach meanwhile.
    virtual void showModal() = 0;
    /// Shows the form beside the main window, or brings it to the front, and returns at once.
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
