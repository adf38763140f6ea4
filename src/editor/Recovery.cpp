#include "editor/Recovery.h"

#include <exception>

namespace trevandix {

namespace {

using namespace std::chrono_literals;
constexpr auto kTick = 1000ms;
constexpr auto kBetweenSlices = 10ms;
constexpr auto kSlice = 15ms;
constexpr auto kPause = 3s;           // without input: the user thinks, or is away
constexpr auto kBetweenWrites = 20s;  // at least
constexpr auto kLongest = 40s;        // that work waits for a pause

}  // namespace

Recovery::Recovery(const EditorContext& context, FileCommands& file)
    : context_(context), file_(file), files_(context.platform.stateFolder) {}

bool Recovery::offer() {
    for (RecoveryFiles::Abandoned& work : files_.abandoned()) {
        if (!context_.platform.messages.confirms(
                "The editor was not closed properly. Recover the unsaved changes to " + work.note.filePath +
                "?")) {
            files_.remove(std::move(work));
            continue;
        }
        const bool read = file_.recover(work.note.content, work.note.filePath, work.note.stamp);
        if (read) files_.takeOver(std::move(work));
        return read;
    }
    return false;
}

bool Recovery::due(Time now, Time lastInput) {
    const Configuration& configuration = context_.configuration;
    if (configuration.edits() == kept_) return false;
    if (!unkeptSince_) unkeptSince_ = now;
    if (now - *unkeptSince_ >= kLongest) return true;
    return now - lastInput >= kPause && (!nextWrite_ || now >= *nextWrite_);
}

std::chrono::milliseconds Recovery::idle(Time now, Time lastInput) {
    if (!files_.usable() || file_.reading()) return kTick;
    if (!context_.state().configurationOpen || !context_.configuration.changed()) {
        forget();
        return kTick;
    }
    if (!writer_ && !due(now, lastInput)) return kTick;
    try {
        begin();
        if (writeSlice(kSlice)) return kBetweenSlices;
    } catch (const std::exception&) {
        writer_.reset();  // a full disk, or a command in the middle of its work: another try later
    }
    nextWrite_ = now + kBetweenWrites;
    unkeptSince_.reset();
    return kTick;
}

void Recovery::begin() {
    if (!writer_) writer_.emplace(context_.configuration, files_.nextContent());
}

// True when there is more to write.
bool Recovery::writeSlice(std::chrono::milliseconds budget) {
    const RecoveryWriter::Outcome outcome = writer_->step(budget);
    if (outcome == RecoveryWriter::Outcome::More) return true;
    if (outcome == RecoveryWriter::Outcome::Done) {
        files_.commit({writer_->filePath(), context_.state().filePath, file_.stamp()});
        kept_ = writer_->edits();
    }
    writer_.reset();
    return outcome == RecoveryWriter::Outcome::Outdated;
}

void Recovery::forget() {
    writer_.reset();
    kept_.reset();
    unkeptSince_.reset();
    files_.discard();
}

void Recovery::keepForNextStart() {
    if (!files_.usable()) return;
    try {
        if (context_.configuration.edits() != kept_) {
            writer_.reset();
            begin();
            while (writeSlice(1h)) {
            }
        }
    } catch (const std::exception&) {
        // What was kept before stays the best there is.
    }
    writer_.reset();
    files_.leave();
}

void Recovery::end() {
    if (files_.usable()) forget();
}

}  // namespace trevandix
