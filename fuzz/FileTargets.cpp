#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "FakePlatform.h"
#include "Targets.h"
#include "check/Check.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"
#include "xmlfile/Latin1Lines.h"
#include "xmlfile/Mending.h"

namespace trevandix::fuzz {

namespace {

void require(bool condition, const char* what) {
    if (!condition) throw std::logic_error(what);
}

// A temporary folder for this process only.
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

bool read(Configuration& configuration, const std::string& path) {
    configuration.begin(path);
    PugiXmlParser parser;
    return ConfigurationReader(configuration, parser).read(path);
}

std::size_t records(const Configuration& configuration) {
    return configuration.units.size() + configuration.branches.size() + configuration.items.size() +
           configuration.dataTypes.size();
}

}  // namespace

void Reader(std::string_view bytes) {
    const std::string path = (folder() / "read.xml").string();
    testing::writeFile(path, bytes);
    Configuration opened;
    bool valid = false;
    try {
        valid = read(opened, path);
    } catch (const RuntimeError&) {
    }
    require(testing::disagreements(opened).empty(), "tree and collections disagree");
    if (!valid || !firstUnreadable(opened).empty()) return;
    const std::string copy = (folder() / "written.xml").string();
    ConfigurationWriter(opened).write(copy);
    Configuration again;
    require(read(again, copy), "the saved file cannot be opened");
    require(records(again) == records(opened), "saving lost records");
}

void Mending(std::string_view bytes) {
    try {
        const std::string text = mended(bytes);
        require(text.find('\0') == std::string::npos, "a NUL byte in the mended text");
        PugiXmlParser().parse(text);
    } catch (const XmlParseError& error) {
        const bool byMending = std::string_view(error.what()).find(", expected ") != std::string_view::npos;
        require(byMending && error.line() >= 1, "the mended text is not well-formed");
    }
    // Skips line ends, which would end the line in the file, and references, which the reader decodes.
    if (bytes.find_first_of(std::string_view("\0\n", 2)) != std::string_view::npos ||
        bytes.find("&#x") != std::string_view::npos)
        return;
    const std::string file = testing::fileText(
        {}, {"\t\t<PLC name=\"P\" address = \"\" id=\"1\" timeout=\"1\">\r\n\t\t\t<tags>\r\n" +
             testing::tagText(4, "I", "", 1, bytes) + "\r\n\t\t\t</tags>\r\n\t\t</PLC>"});
    const auto document = PugiXmlParser().parse(mended(file));
    XmlElement element = document->root();
    for (const char* name : {"OPC_DA", "PLC", "tags", "tag", "comment"}) element = element.child(name);
    std::string buffer;
    std::string latin1;
    appendLatin1(latin1, element.text(buffer));
    require(latin1 == bytes, "the comment differs from the saved one");
}

}  // namespace trevandix::fuzz
