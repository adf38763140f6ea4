#include "PlantFile.h"

#include <filesystem>
#include <map>
#include <string>

#include "FakePlatform.h"

namespace trevandix::bench {

namespace {

std::string unitText(std::size_t unit, std::size_t items) {
    const std::string name = "PLC" + std::to_string(unit);
    std::string text = "\t\t<PLC name=\"" + name + "\" address = \"192.168." + std::to_string(unit / 250) +
                       "." + std::to_string(unit % 250) + "\" id=\"" + std::to_string(unit % 250) +
                       "\" timeout=\"1000\">\r\n\t\t\t<tags>\r\n";
    for (std::size_t item = 0; item < items; ++item) {
        const std::string branch = "BRANCH" + std::to_string(item / 100);
        if (item % 100 == 0) text += "\t\t\t\t<" + branch + ">\r\n";
        const std::string number = std::to_string(item);
        const std::string tag =
            testing::tagText(5, "Item_" + number, item % 3 == 0 ? "HREGISTER VT_I4" : "HREGISTER VT_BOOL",
                             static_cast<int>(2 * item), "Measured value number " + number);
        text += testing::replaced(tag, "<accessrights>", "<accessrights>READ") + "\r\n";
        if (item % 100 == 99 || item + 1 == items) text += "\t\t\t\t</" + branch + ">\r\n";
    }
    return text + "\t\t\t</tags>\r\n\t\t</PLC>";
}

struct Folder {
    std::filesystem::path path = std::filesystem::temp_directory_path() / "trevandix-bench";
    Folder() { std::filesystem::create_directories(path); }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
};

const std::filesystem::path& folder() {
    static const Folder made;
    return made.path;
}

}  // namespace

const std::string& plantFile(std::size_t items) {
    static std::map<std::size_t, std::string> files;
    std::string& path = files[items];
    if (path.empty()) {
        constexpr std::size_t kItemsPerUnit = 1000;
        std::vector<std::string> units;
        for (std::size_t first = 0; first < items; first += kItemsPerUnit) {
            units.push_back(unitText(units.size(), std::min(kItemsPerUnit, items - first)));
        }
        path = (folder() / (std::to_string(items) + ".xml")).string();
        testing::writeFile(
            path,
            testing::fileText(
                {"\t\t<DATATYPE name=\"HREGISTER\" readcode = \"3\" writecode=\"16\" singlewrcode=\"6\"/>"},
                units));
    }
    return path;
}

std::string outputFile() {
    return (folder() / "written.xml").string();
}

}  // namespace trevandix::bench
