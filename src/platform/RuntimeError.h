#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace trevandix {

/// The numbers in error messages. Users quote them to support, so they must never change.
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
    XmlParse = 1001,     ///< not well-formed XML; the description names line and reason
    TableFormat = 1002,  ///< no table; the description names line and reason
    ElementNotFound = 35601,
    KeyNotUnique = 35602,
    CancelWasSelected = 32755,
};

/// The fixed English description of a number.
std::string_view describe(ErrorNumber number);

/// The exception of all failures in the editor. `reportErrors` shows it as a message.
class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(ErrorNumber number);
    /// `detail` is appended to the description after ": ".
    RuntimeError(ErrorNumber number, std::string_view detail);

    ErrorNumber number() const { return number_; }
    /// Name of the innermost procedure that the exception has left; empty before `nameProcedure`.
    const std::string& procedure() const { return procedure_; }
    /// The same error with `more` appended to its description.
    RuntimeError with(std::string_view more) const;
    /// Sets the procedure's name unless it is already set.
    void nameProcedure(std::string_view procedure);

private:
    ErrorNumber number_;
    std::string procedure_;
};

class Messages;

/// Runs `body` and sets `procedure` on an exception that has no procedure's name yet.
void inProcedure(std::string_view procedure, const std::function<void()>& body);

/// The text of every error message: " Error n. <number>  <description> in <procedure>".
std::string errorText(const RuntimeError& error, std::string_view procedure, std::string_view prefix = " ");

/// Runs `body` and shows an exception once in a message box, with the name of the innermost procedure, else
/// `procedure`. Returns false when there was one. `prefix` precedes "Error n. ".
bool reportErrors(Messages& messages, std::string_view procedure, const std::function<void()>& body,
                  std::string_view prefix = " ");

}  // namespace trevandix
