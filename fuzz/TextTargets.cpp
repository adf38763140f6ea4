#include <algorithm>
#include <stdexcept>

#include "Targets.h"
#include "editor/BulkPaste.h"
#include "model/ValueTypes.h"
#include "platform/RuntimeError.h"
#include "table/Csv.h"

namespace trevandix::fuzz {

namespace {

void require(bool condition, const char* what) {
    if (!condition) throw std::logic_error(what);
}

std::string essence(std::string_view text) {
    std::string rest;
    std::ranges::copy_if(text, std::back_inserter(rest),
                         [](char c) { return c != ' ' && c != '\r' && c != '\n'; });
    return rest;
}

std::vector<Cells> cellsOf(std::string_view bytes) {
    std::vector<Cells> rows;
    for (CsvRow& row : readCsv(bytes)) rows.push_back(std::move(row.cells));
    return rows;
}

}  // namespace

void TypeNames(std::string_view bytes) {
    const std::string label = displayTypeLabel(bytes);
    const std::string settled = displayTypeLabel(fileTypeName(label));
    require(displayTypeLabel(fileTypeName(settled)) == settled, "a label changes from save to save");
    const std::string name = fileTypeName(bytes);
    const std::string settledName = fileTypeName(displayTypeLabel(name));
    require(fileTypeName(displayTypeLabel(settledName)) == settledName, "a name changes from save to save");
    const ItemType type = splitDataType(bytes);
    require(type.table.size() <= bytes.size() + 12 && type.label.size() <= bytes.size() + 13,
            "parts too long");
}

void Clipboard(std::string_view bytes) {
    std::string together;
    for (const std::string& line : clipboardLines(bytes)) {
        require(!line.starts_with(' ') && !line.ends_with(' '), "a line is not trimmed");
        require(line.find("\r\n") == std::string::npos, "a line holds a line end");
        together += line;
    }
    require(essence(together) == essence(bytes), "text is lost");
}

void Csv(std::string_view bytes) {
    std::vector<Cells> rows;
    try {
        rows = cellsOf(bytes);
    } catch (const RuntimeError& error) {
        require(std::string_view(error.what()).find("line ") != std::string_view::npos, "no line is named");
        return;
    }
    // The first row tells the separator, so a header is as wide as its table.
    for (const Cells& row : rows) rows.front().resize(std::max(rows.front().size(), row.size()));
    for (const Separator separator : {Separator::Comma, Separator::Semicolon, Separator::Tab})
        require(cellsOf(csvFile(rows, separator)) == rows, "cells are lost");
}

}  // namespace trevandix::fuzz
