#include "editor/RecoveryFiles.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <random>

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"

namespace trevandix {

namespace fs = std::filesystem;

namespace {

// One of its kind among all runs; the time in front makes the folder readable.
std::string ownName() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    std::random_device random;
    return std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(now).count()) + "-" +
           std::to_string(random());
}

void writeText(const std::string& filePath, const std::string& text) {
    std::FILE* file = openFile(filePath, "wb");
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    if (std::fclose(file) != 0 || !written) throw RuntimeError(ErrorNumber::DiskFull);
}

/// The value behind "<name>=", to the end of the line.
std::string_view field(std::string_view text, std::string_view name) {
    const std::string label = "\n" + std::string(name) + "=";
    const std::size_t at = text.find(label);
    if (at == std::string_view::npos) return {};
    const std::string_view value = text.substr(at + label.size());
    return value.substr(0, value.find('\n'));
}

template <typename Number>
bool parse(std::string_view text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

}  // namespace

RecoveryFiles::RecoveryFiles(std::string folder) : folder_(std::move(folder)), name_(ownName()) {}

RecoveryFiles::~RecoveryFiles() = default;

std::string RecoveryFiles::pathOf(const std::string& file) const {
    return toUtf8(fromUtf8(folder_) / fromUtf8(file));
}

std::string RecoveryFiles::nextContent() {
    if (lock_ == nullptr) {
        std::error_code ignored;
        fs::create_directories(fromUtf8(folder_), ignored);
        lock_ = FileLock::tryLock(pathOf(name_ + ".lock"));
        if (lock_ == nullptr) throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    const std::string path = pathOf(name_ + "-" + std::to_string(committed_ + 1) + ".xml");
    std::error_code ignored;
    fs::remove(fromUtf8(path), ignored);
    return path;
}

// The note takes the old one's place in one step, so that at any moment one whole content counts. The path
// stands last and goes on to the end, whatever is in it.
void RecoveryFiles::commit(const RecoveryNote& note) {
    const std::string content = toUtf8(fromUtf8(note.content).filename());
    std::string text = "[recovery]\ncontent=" + content + "\n";
    if (note.stamp) {
        text += "size=" + std::to_string(note.stamp->size) + "\n";
        text += "time=" + std::to_string(note.stamp->time.time_since_epoch().count()) + "\n";
    }
    if (!note.leftOn.empty()) text += "left=" + note.leftOn + "\n";
    text += "path=" + note.filePath;
    writeText(pathOf(name_ + ".new"), text);
    fs::rename(fromUtf8(pathOf(name_ + ".new")), fromUtf8(pathOf(name_ + ".ini")));
    std::error_code ignored;
    fs::remove(fromUtf8(pathOf(name_ + "-" + std::to_string(committed_) + ".xml")), ignored);
    ++committed_;
    for (Abandoned& work : takenOver_) remove(std::move(work));
    takenOver_.clear();
}

void RecoveryFiles::discard() {
    for (Abandoned& work : takenOver_) remove(std::move(work));
    takenOver_.clear();
    if (lock_ == nullptr) return;
    removeFilesOf(name_);
    std::error_code ignored;
    lock_.reset();
    fs::remove(fromUtf8(pathOf(name_ + ".lock")), ignored);
}

void RecoveryFiles::leave() {
    takenOver_.clear();
    lock_.reset();
    name_ = ownName();
    committed_ = 0;
}

std::vector<std::string> RecoveryFiles::contentsOf(const std::string& name) const {
    std::error_code error;
    std::vector<std::string> files;
    for (fs::directory_iterator entry(fromUtf8(folder_), error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string file = toUtf8(entry->path().filename());
        if (file.starts_with(name + "-") && file.ends_with(".xml")) files.push_back(pathOf(file));
    }
    return files;
}

// The note first: without it the rest counts for nothing.
void RecoveryFiles::removeFilesOf(const std::string& name) const {
    std::error_code ignored;
    for (const char* end : {".ini", ".new"}) fs::remove(fromUtf8(pathOf(name + end)), ignored);
    for (const std::string& file : contentsOf(name)) fs::remove(fromUtf8(file), ignored);
}

RecoveryNote RecoveryFiles::readNote(const std::string& name) const {
    const std::string text = readWholeFile(pathOf(name + ".ini"));
    RecoveryNote note;
    const std::string content(field(text, "content"));
    const std::size_t path = text.find("\npath=");
    // Only a file of the same run, never one that a name leads to from elsewhere.
    const bool own = content.starts_with(name + "-") && content.find_first_of("/\\") == std::string::npos;
    std::error_code error;
    if (path == std::string::npos || !own || !fs::exists(fromUtf8(pathOf(content)), error)) return note;
    note.content = pathOf(content);
    note.filePath = text.substr(path + 6);
    note.leftOn = field(text.substr(0, path + 1), "left");
    FileStamp stamp;
    fs::file_time_type::rep time = 0;
    if (parse(field(text, "size"), stamp.size) && parse(field(text, "time"), time)) {
        stamp.time = fs::file_time_type(fs::file_time_type::duration(time));
        note.stamp = stamp;
    }
    return note;
}

// Without a note, a content is what a crash left half-written. Behind a note that cannot be read, the largest
// is the best guess. Empty contents are none.
RecoveryNote RecoveryFiles::findWork(const std::string& name) const {
    std::error_code error;
    RecoveryNote note;
    if (!fs::exists(fromUtf8(pathOf(name + ".ini")), error)) return note;
    try {
        note = readNote(name);
    } catch (const RuntimeError&) {
    }
    if (note.readable()) return note;
    std::uintmax_t largest = 0;
    for (const std::string& file : contentsOf(name)) {
        const std::uintmax_t size = fs::file_size(fromUtf8(file), error);
        if (error || size <= largest) continue;
        largest = size;
        note.content = file;
    }
    return note;
}

std::vector<RecoveryFiles::Abandoned> RecoveryFiles::abandoned() const {
    std::vector<Abandoned> found;
    if (folder_.empty()) return found;
    std::error_code error;
    std::vector<std::string> names;
    for (fs::directory_iterator entry(fromUtf8(folder_), error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().extension() == ".lock") names.push_back(toUtf8(entry->path().stem()));
    }
    std::ranges::sort(names);  // oldest first
    for (const std::string& name : names) {
        if (lock_ != nullptr && name == name_) continue;
        auto lock = FileLock::tryLock(pathOf(name + ".lock"));
        if (lock == nullptr) continue;
        Abandoned work{name, findWork(name), std::move(lock)};
        if (work.note.content.empty())
            remove(std::move(work));
        else
            found.push_back(std::move(work));
    }
    return found;
}

void RecoveryFiles::takeOver(Abandoned work) {
    takenOver_.push_back(std::move(work));
}

void RecoveryFiles::remove(Abandoned work) const {
    removeFilesOf(work.name);
    removeLock(work);
}

// The lock is what a start looks for.
void RecoveryFiles::putAside(Abandoned work) const {
    std::error_code ignored;
    fs::remove(fromUtf8(pathOf(work.name + ".ini")), ignored);
    removeLock(work);
}

void RecoveryFiles::removeLock(Abandoned& work) const {
    std::error_code ignored;
    work.lock.reset();
    fs::remove(fromUtf8(pathOf(work.name + ".lock")), ignored);
}

}  // namespace trevandix
