// Tests for Windows only: the registry and the server's XML parser as other processes see them, and files
// that another program has open.
#ifdef _WIN32

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "FakePlatform.h"
#include "Plant.h"
#include "RandomPlant.h"
#include "check/Check.h"
#include "platform/FileAccess.h"
#include "platform/Services.h"
#include "xmlfile/ConfigurationWriter.h"
#include "xmlfile/Mending.h"

namespace trevandix::testing {

namespace {

namespace fs = std::filesystem;

// A key of its own, so that no server notices.
const std::string kKind = "TrevandixSelfTest";
const std::wstring kMaker = L"Software\\VOSKAutomation";
const std::wstring kKey = kMaker + L"\\TrevandixSelfTest";
constexpr std::array<REGSAM, 2> kViews{KEY_WOW64_64KEY, KEY_WOW64_32KEY};

/// True if the key did not exist. With REG_OPTION_VOLATILE it lasts until the system stops, otherwise until
/// it is deleted.
bool makeKey(const std::wstring& path, DWORD option, REGSAM view) {
    HKEY key = nullptr;
    DWORD disposition = 0;
    EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, option, KEY_ALL_ACCESS | view,
                              nullptr, &key, &disposition),
              ERROR_SUCCESS);
    RegCloseKey(key);
    return disposition == REG_CREATED_NEW_KEY;
}

void removePublished() {
    for (const REGSAM view : kViews) {
        RegDeleteKeyExW(HKEY_LOCAL_MACHINE, (kKey + L"\\Kind").c_str(), view, 0);
        RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kKey.c_str(), view, 0);
    }
}

/// Creates the company's key, which publishing needs, and deletes it afterwards if it did not exist before.
struct Published : ::testing::Test {
    Published() {
        removePublished();
        for (const REGSAM view : kViews) {
            if (makeKey(kMaker, REG_OPTION_NON_VOLATILE, view)) made_.push_back(view);
        }
    }
    ~Published() override {
        removePublished();
        for (const REGSAM view : made_) RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kMaker.c_str(), view, 0);
    }

private:
    std::vector<REGSAM> made_;
};

/// Formats a text as tests/server/read.js prints it.
std::string printed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
    text.remove_prefix(std::min(text.size(), text.find_first_not_of(kBlanks)));
    std::string line = "|";
    for (const wchar_t c : fromUtf8(text).wstring()) {
        if (c >= L' ' && c <= L'~' && c != L'|' && c != L'\\')
            line += static_cast<char>(c);
        else
            line += "\\" + std::to_string(static_cast<unsigned>(c));
    }
    return line;
}

/// Formats an element of the editor's parser as read.js prints it.
std::string printed(const XmlElement& element, int depth = 0) {
    std::string line = std::to_string(depth) + printed(element.name());
    for (const char* name : {"name", "address", "id", "timeout", "readcode", "writecode", "singlewrcode"}) {
        if (const auto value = element.attribute(name)) line += printed(*value);
    }
    std::string below;
    for (XmlElement child = element.firstChild(); child; child = child.nextSibling())
        below += printed(child, depth + 1);
    std::string buffer;
    if (below.empty()) line += printed(element.text(buffer));
    return line + "\r\n" + below;
}

/// What the server's parser reads from each file; "refused" for a file that it does not accept.
Texts readByServer(const Workplace& place, const Texts& files) {
    const fs::path script = fs::absolute(TREVANDIX_SERVER).make_preferred() / "read.js";
    const fs::path output = place.folder / "server.txt";
    std::string command = "cscript //nologo \"" + script.string() + "\"";
    for (const std::string& file : files) command += " \"" + place.path(file) + "\"";
    if (std::system((command + " > \"" + output.string() + "\"").c_str()) != 0) return {"the script failed"};
    const std::string text = readFile(output);
    const std::string end = "end\r\n";
    Texts found;
    std::size_t at = 0;
    for (std::size_t next = text.find(end); next != std::string::npos; next = text.find(end, at)) {
        found.push_back(text.substr(at, next - at));
        at = next + end.size();
    }
    return found;
}

}  // namespace

// No permanent key can be created below a volatile one, so the call fails as it does without permission.
TEST_F(Published, ReportsARefusalInEitherView) {
    for (const REGSAM view : kViews) {
        ASSERT_TRUE(makeKey(kKey, REG_OPTION_VOLATILE, view));
        EXPECT_EQ(SystemRegistry().publish(kKind + "\\Kind", "C:\\plant.xml", Rights::Own),
                  Publication::Refused);
        removePublished();
        EXPECT_EQ(SystemRegistry().publish(kKind + "\\Kind", "C:\\plant.xml", Rights::Own),
                  Publication::Done);
        removePublished();
    }
}

TEST(Server, ParsesWhatTheEditorSaves) {
    const fs::path samples = TREVANDIX_SAMPLES;
    const std::string other =
        replaced(fileText({}, {"\t\t<PLC name=\"P\" address = \"\" id=\"1\" timeout=\"1\">\r\n"
                               "\t\t\t<tags>\r\n\t\t\t</tags>\r\n\t\t</PLC>"}),
                 "name=\"P\"", "name=\"\xB0 &#x3A9; &#x6C34; &#x1F4A7;\"");
    for (const std::string& text :
         {readFile(samples / "water-works.xml"), readFile(samples / "boiler-house-rtu.xml"), other}) {
        Workplace place;
        place.openText(text);
        place.run("mnuSaveCfg");
        // A second, different file proves that the files are really read.
        writeFile(place.path("other.xml"),
                  replaced(readFile(place.path("test.xml")), "</OPC_DA>", "<x/></OPC_DA>"));
        const Texts found = readByServer(place, {"test.xml", "other.xml"});
        ASSERT_EQ(found.size(), 2U);
        EXPECT_EQ(found[0], printed(place.parser.load(place.path("test.xml"))->root()));
        EXPECT_NE(found[1], found[0]);
    }
}

// What has no errors is read as it was saved; a text that the checks name is refused or read as something
// else.
TEST(Server, AgreesWithTheChecks) {
    Workplace place;
    Texts files;
    Texts faults;  // empty where there are no errors
    for (unsigned seed = 1; seed <= 200; ++seed) {
        Configuration configuration;
        configuration.begin("");
        plantAtRandom(configuration, seed);
        const std::string fault = firstUnreadable(configuration);
        const bool errors = countFindings(check(configuration).value()).errors > 0;
        // Some programs read these as they are: the bytes 80 to 9F, TABs and line breaks in elements.
        if (errors && (fault.empty() || fault.ends_with("TAB") || fault.ends_with("break"))) continue;
        const std::string file = std::to_string(seed) + ".xml";
        try {
            ConfigurationWriter(configuration).write(place.path(file));
        } catch (const RuntimeError&) {  // a unit without a node
            continue;
        }
        if (readFile(place.path(file)).find('\x80') != std::string::npos) continue;
        files.push_back(file);
        faults.push_back(fault);
    }
    Texts found;
    constexpr std::ptrdiff_t kMost = 20;  // that a command line holds
    for (auto next = files.begin(); next != files.end();) {
        const auto end = next + std::min(kMost, files.end() - next);
        for (const std::string& text : readByServer(place, {next, end})) found.push_back(text);
        next = end;
    }
    ASSERT_EQ(found.size(), files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::string bytes = readFile(place.path(files[i]));
        SCOPED_TRACE(files[i] + " " + faults[i] + "\n" + bytes);
        std::string meant;  // empty where not even the editor knows
        try {
            meant = printed(place.parser.parse(faults[i].empty() ? bytes : mended(bytes))->root());
        } catch (const XmlParseError&) {
        }
        EXPECT_EQ(found[i] == meant, faults[i].empty());
    }
    EXPECT_GT(std::ranges::count(faults, ""), 50);
    EXPECT_LT(std::ranges::count(faults, ""), static_cast<std::ptrdiff_t>(faults.size()) - 30);
}

// Refused before anything changes; Linux would allow renaming such files.
TEST(WindowsFiles, LockedOrReadOnlyFilesAreNotSaved) {
    PlantedWorkplace place({"U", "U.a"});
    const std::string old = place.saved();
    const std::string path = place.path("test.xml");
    plant(place, {"U.b"});
    const auto isRefused = [&] {
        place.configuration.setSaved(false);
        place.run("mnuSaveCfg");
        EXPECT_EQ(place.messages.take().back(), " Error n. 70  Permission denied in CreateXML");
        EXPECT_FALSE(place.configuration.state.saved);
        EXPECT_EQ(std::distance(fs::directory_iterator(place.folder), {}), 1);
    };
    // Another program has the file open and shares nothing, reading, or reading and writing.
    for (const DWORD share : std::vector<DWORD>{0, FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
        const HANDLE held = CreateFileW(fromUtf8(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(held, INVALID_HANDLE_VALUE);
        isRefused();
        if (share == 0) {
            Workplace other;
            other.editor.openFile(path);
            EXPECT_EQ(other.messages.take(), Texts{" Error n. 70  Permission denied in ImportXML"});
        }
        CloseHandle(held);
        EXPECT_EQ(readFile(path), old);
    }
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::remove);
    isRefused();
    EXPECT_EQ(readFile(path), old);
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
    place.run("mnuSaveCfg");
    EXPECT_EQ(place.messages.take().back(), path + " saved");
    EXPECT_NE(readFile(path), old);
}

}  // namespace trevandix::testing

#endif
