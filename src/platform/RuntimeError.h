#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace trevandix {

/// The numbers that error messages show. They are part of what users quote to support, so they never change.
enum class ErrorNumber : int {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    DiskFull = 61,
    FileNotFound = 53,
    PermissionDenied = 70,
    PathFileAccess = 75,
    ObjectNotSet = 91,
    KeyInCollection = 457,
    XmlParse = 1001,  ///< the file is not well-formed XML; the description names line and reason
    ElementNotFound = 35601,
    KeyNotUnique = 35602,
    CancelWasSelected = 32755,
};

/// The fixed English description of a number, as shown in messages.
std::string_view describe(ErrorNumber number);

/// The one kind of failure inside the editor. Thrown where it is noticed; `reportErrors` turns it into a
/// message.
class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(ErrorNumber number);
    /// `detail` is appended to the description after ": ".
    RuntimeError(ErrorNumber number, std::string_view detail);

    ErrorNumber number() const { return number_; }
    /// Name of the innermost procedure that let the failure pass; empty when none has put its name yet.
    const std::string& procedure() const { return procedure_; }
    /// The same failure with more said behind its description.
    RuntimeError with(std::string_view more) const;
    /// Puts the procedure's name unless an inner one already did.
    void nameProcedure(std::string_view procedure);

private:
    ErrorNumber number_;
    std::string procedure_;
};

class Messages;

/// Runs `body`; a failure that leaves it carries `procedure` (or an inner procedure's name) from then on.
void inProcedure(std::string_view procedure, const std::function<void()>& body);

/// " Error n. <number>  <description> in <procedure>": the text of every error message.
std::string errorText(const RuntimeError& error, std::string_view procedure, std::string_view prefix = " ");

/// Runs `body`; a failure is shown once in a message box, with the name of the innermost procedure, or else
/// `procedure`. Returns False when there was one. `prefix` stands in front of "Error n. ".
bool reportErrors(Messages& messages, std::string_view procedure, const std::function<void()>& body,
                  std::string_view prefix = " ");

}  // namespace trevandix
