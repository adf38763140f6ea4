#pragma once

#include <string_view>

namespace trevandix {

/// NoYes is YesNo where the Return key says No.
enum class Buttons { Ok, YesNo, NoYes, YesNoCancel };
enum class Icon { None, Exclamation, Critical };
enum class Answer { Ok, Yes, No, Cancel };

/// Modal message boxes with the application's title.
class Messages {
public:
    virtual ~Messages() = default;
    /// `text` is UTF-8. Closing the box counts as Ok or Cancel; a question of Yes and No stays until it is
    /// answered.
    virtual Answer show(std::string_view text, Buttons buttons = Buttons::Ok, Icon icon = Icon::None) = 0;

    bool confirms(std::string_view question, Buttons buttons = Buttons::YesNo) {
        return show(question, buttons) == Answer::Yes;
    }
};

}  // namespace trevandix
