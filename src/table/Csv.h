#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace trevandix {

// Rows of cells as the text that spreadsheets exchange. No library: the C++ one that Debian has
// (fast-cpp-csv-parser) wants the columns when the program is built, the C one (libcsv) neither line numbers
// nor an error for a quote that is never closed; and separator, encoding and formulas would still be ours.

enum class Separator : char { Comma = ',', Semicolon = ';', Tab = '\t' };

using Cells = std::vector<std::string>;
struct CsvRow {
    std::size_t line;  ///< on which it begins, from 1
    Cells cells;
};

/// Reads UTF-8 with or without mark, UTF-16 with mark, and any other bytes as Windows-1252. The first line
/// that is not blank decides about the separator; blank lines are no rows. Lines end with CR LF, LF or CR. A
/// cell may be quoted and then hold separators, line ends and doubled quotes. Takes off the apostrophe that
/// `csvText` puts in front of a formula. Errors: TableFormat, naming the line, for a quote that is not closed
/// and for text behind a closed one.
std::vector<CsvRow> readCsv(std::string_view bytes);

/// The rows as UTF-8 without mark, lines ending with CR LF. An apostrophe comes in front of a text that a
/// spreadsheet takes for a formula (it begins with = + - @ TAB CR and is no number), and of apostrophes
/// followed by such a character, so that every text comes back.
std::string csvText(std::span<const Cells> rows, Separator separator);
/// The same as a file, which begins with the mark of UTF-8: without it spreadsheets guess the encoding.
std::string csvFile(std::span<const Cells> rows, Separator separator);

}  // namespace trevandix
