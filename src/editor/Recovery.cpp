#include "editor/Recovery.h"

#include <exception>
#include <limits>

#include "platform/RuntimeError.h"
#include "xmlfile/ConfigurationPrinter.h"
#include "xmlfile/Latin1Lines.h"

namespace trevandix {

namespace {

using namespace std::chrono_literals;
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

void Recovery::idle(Time now, Time lastInput) {
    if (!files_.usable() || file_.reading()) return;
    if (!context_.state().configurationOpen || !context_.configuration.changed()) return forget();
    if (!due(now, lastInput)) return;
    nextWrite_ = now + kBetweenWrites;
    unkeptSince_.reset();
    try {
        write({});
    } catch (const std::exception&) {
        // A full disk, or a command that is still running: tries again later.
    }
}

// In one go: a hundred thousand items take less time than a user notices.
void Recovery::write(const std::string& leftOn) {
    const std::string content = files_.nextContent();
    OutputFile file(content);
    Latin1Lines lines(file);
    ConfigurationPrinter printer(context_.configuration, ConfigurationPrinter::Purpose::Recovery);
    printer.printSome(lines, std::numeric_limits<std::size_t>::max());
    file.close();  // not synced: it is there for a crash of the program, not of the machine
    files_.commit({content, context_.state().filePath, file_.stamp(), leftOn});
    kept_ = context_.configuration.revision();
}

void Recovery::forget() {
    kept_.reset();
    unkeptSince_.reset();
    files_.discard();
}

void Recovery::keepForNextStart() {
    if (!files_.usable()) return;
    reportErrors(context_.platform.messages, "keepForNextStart", [&] {
        write(FileStamp{0, std::chrono::file_clock::now()}.localTime());
    });
    files_.leave();  // after a failed write, the content kept before remains
    forget();
}

void Recovery::end() {
    if (files_.usable()) forget();
}

}  // namespace trevandix
