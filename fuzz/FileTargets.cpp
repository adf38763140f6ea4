#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "FakePlatform.h"
#include "Targets.h"
#include "xmlfile/AmbiguousTexts.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"
#include "xmlfile/LineDocument.h"

namespace trevandix::fuzz {

namespace {

using testing::FakeMessages;
using testing::FakePointer;

void require(bool condition, const char* what) {
    if (!condition) throw std::logic_error(what);
}

// A folder of this process alone.
struct Folder {
    Folder() { std::filesystem::create_directories(path); }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() /
        ("trevandix-fuzz-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
};

const std::filesystem::path& folder() {
    static const Folder own;
    return own.path;
}

struct Archive {
    Archive() { configuration.buildRoot(); }
    bool read(const std::string& path) {
        return ConfigurationReader(configuration, parser, messages, pointer, [] {}).ImportXML(path);
    }

    Configuration configuration;
    PugiXmlParser parser;
    FakeMessages messages;
    FakePointer pointer;
};

std::size_t records(const Configuration& configuration) {
    return configuration.units.size() + configuration.branches.size() + configuration.items.size() +
           configuration.dataTypes.size();
}

void visit(const XmlElement& element, std::size_t& bytes) {
    std::string buffer;
    for (XmlElement child = element.firstChild(); child; child = child.nextSibling()) {
        bytes += child.name().size() + child.text(buffer).size();
    }
}

}  // namespace

void Reader(std::string_view bytes) {
    const std::string path = (folder() / "read.xml").string();
    testing::writeFile(path, bytes);
    Archive archive;
    const bool opened = archive.read(path);
    require(opened == archive.messages.texts.empty(), "opened with a message, or refused without one");
    // Records without a name, which only files can bring, have a node that no key finds.
    if (archive.configuration.units.contains(Key()) || archive.configuration.dataTypes.contains(Key()))
        return;
    require(testing::disagreements(archive.configuration).empty(), "tree and collections disagree");
    if (!opened) return;
    if (!ambiguousTexts(archive.configuration).empty()) return;
    const std::string copy = (folder() / "written.xml").string();
    ConfigurationWriter writer(archive.configuration, archive.messages, archive.pointer);
    require(writer.CreateXML(copy), "what was opened cannot be saved");
    Archive again;
    require(again.read(copy), "what was saved cannot be opened");
    require(records(again.configuration) == records(archive.configuration), "saving lost something");
}

void Fallback(std::string_view bytes) {
    if (bytes.empty()) return;
    const auto references = bytes.front() % 2 == 0 ? References::Writer : References::Xml;
    try {
        const LineDocument document(std::string(bytes.substr(1)), references);
        std::size_t found = 0;
        visit(document.root(), found);
        for (XmlElement section = document.root().firstChild(); section; section = section.nextSibling()) {
            visit(section, found);
        }
        require(found < 2 * bytes.size() + 2, "texts from outside the file");
    } catch (const XmlParseError& error) {
        require(error.line() >= 1, "a failure without a line");
    }
}

}  // namespace trevandix::fuzz
