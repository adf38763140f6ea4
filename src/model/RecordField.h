#pragma once

#include <concepts>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Key.h"
#include "model/Numbers.h"
#include "platform/ListView.h"
#include "platform/Xml.h"

// A record has one table of its fields, in the order of the file. Reading, mending, writing, the dialog and
// the list walk it. Here is what the tables are made of.

namespace trevandix {

/// The attribute's value. Errors: ObjectNotSet, naming element and attribute, when it is missing.
std::string_view requiredAttribute(const XmlElement& element, std::string_view name);

/// Throws ObjectNotSet, naming the element and what it lacks (an "attribute" or an "element").
[[noreturn]] void throwMissing(const XmlElement& element, std::string_view kind, std::string_view name);

/// Blank, name, equals sign and quotation mark, as the writer sets them.
std::string attributeStart(std::string_view name);

/// What the file holds of one field of a record.
struct FileField {
    std::string_view name;
    std::string text;
};

/// Appends tabs, "<name>", value, "</name>".
void appendElement(std::string& out, int tabs, std::string_view name, std::string_view value);
void appendNumber(std::string& out, int value);

/// Whether the whole text must be a number, or only its beginning. Errors: TypeMismatch (Whole), Overflow.
enum class NumberText { Whole, Leading };

template <NumberText how, typename Value>
void takeText(Value& value, std::string_view text) {
    constexpr bool kWhole = how == NumberText::Whole;
    if constexpr (std::same_as<Value, std::string>)
        value = text;
    else if constexpr (std::same_as<Value, InternedText>)
        value = InternedText(text);
    else if constexpr (std::same_as<Value, std::uint8_t>)
        value = kWhole ? byteValue(text) : toByte(leadingNumber(text));
    else if constexpr (std::same_as<Value, std::int16_t>)
        value = toInt16(leadingNumber(text));
    else
        value = kWhole ? int32Value(text) : toInt32(leadingNumber(text));
}

template <auto member, NumberText how, typename Record>
void take(Record& record, std::string_view text) {
    takeText<how>(record.*member, text);
}

/// Takes a field's text from a file; an error names the field and its text.
template <typename Record>
void takeFromFile(Record& record, void (*take)(Record&, std::string_view), std::string_view name,
                  std::string_view text) {
    try {
        take(record, text);
    } catch (const RuntimeError& failure) {
        constexpr std::size_t kMost = 64;  // a hostile text may have any length
        const std::string quoted = text.size() > kMost ? "a long text" : '"' + std::string(text) + '"';
        throw failure.with('"' + std::string(name) + "\" is " + quoted);
    }
}

template <auto member, typename Record>
void print(std::string& out, const Record& record) {
    const auto& value = record.*member;
    if constexpr (std::integral<std::remove_cvref_t<decltype(value)>>)
        appendNumber(out, value);
    else if constexpr (std::same_as<std::remove_cvref_t<decltype(value)>, InternedText>)
        out += value.str();
    else
        out += value;
}

/// A column of the list and its cell; `Parts` are what the cell is made of.
template <typename... Parts>
struct RecordColumn {
    std::string_view header{};  ///< empty for a field that the list does not show
    double width = 0;           ///< fraction of the list's width; 0 for the control's default width
    std::string (*cell)(const Parts&...) = nullptr;
};

template <auto member, typename Record, typename... More>
std::string cellOf(const Record& record, const More&...) {
    std::string text;
    print<member>(text, record);
    return text;
}

/// `column` with the member's value as its cell, unless it has a cell already.
template <auto member, typename... Parts>
constexpr RecordColumn<Parts...> withCell(RecordColumn<Parts...> column) {
    if (column.cell == nullptr) column.cell = cellOf<member, Parts...>;
    return column;
}

/// The columns of the fields that the list shows.
template <typename Fields>
auto columnsOf(const Fields& fields) {
    std::vector<decltype(Fields::value_type::column)> columns;
    for (const auto& field : fields) {
        if (!field.column.header.empty()) columns.push_back(field.column);
    }
    return columns;
}

/// Adds a row whose first cell is its text.
template <typename... Parts>
void addRow(ListView& list, const std::string& key, std::string_view smallIcon, std::string_view largeIcon,
            std::span<const RecordColumn<Parts...>> columns, const Parts&... parts) {
    ListRow row{key, columns.front().cell(parts...), smallIcon, largeIcon, {}};
    row.subItems.reserve(columns.size() - 1);
    for (const auto& column : columns.subspan(1)) row.subItems.push_back(column.cell(parts...));
    list.addRow(std::move(row));
}

}  // namespace trevandix
