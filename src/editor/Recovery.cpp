#include "editor/Recovery.h"

#include <exception>

#include "platform/RuntimeError.h"

namespace trevandix {

namespace {

using namespace std::chrono_literals;
constexpr auto kTick = 1000ms;
constexpr auto kBetweenSlices = 10ms;
constexpr auto kSlice = 15ms;
constexpr auto kPause = 3s;           // without input: the user thinks, or is away
constexpr auto kBetweenWrites = 20s;  // at least
constexpr auto kLongest = 40s;        // that work waits for a pause

std::string question(const RecoveryNote& note) {
    if (!note.leftOn.empty())
        return "Changes to " + note.filePath + " were not saved on " + note.leftOn + ". Recover them?";
    return "The editor was not closed properly. Recover the unsaved changes to " + note.filePath + "?";
}

}  // namespace

Recovery::Recovery(const EditorContext& context, FileCommands& file)
    : context_(context), file_(file), files_(context.platform.stateFolder) {}

bool Recovery::offer() {
    for (RecoveryFiles::Abandoned& work : files_.abandoned()) {
        const RecoveryNote& note = work.note;
        if (!note.readable()) {
            putAside(std::move(work));
        } else if (!context_.platform.messages.confirms(question(note))) {
            files_.remove(std::move(work));
        } else if (file_.recover(note.content, note.filePath, note.stamp)) {
            files_.takeOver(std::move(work));
            return true;
        } else {
            putAside(std::move(work));
        }
    }
    return false;
}

void Recovery::putAside(RecoveryFiles::Abandoned work) {
    const RecoveryNote& note = work.note;
    context_.platform.messages.show("Unsaved changes " +
                                    (note.readable() ? "to " + note.filePath : "of an earlier run") +
                                    " cannot be read. They are kept as " + note.content + ".");
    files_.putAside(std::move(work));
}

bool Recovery::due(Time now, Time lastInput) {
    const Configuration& configuration = context_.configuration;
    if (configuration.revision() == kept_) return false;
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
        if (!writer_) writer_.emplace(context_.configuration, files_.nextContent());
        if (writeSlice()) return kBetweenSlices;
    } catch (const std::exception&) {
        writer_.reset();  // a full disk, or a command in the middle of its work: another try later
    }
    nextWrite_ = now + kBetweenWrites;
    unkeptSince_.reset();
    return kTick;
}

// True when there is more to write.
bool Recovery::writeSlice() {
    const RecoveryWriter::Outcome outcome = writer_->step(kSlice);
    if (outcome == RecoveryWriter::Outcome::More) return true;
    if (outcome == RecoveryWriter::Outcome::Done) commit(*writer_, {});
    writer_.reset();
    return outcome == RecoveryWriter::Outcome::Outdated;
}

void Recovery::commit(const RecoveryWriter& writer, const std::string& leftOn) {
    files_.commit({writer.filePath(), context_.state().filePath, file_.stamp(), leftOn});
    kept_ = writer.revision();
}

void Recovery::forget() {
    writer_.reset();
    kept_.reset();
    unkeptSince_.reset();
    files_.discard();
}

void Recovery::keepForNextStart() {
    if (!files_.usable()) return;
    writer_.reset();
    reportErrors(context_.platform.messages, "keepForNextStart", [&] {
        RecoveryWriter writer(context_.configuration, files_.nextContent());
        while (writer.step(1h) == RecoveryWriter::Outcome::More) {
        }
        commit(writer, FileStamp{0, std::chrono::file_clock::now()}.localTime());
    });
    files_.leave();  // what a failure has kept from before stays the best there is
    forget();
}

void Recovery::end() {
    if (files_.usable()) forget();
}

}  // namespace trevandix
