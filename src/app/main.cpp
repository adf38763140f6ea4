#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/filename.h>
#include <wx/stdpaths.h>

#include <memory>

#include "Version.h"
#include "editor/CommandTable.h"
#include "editor/frmEditing.h"
#include "model/Configuration.h"
#include "platform/FileSafety.h"
#include "platform/Platform.h"
#include "platform/pugi/PugiVersion.h"
#include "platform/pugi/PugiXml.h"
#include "platform/wx/WxClipboard.h"
#include "platform/wx/WxFileDialog.h"
#include "platform/wx/WxForms.h"
#include "platform/wx/WxMainFrame.h"
#include "platform/wx/WxMessages.h"
#include "platform/wx/WxPointer.h"
#include "platform/wx/WxText.h"
#ifdef _WIN32
#include "platform/windows/WindowsRegistry.h"
using SystemRegistry = trevandix::WindowsRegistry;
#else
#include "platform/posix/FileRegistry.h"
using SystemRegistry = trevandix::FileRegistry;
#endif

namespace trevandix {

namespace {

std::string programFolder() {
    return fromWx(wxFileName(wxStandardPaths::Get().GetExecutablePath()).GetPath());
}

/// Everything that lives from start to end, in the order in which it needs each other. The main window is the
/// toolkit's, which deletes it after it was closed.
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

}  // namespace

class App : public wxApp {
public:
    bool OnInit() override;
    int OnExit() override;
    void OnInitCmdLine(wxCmdLineParser& parser) override;
    bool OnCmdLineParsed(wxCmdLineParser& parser) override;

private:
    void openFirst();

    std::unique_ptr<Program> program_;
    wxString file_;  // named on the command line
};

bool App::OnInit() {
    SetAppName(toWx(kProgram));
    SetAppDisplayName(toWx(kProduct));
    SetVendorName(toWx(kCompany));
    if (!wxApp::OnInit()) return false;
    program_ = std::make_unique<Program>();
    program_->window->setParserName(pugiVersion());
    program_->editor.Form_Load();
    program_->window->attach(&program_->editor);
    program_->window->Show();
    program_->window->CallAfter([this] { program_->window->perform([this] { openFirst(); }); });
    return true;
}

// What a crash left comes before the file of the command line, which can be opened at any time.
void App::openFirst() {
    if (!program_->editor.offerRecovery() && !file_.empty()) program_->editor.openFile(fromWx(file_));
}

int App::OnExit() {
    program_.reset();
    return wxApp::OnExit();
}

void App::OnInitCmdLine(wxCmdLineParser& parser) {
    wxApp::OnInitCmdLine(parser);
    parser.AddParam("configuration file", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL);
}

bool App::OnCmdLineParsed(wxCmdLineParser& parser) {
    if (parser.GetParamCount() > 0) {
        wxFileName file(parser.GetParam(0));
        file.MakeAbsolute();
        file_ = file.GetFullPath();
    }
    return wxApp::OnCmdLineParsed(parser);
}

}  // namespace trevandix

wxIMPLEMENT_APP(trevandix::App);
