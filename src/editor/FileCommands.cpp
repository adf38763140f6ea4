#include "editor/FileCommands.h"

#include "editor/XmlFiles.h"
#include "editor/frmSelect.h"
#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"

namespace trevandix {

namespace {

constexpr std::string_view kFilter = "configuration files |*.xml";
constexpr std::string_view kSaveActive = "Do you want to save active configuration?";
constexpr std::string_view kSaveThis = "Do you want to save this configuration?";

/// Sets a flag for the lifetime of this object.
class FlagScope {
public:
    explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagScope() { flag_ = false; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& flag_;
};

}  // namespace

FileCommands::SaveQuestion FileCommands::askToSave(std::string_view question) {
    if (!context_.state().configurationOpen || context_.state().saved) return SaveQuestion::NotAsked;
    if (!context_.platform.messages.confirms(question)) return SaveQuestion::Settled;
    mnuSaveCfg_Click();
    return context_.state().saved ? SaveQuestion::Settled : SaveQuestion::Stop;
}

// The saved flag, and with it the question, does not cover every change.
void FileCommands::keepUnasked(SaveQuestion asked) const {
    const bool open = context_.state().configurationOpen;
    if (open && asked == SaveQuestion::NotAsked && context_.configuration.changed()) keepUnsaved_();
}

// Tree and list, and what shows them.
void FileCommands::clear() const {
    context_.InitObjects();
    cleared_();
}

std::string FileCommands::defaultFilePath() const {
    const auto folder = fromUtf8(context_.platform.programFolder);
    return toUtf8((folder / fromUtf8(context_.state().interfaceKind + ".xml")).make_preferred());
}

void FileCommands::mnuNewCfg_Click() {
    context_.guarded("mnuNewCfg_Click", [&] {
        const SaveQuestion question = askToSave(kSaveActive);
        if (question == SaveQuestion::Stop) return;
        keepUnasked(question);
        Configuration& configuration = context_.configuration;
        if (question == SaveQuestion::Settled) configuration.setOpen(false);
        clear();
        if (const auto kind = showFrmSelect(context_.platform.forms)) configuration.setInterfaceKind(*kind);
        configuration.beginNew(defaultFilePath());
        context_.platform.window.hideImportPanel();  // a failed Open may have left it
        context_.platform.window.setTreeVisible(true);
        context_.list.setVisible(true);
        context_.list.setSorted(false);
        context_.enable(Situation::AfterNew);
        file_.opened({});
        context_.platform.window.focusTree();
    });
}

bool FileCommands::ShowDialSave(std::string& fileName) const {
    return reportErrors(
        context_.platform.messages, "ShowDialSave",
        [&] {
            fileName =
                context_.platform.fileDialog.open("Open as existing configuration", kFilter).value_or("");
        },
        "ShowDialSave ");
}

void FileCommands::mnuOpenCfg_Click() {
    context_.guarded("mnuOpenCfg_Click", [&] {
        const SaveQuestion question = askToSave(kSaveActive);
        if (question == SaveQuestion::Stop) return;
        std::string fileName;
        if (ShowDialSave(fileName) && !fileName.empty()) load(fileName, question);
    });
}

void FileCommands::openFile(const std::string& filePath) {
    context_.guarded("mnuOpenCfg_Click", [&] {
        const SaveQuestion question = askToSave(kSaveActive);
        if (question != SaveQuestion::Stop) load(filePath, question);
    });
}

void FileCommands::load(const std::string& filePath, SaveQuestion asked) {
    keepUnasked(asked);
    const auto stamp = FileStamp::of(filePath);  // before reading: who writes meanwhile is noticed
    if (!read(filePath, filePath, Origin::AnyProgram)) return;
    file_.opened(stamp);
    context_.platform.window.addToRecentFiles(filePath);
}

bool FileCommands::recover(const std::string& content, const std::string& filePath,
                           const std::optional<FileStamp>& stamp) {
    bool recovered = false;
    context_.guarded("mnuOpenCfg_Click", [&] {
        recovered = read(content, filePath, Origin::OwnWriter);
        if (!recovered) return;
        file_.opened(stamp);
        context_.configuration.markUnsaved();
    });
    if (!recovered) {  // the program goes on as it starts
        clear();
        context_.platform.window.hideImportPanel();
    }
    return recovered;
}

bool FileCommands::read(const std::string& source, const std::string& filePath, Origin origin) {
    Configuration& configuration = context_.configuration;
    // From here on the old configuration is gone, and the new one is not there before it has been read whole.
    configuration.setOpen(false);
    clear();
    file_.opened({});
    bool complete = false;
    {
        const StructureTree::Batch batch(configuration.tree);
        configuration.begin(filePath);
        MainWindow& window = context_.platform.window;
        window.showImportPanel("Loading File ....");
        context_.enable(Situation::Busy);
        window.processEvents();
        const FlagScope reading(reading_);
        complete = ImportXML(configuration, source, origin, context_.platform);
    }
    if (complete) {
        finishLoad();
    } else {
        context_.enable(Situation::Start);
    }
    return complete;
}

void FileCommands::finishLoad() {
    Configuration& configuration = context_.configuration;
    context_.platform.window.hideImportPanel();
    configuration.endLoad();
    context_.platform.window.setTreeVisible(true);
    context_.list.setVisible(true);
    context_.list.setSorted(false);
    views_.TreeView1_NodeClick(*configuration.tree.root());
    context_.enable(Situation::AfterNew);
    context_.platform.window.focusTree();
    const FlagScope reading(reading_);
    context_.platform.window.processEvents();  // discards keys typed during the load
}

bool FileCommands::writeAndPublish() {
    const EditingState& state = context_.state();
    if (!CreateXML(context_.configuration, state.filePath, file_, context_.platform)) {
        context_.configuration.markUnsaved();  // whatever is at the path now
        context_.news.clearNotice();
        return false;
    }
    context_.configuration.markSaved();
    context_.platform.window.addToRecentFiles(state.filePath);
    publish(Rights::Own);  // when this is refused, saving has succeeded all the same
    context_.configuration.setSaved(true);
    context_.news.update();  // the message box that may follow keeps the command from ending
    return true;
}

void FileCommands::publish(Rights rights) {
    const EditingState& state = context_.state();
    Registry& registry = context_.platform.registry;
    context_.news.tellSaved(registry.publish(state.interfaceKind, state.filePath, rights), registry);
}

void FileCommands::mnuPublish_Click() {
    context_.guarded("mnuPublish_Click", [&] {
        if (!context_.news.unpublished()) return context_.news.tell("Nothing to publish: Save does it");
        publish(Rights::Asked);
    });
}

void FileCommands::mnuSaveCfg_Click() {
    context_.guarded("mnuSaveCfg_Click", [&] {
        if (context_.state().configurationOpen) save();
    });
}

// Asks when the file is no longer the one that was opened or saved here. True when it is to stay as it is.
bool FileCommands::keepsOthersWork() const {
    const std::string& path = context_.state().filePath;
    const auto now = file_.changedByOthers(path);
    if (!now) return false;
    return !context_.platform.messages.confirms("File " + path + " was changed by another program on " +
                                                    now->localTime() + " (opened or saved here on " +
                                                    file_.stamp()->localTime() + "). Save all the same?",
                                                Buttons::NoYes);
}

void FileCommands::save() {
    const std::string& path = context_.state().filePath;
    if (keepsOthersWork()) return;
    Answer answer = Answer::Yes;
    if (fileExists(path)) {
        answer = context_.platform.messages.show("File " + path + " already existing. Overwrite?",
                                                 Buttons::YesNoCancel);
    }
    if (answer == Answer::Yes && writeAndPublish()) context_.platform.messages.show(path + " saved");
    if (answer == Answer::No) mnuSaveAs_Click();
}

void FileCommands::mnuSaveAs_Click() {
    context_.guarded("mnuSaveAs_Click", [&] {
        try {
            if (context_.state().configurationOpen) saveAs();
        } catch (const RuntimeError& error) {
            if (error.number() != ErrorNumber::CancelWasSelected) throw;
        }
    });
}

void FileCommands::saveAs() {
    const auto fileName = context_.platform.fileDialog.save("Save configuration", kFilter,
                                                            context_.state().interfaceKind + ".xml");
    if (!fileName) throw RuntimeError(ErrorNumber::CancelWasSelected);
    if (fileName->empty()) return;
    context_.configuration.setFilePath(*fileName);
    writeAndPublish();
}

void FileCommands::mnuCloseCfg_Click() {
    context_.guarded("mnuCloseCfg_Click", [&] {
        const SaveQuestion question = askToSave(kSaveThis);
        if (question == SaveQuestion::Stop) return;
        keepUnasked(question);
        if (question == SaveQuestion::Settled) context_.configuration.setOpen(false);
        clear();
        context_.enable(Situation::Start);
        context_.configuration.close();
        file_.opened({});
    });
}

// The program ends whatever comes of it.
void FileCommands::saveAtEnd() {
    const EditingState& state = context_.state();
    if (state.configurationOpen && !state.saved) {
        if (!context_.platform.messages.confirms(kSaveActive)) return;
        mnuSaveCfg_Click();
    }
    keepUnasked(SaveQuestion::NotAsked);
}

void FileCommands::mnuExit_Click() {
    context_.guarded("mnuExit_Click", [&] {
        saveAtEnd();
        context_.configuration.setOpen(false);
        context_.platform.window.close();
    });
}

void FileCommands::unload() {
    context_.guarded("Form_Unload", [&] {
        saveAtEnd();
        context_.configuration.setOpen(false);
        context_.configuration.close();
    });
}

}  // namespace trevandix
