#include "platform/Form.h"

namespace trevandix {

namespace {

constexpr std::string_view kBreaks = "\r\n\t";

}  // namespace

std::string BoxText::oneLine(std::string_view text) {
    std::string line(text);
    for (char& c : line) {
        if (kBreaks.find(c) != std::string_view::npos) c = ' ';
    }
    return line;
}

}  // namespace trevandix
