#!/usr/bin/env bash
# tools/installer.sh FOLDER VERSION INSTALLER: makes a Windows installer for the portable folder that tools/windows.sh
# has packed. resources/windows/installer.nsi says what it does.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=tools/packages.sh
. "$root/tools/packages.sh"
install_packages nsis librsvg2-bin imagemagick
folder=$(realpath "$1")
version=$2
installer=$(realpath -m "$3")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
files=$work/files.nsh

setting() { sed -n "s/^set($1 \"\([^\"]*\)\".*/\1/p" "$root/CMakeLists.txt"; }

# Two macros for the script: installFiles, which leaves samples that are there, and removeFiles.
cd "$folder"
{
    echo '!macro installFiles'
    find . -type f -printf '%P\n' | LC_ALL=C sort | while read -r file; do
        place=${file%"${file##*/}"}
        place=${place//\//\\}
        case $file in samples/*) echo 'SetOverwrite off' ;; *) echo 'SetOverwrite on' ;; esac
        printf 'SetOutPath "$INSTDIR\\%s"\nFile "%s"\n' "${place%\\}" "$folder/$file"
    done
    printf '!macroend\n!macro removeFiles\n'
    find . -type f -printf '%P\n' | LC_ALL=C sort | while read -r file; do
        case $file in
            samples/*) printf '!insertmacro removeUnchanged "%s" "%s"\n' "${file//\//\\}" "$folder/$file" ;;
            *) printf 'Delete "$INSTDIR\\%s"\n' "${file//\//\\}" ;;
        esac
    done
    find . -mindepth 1 -depth -type d -printf '%P\n' | while read -r place; do printf 'RMDir "$INSTDIR\\%s"\n' "${place//\//\\}"; done
    echo '!macroend'
} >"$files"

icon=$root/build/windows-obj/src/app/trevandix-editor-resources/trevandix-editor.ico
# The last page shows the icon on the window's colour.
rsvg-convert -w 96 -o "$work/icon.png" "$root/resources/icons/app.svg"
convert -size 164x314 xc:white "$work/icon.png" -gravity center -composite "BMP3:$work/page.bmp"
makensis -V2 -WX -INPUTCHARSET UTF8 "-DVERSION=$version" "-DNUMBERS=$version.0" "-DOUT=$installer" "-DICON=$icon" "-DPICTURE=$work/page.bmp" \
    "-DFILES=$files" "-DCOMPANY=$(setting TREVANDIX_COMPANY)" "-DPRODUCT=$(setting TREVANDIX_PRODUCT)" \
    "-DURL=$(setting TREVANDIX_CONTACT_URL)" "$root/resources/windows/installer.nsi"
echo "Made $installer"
