# Writes OUTPUT, a source file that contains all SVG files of the folder ICONS.
file(GLOB files ${ICONS}/*.svg)
list(SORT files)
set(rows "")
foreach(file IN LISTS files)
    get_filename_component(name ${file} NAME_WE)
    file(READ ${file} text)
    string(APPEND rows "    {\"${name}\", R\"svg(${text})svg\"},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"Icons.h\"

#include <utility>

namespace trevandix {

namespace {
constexpr std::pair<std::string_view, std::string_view> kIcons[] = {
${rows}};
}  // namespace

std::string_view iconSvg(std::string_view name) {
    for (const auto& [known, svg] : kIcons) {
        if (known == name) return svg;
    }
    return {};
}

}  // namespace trevandix
")
