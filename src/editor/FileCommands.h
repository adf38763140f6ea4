#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "editor/EditorContext.h"
#include "editor/TreeAndList.h"

namespace trevandix {

/// New, Open, Save, Save As, Close and Exit, with publication of the saved path.
class FileCommands {
public:
    FileCommands(const EditorContext& context, TreeAndList& views) : context_(context), views_(views) {}

    void mnuNewCfg_Click();
    void mnuOpenCfg_Click();
    /// As if the file had been chosen in the Open dialog.
    void openFile(const std::string& filePath);
    void mnuSaveCfg_Click();
    void mnuSaveAs_Click();
    void mnuCloseCfg_Click();
    void mnuExit_Click();
    /// The window closes: asks, saves when wanted, and goes on whatever came of it.
    void unload();

    /// True while a file is being read.
    bool reading() const { return reading_; }

private:
    enum class SaveQuestion { NotAsked, Settled, Stop };
    SaveQuestion askToSave(std::string_view question);
    bool ShowDialSave(std::string& fileName) const;
    void load(const std::string& filePath);
    void finishLoad();
    bool writeAndPublish();
    void save();
    void saveAs();
    std::string defaultFilePath() const;

    const EditorContext& context_;
    TreeAndList& views_;
    bool reading_ = false;
};

}  // namespace trevandix
