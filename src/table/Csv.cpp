#include "table/Csv.h"

#include <algorithm>
#include <array>
#include <utility>

#include "model/Numbers.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kSeparators = ",;\t";
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kFormulaStarts = "=+-@\t\r";

// Whether a spreadsheet takes the text behind its apostrophes for a formula.
bool beginsLikeFormula(std::string_view text) {
    const std::size_t first = text.find_first_not_of('\'');
    return first != std::string_view::npos && kFormulaStarts.find(text[first]) != std::string_view::npos;
}

bool isPlainNumber(std::string_view text) {
    return text.find_first_not_of("+-.0123456789") == std::string_view::npos && isNumeric(text);
}

// With the high byte first or last. Half of a pair becomes the replacement character.
std::string fromUtf16(std::string_view bytes, bool highFirst) {
    constexpr char32_t kReplacement = 0xFFFD;
    const auto unit = [&](std::size_t at) {
        const auto high = static_cast<unsigned char>(bytes[highFirst ? at : at + 1]);
        const auto low = static_cast<unsigned char>(bytes[highFirst ? at + 1 : at]);
        return static_cast<char32_t>(high * 256U + low);
    };
    std::string text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        char32_t c = unit(at);
        if (isHalfPair(c)) {
            const char32_t second = at + 3 < bytes.size() ? unit(at + 2) : 0;
            const bool pair = c < 0xDC00 && second >= 0xDC00 && isHalfPair(second);
            if (pair) at += 2;
            c = pair ? 0x10000 + ((c & 0x3FFU) << 10U) + (second & 0x3FFU) : kReplacement;
        }
        appendUtf8(text, c);
    }
    if (bytes.size() % 2 != 0) appendUtf8(text, kReplacement);
    return text;
}

std::string decoded(std::string_view bytes) {
    if (bytes.starts_with(kUtf8Mark)) return std::string(bytes.substr(kUtf8Mark.size()));
    if (bytes.starts_with("\xFF\xFE")) return fromUtf16(bytes.substr(2), false);
    if (bytes.starts_with("\xFE\xFF")) return fromUtf16(bytes.substr(2), true);
    if (invalidUtf8(bytes) == std::string_view::npos) return std::string(bytes);
    std::string text;
    for (const char byte : bytes) appendUtf8(text, windows1252(static_cast<unsigned char>(byte)));
    return text;
}

// The one that the first line holds most often outside quotes; a comma if it holds none.
char separatorOf(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kLineEnds), text.size()));
    std::array<std::size_t, kSeparators.size()> counts{};
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (kLineEnds.find(c) != std::string_view::npos) break;
        if (const auto place = kSeparators.find(c); place != std::string_view::npos) ++counts[place];
    }
    return kSeparators[static_cast<std::size_t>(std::ranges::max_element(counts) - counts.begin())];
}

class Reader {
public:
    explicit Reader(std::string_view text) : text_(text), separator_(separatorOf(text)) {}

    std::vector<CsvRow> read() {
        std::vector<CsvRow> rows;
        while (at_ < text_.size()) {
            if (atLineEnd()) {
                skipLineEnd();
                continue;
            }
            CsvRow& row = rows.emplace_back(CsvRow{line_, {}});
            if (rows.size() > 1) row.cells.reserve(rows.front().cells.size());
            readCells(row.cells);
        }
        return rows;
    }

private:
    void readCells(Cells& cells) {
        while (true) {
            std::string& cell = cells.emplace_back();
            if (at_ < text_.size() && text_[at_] == '"')
                readQuoted(cell);
            else
                readPlain(cell);
            if (cell.starts_with('\'') && beginsLikeFormula(cell)) cell.erase(0, 1);
            if (at_ == text_.size()) return;
            if (text_[at_] != separator_) return skipLineEnd();
            ++at_;
        }
    }

    void readPlain(std::string& cell) {
        const std::size_t begin = at_;
        while (at_ < text_.size() && text_[at_] != separator_ && !atLineEnd()) ++at_;
        cell = text_.substr(begin, at_ - begin);
    }

    void readQuoted(std::string& cell) {
        const std::size_t opened = line_;
        while (true) {
            const std::size_t end = text_.find('"', ++at_);
            if (end == std::string_view::npos) fail(opened, "a quote is not closed");
            const std::string_view piece = text_.substr(at_, end - at_);
            countLines(piece);
            cell += piece;
            at_ = end + 1;
            if (at_ == text_.size() || text_[at_] != '"') break;
            cell += '"';
        }
        const bool ends = at_ == text_.size() || text_[at_] == separator_ || atLineEnd();
        if (!ends) fail(line_, "text follows a closed quote");
    }

    bool atLineEnd() const { return text_[at_] == '\r' || text_[at_] == '\n'; }
    void skipLineEnd() {
        at_ += text_.substr(at_).starts_with("\r\n") ? 2 : 1;
        ++line_;
    }
    void countLines(std::string_view piece) {
        for (std::size_t i = 0; i < piece.size(); ++i) {
            const bool pair = piece[i] == '\r' && i + 1 < piece.size() && piece[i + 1] == '\n';
            if (kLineEnds.find(piece[i]) != std::string_view::npos && !pair) ++line_;
        }
    }
    [[noreturn]] static void fail(std::size_t line, const char* reason) {
        throw RuntimeError(ErrorNumber::TableFormat, "line " + std::to_string(line) + ": " + reason);
    }

    std::string_view text_;
    char separator_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
};

// Quotes every separator, so that the first line alone tells which one is meant.
void appendCell(std::string& out, const std::string& cell) {
    const bool guard = beginsLikeFormula(cell) && !isPlainNumber(cell);
    if (cell.find_first_of("\",;\t\r\n") == std::string::npos) {
        if (guard) out += '\'';
        out += cell;
        return;
    }
    out += guard ? "\"'" : "\"";
    for (const char c : cell) out.append(c == '"' ? 2 : 1, c);
    out += '"';
}

void appendRows(std::string& out, std::span<const Cells> rows, Separator separator) {
    for (const Cells& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) out += static_cast<char>(separator);
            appendCell(out, row[i]);
        }
        if (row.size() == 1 && row[0].empty()) out += "\"\"";  // a blank line would be no row
        out += "\r\n";
    }
}

}  // namespace

std::vector<CsvRow> readCsv(std::string_view bytes) {
    const std::string text = decoded(bytes);
    return Reader(text).read();
}

std::string csvText(std::span<const Cells> rows, Separator separator) {
    std::string text;
    appendRows(text, rows, separator);
    return text;
}

std::string csvFile(std::span<const Cells> rows, Separator separator) {
    std::string text(kUtf8Mark);
    appendRows(text, rows, separator);
    return text;
}

}  // namespace trevandix
