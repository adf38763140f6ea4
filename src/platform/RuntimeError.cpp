#include "platform/RuntimeError.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "platform/Services.h"

namespace trevandix {

namespace {

using Row = std::pair<ErrorNumber, std::string_view>;
constexpr std::array kDescriptions{
    Row{ErrorNumber::InvalidCall, "Invalid procedure call or argument"},
    Row{ErrorNumber::Overflow, "Overflow"},
    Row{ErrorNumber::OutOfMemory, "Out of memory"},
    Row{ErrorNumber::SubscriptOutOfRange, "Subscript out of range"},
    Row{ErrorNumber::TypeMismatch, "Type mismatch"},
    Row{ErrorNumber::FileNotFound, "File not found"},
    Row{ErrorNumber::DiskFull, "Disk full"},
    Row{ErrorNumber::PermissionDenied, "Permission denied"},
    Row{ErrorNumber::PathFileAccess, "Path/File access error"},
    Row{ErrorNumber::ObjectNotSet, "Object variable not set"},
    Row{ErrorNumber::KeyInCollection, "This key is already associated with an element of this collection"},
    Row{ErrorNumber::XmlParse, "The file is not well-formed XML"},
    Row{ErrorNumber::TableFormat, "The text is not a table"},
    Row{ErrorNumber::ElementNotFound, "Element not found"},
    Row{ErrorNumber::KeyNotUnique, "Key is not unique in collection"},
    Row{ErrorNumber::CancelWasSelected, "Cancel was selected"},
};

}  // namespace

std::string_view describe(ErrorNumber number) {
    const auto* row = std::ranges::find(kDescriptions, number, &Row::first);
    return row == kDescriptions.end() ? std::string_view("Application-defined error") : row->second;
}

RuntimeError::RuntimeError(ErrorNumber number)
    : std::runtime_error(std::string(describe(number))), number_(number) {}

RuntimeError::RuntimeError(ErrorNumber number, std::string_view detail)
    : std::runtime_error(std::string(describe(number)) + ": " + std::string(detail)), number_(number) {}

RuntimeError RuntimeError::with(std::string_view more) const {
    std::string detail = std::string(what()).substr(describe(number_).size());
    if (!detail.empty()) detail = detail.substr(2) + "; ";
    RuntimeError error(number_, detail.append(more));
    error.procedure_ = procedure_;
    return error;
}

void RuntimeError::nameProcedure(std::string_view procedure) {
    if (procedure_.empty()) procedure_ = procedure;
}

void inProcedure(std::string_view procedure, const std::function<void()>& body) {
    try {
        body();
    } catch (RuntimeError& error) {
        error.nameProcedure(procedure);
        throw;
    } catch (const std::bad_alloc&) {
        RuntimeError error(ErrorNumber::OutOfMemory);
        error.nameProcedure(procedure);
        throw error;
    }
}

std::string errorText(const RuntimeError& error, std::string_view procedure, std::string_view prefix) {
    const std::string_view where =
        error.procedure().empty() ? procedure : std::string_view(error.procedure());
    std::string text(prefix);
    text += "Error n. " + std::to_string(static_cast<int>(error.number())) + "  " + error.what() + " in ";
    text += where;
    return text;
}

bool reportErrors(Messages& messages, std::string_view procedure, const std::function<void()>& body,
                  std::string_view prefix) {
    try {
        inProcedure(procedure, body);
        return true;
    } catch (const RuntimeError& error) {
        messages.show(errorText(error, procedure, prefix));
    } catch (const std::exception& error) {
        // Exceptions of the standard library have no number of their own.
        messages.show(errorText(RuntimeError(ErrorNumber::InvalidCall, error.what()), procedure, prefix));
    }
    return false;
}

}  // namespace trevandix
