#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileLock.h"
#include "platform/SafeFile.h"

namespace trevandix {

/// Unsaved work on the disk: where its file would be saved and where the work itself is.
struct RecoveryNote {
    std::string content{};             ///< a configuration file, whose root element says the interface kind
    std::string filePath{};            ///< of the configuration that was being edited
    std::optional<FileStamp> stamp{};  ///< of that file when it was opened or last saved
    std::string leftOn{};  ///< local date and time when the user left the configuration; empty after a crash

    /// False where only the content was found.
    bool readable() const { return !filePath.empty(); }
};

/// The recovery files of this program run, in a folder shared with other runs. Each run has a name of its own
/// and holds a lock on it; files without their lock are for the next start.
///
/// <name>.lock, <name>-<n>.xml with the work, and <name>.ini, which says which of these counts.
class RecoveryFiles {
public:
    /// An empty folder name means that nothing is kept.
    explicit RecoveryFiles(std::string folder);
    ~RecoveryFiles();

    bool usable() const { return !folder_.empty(); }
    /// Where to write the next content; nothing is there. Makes the folder and takes the lock. Errors:
    /// PermissionDenied.
    std::string nextContent();
    /// From now on this content counts; those before it are deleted. Errors: as of files.
    void commit(const RecoveryNote& note);
    /// Deletes everything of this run, and what was taken over.
    void discard();
    /// Leaves everything to the next start. This run goes on under another name.
    void leave();

    /// Work of an earlier run; locked, so that no other start offers it meanwhile.
    struct Abandoned {
        std::string name;
        RecoveryNote note;
        std::unique_ptr<FileLock> lock;
    };
    /// All there are, the oldest first; remains without a whole content are deleted.
    std::vector<Abandoned> abandoned() const;
    /// Keeps it until work of this run is committed or discarded.
    void takeOver(Abandoned work);
    void remove(Abandoned work) const;
    /// Keeps the content, but no start will offer it again.
    void putAside(Abandoned work) const;

private:
    std::string pathOf(const std::string& file) const;
    std::vector<std::string> contentsOf(const std::string& name) const;
    void removeFilesOf(const std::string& name) const;
    void removeLock(Abandoned& work) const;
    RecoveryNote readNote(const std::string& name) const;
    RecoveryNote findWork(const std::string& name) const;

    std::string folder_;
    std::string name_;
    unsigned committed_ = 0;  // number of the content that counts
    std::unique_ptr<FileLock> lock_;
    std::vector<Abandoned> takenOver_;
};

}  // namespace trevandix
