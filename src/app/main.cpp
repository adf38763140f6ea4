#include <wx/app.h>
#include <wx/filename.h>
#include <wx/msgdlg.h>
#include <wx/stdpaths.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Version.h"
#include "app/CommandLine.h"
#include "app/PublishingChild.h"
#include "editor/CommandTable.h"
#include "editor/EditorContext.h"
#include "editor/frmEditing.h"
#include "model/Configuration.h"
#include "platform/FileAccess.h"
#include "platform/Services.h"
#include "platform/pugi/PugiXml.h"
#include "wx/WxBasics.h"
#include "wx/WxForm.h"
#include "wx/WxMainFrame.h"
#include "wx/WxServices.h"

namespace trevandix {

namespace {

std::string programFolder() {
    return fromWx(wxFileName(wxStandardPaths::Get().GetExecutablePath()).GetPath());
}

/// The objects that live as long as the program, in order of dependency. wx deletes the main window when it
/// is closed.
struct Program {
    Configuration configuration;
    ListView list;
    WxPointer pointer;
    WxMessages messages;
    WxFileDialog fileDialog;
    WxClipboard clipboard;
    SystemRegistry registry;
    PugiXmlParser xmlParser;
    WxMainFrame* window = new WxMainFrame(commandTables(), configuration.tree, list, pointer);
    WxForms forms{*window};
    Platform platform{messages, fileDialog, clipboard, registry,        pointer,          xmlParser,
                      forms,    *window,    *window,   programFolder(), userStateFolder()};
    frmEditing editor{platform, configuration, list};
};

void show(const CommandLine& commandLine) {
#ifdef _WIN32
    // A Windows GUI program has no console.
    wxMessageBox(toWx(commandLine.answer), toWx(kProduct), wxOK);
#else
    std::fputs(commandLine.answer.c_str(), commandLine.exitCode == 0 ? stdout : stderr);
#endif
}

}  // namespace

class App : public wxApp {
public:
    bool OnInit() override;
    int OnRun() override;
    int OnExit() override;

private:
    void openFirst();

    std::unique_ptr<Program> program_;
    CommandLine commandLine_;
    std::optional<int> published_;  ///< the exit code if the program was started for this only
};

bool App::OnInit() {
    SetAppName(toWx(kProgram));
    SetAppDisplayName(toWx(kProduct));
    SetVendorName(toWx(kCompany));
    std::vector<std::string> arguments;
    for (int at = 1; at < argc; ++at) arguments.push_back(fromWx(argv[at]));
    published_ = publishAsChild(arguments);
    commandLine_ = readCommandLine(arguments);
    if (published_ || !commandLine_.answer.empty()) return true;
    program_ = std::make_unique<Program>();
    program_->window->setParserName(pugiVersion());
    program_->editor.Form_Load();
    program_->window->attach(&program_->editor);
    program_->window->Show();
    program_->window->CallAfter([this] { program_->window->perform([this] { openFirst(); }); });
    return true;
}

int App::OnRun() {
    if (published_) return *published_;
    if (commandLine_.answer.empty()) return wxApp::OnRun();
    show(commandLine_);
    return commandLine_.exitCode;
}

// Recovered work comes first: the file on the command line can be opened at any time.
void App::openFirst() {
    std::string path;
    if (!commandLine_.file.empty()) {
        wxFileName file(toWx(commandLine_.file));
        file.MakeAbsolute();
        path = fromWx(file.GetFullPath());
    }
    program_->editor.start(path);
}

int App::OnExit() {
    program_.reset();
    return wxApp::OnExit();
}

}  // namespace trevandix

#ifdef _WIN32
wxIMPLEMENT_APP(trevandix::App);
#else
wxIMPLEMENT_APP_NO_MAIN(trevandix::App);

int main(int argc, char** argv) {
    // Help and version need no display. Other options go to wx, which has some of its own.
    const auto asked = trevandix::readCommandLine({argv + 1, argv + argc});
    if (asked.answer.empty() || asked.exitCode != 0) return wxEntry(argc, argv);
    trevandix::show(asked);
    return 0;
}
#endif
