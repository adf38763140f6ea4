// What only Windows has: the registry and the server's XML parser, both seen from other processes; files that
// another program holds.
#ifdef _WIN32

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <cstring>

#include "FakePlatform.h"
#include "Plant.h"
#include "model/TypeNames.h"
#include "platform/FileAccess.h"
#include "platform/Text.h"
#include "platform/windows/WindowsRegistry.h"
#include "xmlfile/FormatWords.h"

namespace trevandix::testing {

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

// Beside the interface kinds, so that no server notices.
const std::string kKind = "TrevandixSelfTest";
const std::wstring kKey = L"Software\\VOSKAutomation\\TrevandixSelfTest";

void removePublished() {
    for (const REGSAM view : {KEY_WOW64_64KEY, KEY_WOW64_32KEY}) {
        RegDeleteKeyExW(HKEY_LOCAL_MACHINE, (kKey + L"\\Kind").c_str(), view, 0);
        RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kKey.c_str(), view, 0);
    }
}

struct Published : ::testing::Test {
    Published() { removePublished(); }
    ~Published() override { removePublished(); }
};

std::string utf8(std::wstring_view text) {
    return toUtf8(fs::path(text));
}

/// The line with the value in what the system's own program exports.
std::string exported(const fs::path& folder, const std::string& view) {
    const fs::path file = folder / "exported.reg";
    const std::string command = "reg export HKLM\\Software\\VOSKAutomation\\" + kKind + " \"" +
                                file.string() + "\" /y /reg:" + view + " > nul";
    if (std::system(command.c_str()) != 0) return "nothing";
    const std::string bytes = readFile(file);
    std::wstring wide(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), bytes.data(), wide.size() * sizeof(wchar_t));
    const std::string text = utf8(wide);
    const std::size_t at = text.find("\"ConfigFile\"");
    return at == std::string::npos ? "nothing" : text.substr(at, text.find('\r', at) - at);
}

std::string doubledBackslashes(std::string_view path) {
    std::string text;
    for (const char c : path) text.append(c == '\\' ? 2 : 1, c);
    return text;
}

/// One line as tests/server/read.js prints it.
std::string printed(const Texts& fields) {
    std::string line;
    for (const std::string& text : fields) {
        if (!line.empty()) line += '|';
        for (const wchar_t c : fromUtf8(text).wstring()) {
            if (c >= L' ' && c <= L'~' && c != L'|' && c != L'\\')
                line += static_cast<char>(c);
            else
                line += "\\" + std::to_string(static_cast<unsigned>(c));
        }
    }
    return line + "\r\n";
}

std::string printed(const clsItem& item) {
    const std::string type = fileTypeName(item.sDataType());
    const bool elements = contains(type, "ARRAY") || contains(type, "VT_BSTR");
    return printed({"item", item.sKey().str(), item.sComment(), std::to_string(item.nAddress()), type,
                    item.sAccessRight(), contains(type, "VT_BOOL") ? std::to_string(item.nBitNumber()) : "-",
                    elements ? std::to_string(item.nElements()) : "-"});
}

std::string printed(const clsPLC& unit, bool serial) {
    if (!serial) {
        return printed({"unit", unit.getName(), unit.getAddress(), std::to_string(unit.getUI()),
                        std::to_string(unit.getTimeout())});
    }
    return printed({"unit", unit.getName(), std::to_string(unit.getUI()), unit.getCom(),
                    std::to_string(unit.getBaud()), unit.getParity(), std::to_string(unit.getStopBits()),
                    std::to_string(unit.getDataBits()), unit.getFlowCtl(), std::to_string(unit.getTimeout()),
                    std::to_string(unit.getSilent())});
}

std::string printed(Workplace& place) {
    const Configuration& configuration = place.configuration;
    const FileKind& kind = *fileKindOf(configuration.state.interfaceKind);
    std::string text = printed({"root", upperCased(kind.rootTag)});
    for (const auto& [key, type] : configuration.dataTypes) {
        text += printed({"type", fileTypeName(type->getName()), std::to_string(type->getReadCode()),
                         std::to_string(type->getWriteCode()), std::to_string(type->getSingleWrCode())});
    }
    for (const auto& [key, unit] : configuration.units) {
        text += printed(*unit, configuration.state.interfaceKind == kRtu);
        const TreeNode& top = configuration.tree.at(key);
        for (const TreeNode* node = nextBelow(top, top); node != nullptr; node = nextBelow(*node, top)) {
            text += node->tag() == NodeTag::Item ? printed(place.item(node->key().str()))
                                                 : printed({"branch", node->key().str()});
        }
    }
    return text;
}

/// What the server finds in each file; "refused" where its parser does not take it.
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

// The program of these tests has no manifest: its narrow functions know the characters of one code page only.
TEST_F(Published, InBothViewsWhateverThePath) {
    const Workplace place;
    WindowsRegistry registry;
    for (const std::wstring& path :
         {std::wstring(L"C:\\Plants\\water works.xml"), std::wstring(L"C:\\\u00DCberlauf\\\u00E9tang.xml"),
          std::wstring(L"C:\\\u03A5\u03B4\u03C9\u03C1\\\u0432\u043E\u0434\u0430 \u6C34 \U0001F4A7.xml"),
          L"C:\\" + std::wstring(300, L'x') + L".xml"}) {
        EXPECT_TRUE(registry.publish(kKind, utf8(path)));
        const std::string expected = "\"ConfigFile\"=\"" + doubledBackslashes(utf8(path)) + "\"";
        EXPECT_EQ(exported(place.folder, "64"), expected);
        EXPECT_EQ(exported(place.folder, "32"), expected);
    }
}

// Below a key that lasts until the system stops, none that stays can be made. No right to write is the same
// to the program: the call fails.
TEST_F(Published, SaysWhenItIsRefusedInEitherView) {
    for (const REGSAM view : {KEY_WOW64_64KEY, KEY_WOW64_32KEY}) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, kKey.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                  KEY_ALL_ACCESS | view, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(key);
        EXPECT_FALSE(WindowsRegistry().publish(kKind + "\\Kind", "C:\\plant.xml"));
        removePublished();
        EXPECT_TRUE(WindowsRegistry().publish(kKind + "\\Kind", "C:\\plant.xml"));
        removePublished();
    }
}

TEST(Server, FindsWhatTheEditorSaves) {
    for (const char* sample : {"water-works.xml", "boiler-house-rtu.xml"}) {
        Workplace place;
        place.openText(readFile(fs::path(TREVANDIX_SAMPLES) / sample));
        place.run("mnuSaveCfg");
        EXPECT_EQ(readByServer(place, {"test.xml"}), Texts{printed(place)});
    }
    PlantedWorkplace place({"U", "U.a"});
    place.item("U.a").sComment(utf8(L"\u00B0 \u03A9 \u6C34 \U0001F4A7"));
    place.configuration.setFilePath(place.path("test.xml"));
    place.run("mnuSaveCfg");
    EXPECT_EQ(readByServer(place, {"test.xml"}), Texts{printed(place)});
}

// So that the test above cannot succeed by not looking.
TEST(Server, NoticesEveryField) {
    for (const bool rtu : {false, true}) {
        Workplace place;
        const std::string text =
            readFile(fs::path(TREVANDIX_SAMPLES) / (rtu ? "boiler-house-rtu.xml" : "water-works.xml"));
        place.openText(text);
        Texts fields{"</name>",         "</comment>",      "</address>",  "</datatype>",
                     "</accessrights>", "</databit>",      "</elements>", "\" readcode",
                     "\" writecode",    "\" singlewrcode", "\"/>"};
        if (rtu) {
            for (const char* name : {"id", "com", "baudrate", "parity", "stopbits", "databits", "flowcontrol",
                                     "timeout", "silent"}) {
                fields.push_back("</" + std::string(name) + ">");
            }
        } else {
            for (const char* end : {"\" address", "\" id", "\" timeout", "\">"}) fields.emplace_back(end);
        }
        Texts files;
        for (const std::string& field : fields) {
            std::string changed = text;
            ASSERT_NE(changed.find(field), std::string::npos) << field;
            changed.insert(changed.find(field), "1");
            files.push_back(std::to_string(files.size()) + ".xml");
            writeFile(place.folder / files.back(), changed);
        }
        files.emplace_back("unescaped.xml");
        writeFile(place.folder / files.back(), "<VOSKModBusTcpIpCfg>R&D</VOSKModBusTcpIpCfg>");
        const Texts found = readByServer(place, files);
        ASSERT_EQ(found.size(), files.size());
        EXPECT_EQ(found.back(), printed(Texts{"refused"}));
        for (std::size_t i = 0; i < fields.size(); ++i) {
            EXPECT_NE(found[i], printed(place)) << fields[i];
            EXPECT_NE(found[i], found.back()) << fields[i];
        }
    }
}

// Refused before anything is touched; elsewhere neither hinders the change of a file's name.
TEST(WindowsFiles, OpenElsewhereOrReadOnlyAreNotSaved) {
    PlantedWorkplace place({"U", "U.a"});
    place.configuration.setFilePath(place.path("test.xml"));
    place.run("mnuSaveCfg");
    const std::string path = place.path("test.xml");
    const std::string old = readFile(path);
    plant(place, {"U.b"});
    const auto isRefused = [&] {
        place.configuration.state.saved = false;
        place.run("mnuSaveCfg");
        EXPECT_EQ(place.messages.take().back(), " Error n. 70  Permission denied in CreateXML");
        EXPECT_FALSE(place.configuration.state.saved);
    };
    const auto isUntouched = [&] {
        EXPECT_EQ(readFile(path), old);
        EXPECT_EQ(std::distance(fs::directory_iterator(place.folder), {}), 1);
    };
    // By a program that lets others do nothing, only read, or all but rename and delete.
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
        isUntouched();
    }
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::remove);
    isRefused();
    isUntouched();
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
    place.run("mnuSaveCfg");
    EXPECT_EQ(place.messages.take().back(), path + " saved");
    EXPECT_NE(readFile(path), old);
}

}  // namespace trevandix::testing

#endif
