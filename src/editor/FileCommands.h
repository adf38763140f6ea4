#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "editor/EditorContext.h"
#include "editor/TreeAndList.h"
#include "platform/SafeFile.h"

namespace trevandix {

enum class Origin;

/// New, Open, Save, Save As, Close and Exit, with publication of the saved path.
class FileCommands {
public:
    FileCommands(const EditorContext& context, TreeAndList& views) : context_(context), views_(views) {}

    void mnuNewCfg_Click();
    void mnuOpenCfg_Click();
    /// As if the file had been chosen in the Open dialog.
    void openFile(const std::string& filePath);
    /// Opens what a run before left unsaved, as the changed configuration of `filePath`, which had that
    /// stamp. False when it cannot be read; the user has been told then.
    bool recover(const std::string& content, const std::string& filePath,
                 const std::optional<FileStamp>& stamp);
    void mnuSaveCfg_Click();
    void mnuSaveAs_Click();
    /// Publishes what was saved and not published, and asks the user for the rights where they are needed.
    void mnuPublish_Click();
    void mnuCloseCfg_Click();
    void mnuExit_Click();
    /// The window closes: asks, saves when wanted, and goes on whatever came of it.
    void unload();

    /// Called before a configuration is released whose changes the user was not asked about, or wanted to
    /// save and could not.
    void onUnsavedEnd(std::function<void()> keep) { keepUnsaved_ = std::move(keep); }
    /// Called when tree and list have been cleared, before a dialog or the reading of a file goes on.
    void onCleared(std::function<void()> show) { cleared_ = std::move(show); }

    /// Of the configuration's file when it was opened or last saved; nothing when it was neither.
    const std::optional<FileStamp>& stamp() const { return file_.stamp(); }
    /// True while a file is being read.
    bool reading() const { return reading_; }

private:
    enum class SaveQuestion { NotAsked, Settled, Stop };
    SaveQuestion askToSave(std::string_view question);
    bool ShowDialSave(std::string& fileName) const;
    void load(const std::string& filePath, SaveQuestion asked);
    void keepUnasked(SaveQuestion asked) const;
    void clear() const;
    bool read(const std::string& source, const std::string& filePath, Origin origin);
    void finishLoad();
    bool writeAndPublish();
    void publish(Rights rights);
    void save();
    void saveAtEnd();
    bool keepsOthersWork() const;
    void saveAs();
    std::string defaultFilePath() const;

    const EditorContext& context_;
    TreeAndList& views_;
    bool reading_ = false;
    SafeFile file_;
    std::function<void()> keepUnsaved_;
    std::function<void()> cleared_;
};

}  // namespace trevandix
