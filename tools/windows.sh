#!/usr/bin/env bash
# Builds the Windows program on Debian 12 with MinGW-w64 and runs it under Wine.
#
#   tools/windows.sh setup   installs packages, builds the libraries and makes Wine's folder, unless they exist
#   tools/windows.sh build   makes build/windows/trevandix-editor.exe, trevandix.exe and a portable zip (runs setup first)
#   tools/windows.sh test    runs unit and window tests under Wine on a virtual display (runs build first)
#   tools/windows.sh wine EXE [ARGUMENT...]   runs a program under Wine
#   tools/windows.sh display COMMAND...   runs a command on a virtual display with Wine's folder
#   tools/windows.sh prefix  prints the folder of the libraries
#
# The libraries and Wine's folder are kept in TREVANDIX_CACHE (default: trevandix-editor in XDG_CACHE_HOME or ~/.cache).

windows_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
windows_cache=${TREVANDIX_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/trevandix-editor}
windows_objects=$windows_root/build/windows-obj
windows_output=$windows_root/build/windows
windows_triplet=x86_64-w64-mingw32

windows_packages=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev libcli11-dev nlohmann-json3-dev cmake ninja-build dpkg-dev librsvg2-bin icoutils zip unzip
    wine wine64 fonts-wine fonts-liberation libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2
    libxrender1 xvfb openbox xdotool imagemagick xclip)

# Source packages in build order: wxWidgets needs libpng.
windows_sources=(pugixml mimalloc libpng1.6 googletest wxwidgets3.2)

windows_pugixml_options=(-DPUGIXML_BUILD_TESTS=OFF)
# As C++, because C code cannot throw std::bad_alloc.
windows_mimalloc_options=(-DMI_USE_CXX=ON -DMI_OVERRIDE=OFF -DMI_INSTALL_TOPLEVEL=ON
    -DMI_BUILD_SHARED=OFF -DMI_BUILD_OBJECT=OFF -DMI_BUILD_TESTS=OFF)
windows_libpng_options=(-DPNG_SHARED=OFF -DPNG_TESTS=OFF -DPNG_EXECUTABLES=OFF
    "-DZLIB_LIBRARY=/usr/$windows_triplet/lib/libz.a" "-DZLIB_INCLUDE_DIR=/usr/$windows_triplet/include")
windows_googletest_options=(-DBUILD_GMOCK=OFF -DINSTALL_GTEST=ON)
windows_wxwidgets_options=(
    "-DZLIB_LIBRARY=/usr/$windows_triplet/lib/libz.a" "-DZLIB_INCLUDE_DIR=/usr/$windows_triplet/include"
    -DwxBUILD_USE_STATIC_RUNTIME=ON -DwxUSE_ZLIB=sys -DwxUSE_LIBPNG=sys -DwxUSE_NANOSVG=builtin)
# Parts of wx that the editor does not use, or that would need further libraries.
for windows_feature in LIBJPEG LIBTIFF EXPAT REGEX LIBLZMA \
    XML XRC HTML STC AUI PROPGRID RIBBON RICHTEXT MEDIACTRL OPENGL WEBVIEW WEBVIEW_IE WEBVIEW_EDGE DEBUGREPORT \
    HELP MS_HTML_HELP WXHTML_HELP DOC_VIEW_ARCHITECTURE MDI MDI_ARCHITECTURE \
    SOCKETS IPC PROTOCOL PROTOCOL_HTTP PROTOCOL_FTP PROTOCOL_FILE URL FS_INET WEBREQUEST DIALUP_MANAGER \
    FS_ARCHIVE FS_ZIP ARCHIVE_STREAMS ZIPSTREAM TARSTREAM \
    PRINTING_ARCHITECTURE POSTSCRIPT POSTSCRIPT_ARCHITECTURE_IN_MSW AFM_FOR_POSTSCRIPT SVG GRAPHICS_DIRECT2D \
    ACTIVEX CRASHREPORT STACKWALKER ON_FATAL_EXCEPTION DBGHELP SECRETSTORE SOUND JOYSTICK WINRT; do
    windows_wxwidgets_options+=("-DwxUSE_$windows_feature=OFF")
done

say() { printf '%s\n' "windows: $*" >&2; }

# Runs a command as root.
as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# ---------------------------------------------------------------- packages

install_packages() {
    local missing=() package
    for package in "${windows_packages[@]}"; do
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    if [ ${#missing[@]} = 0 ]; then return; fi
    say "installing ${missing[*]}"
    as_root apt-get -qq -o DPkg::Lock::Timeout=300 update
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -y -o DPkg::Lock::Timeout=300 \
        install --no-install-recommends "${missing[@]}" >/dev/null
}

# Reads deb822 stanzas and prints a source stanza for each binary one. Leaves out other vendors (whose suite is not this
# release with the component "main"), because many have no sources and "apt update" would fail.
deb822_source_twins() {
    awk -v release="$1" '
        BEGIN { RS = ""; FS = "\n" }
        {
            text = ""; binary = suite = component = 0
            for (i = 1; i <= NF; i++) {
                if ($i ~ /^#/) continue
                if ($i ~ /^Types:.*deb( |$)/) { binary = 1; $i = "Types: deb-src" }
                if ($i ~ /^Suites:/ && index($i, release)) suite = 1
                if ($i ~ /^Components:.*main/) component = 1
                if ($i ~ /^Enabled: *no/) next
                text = text $i "\n"
            }
            if (binary && suite && component) print text
        }'
}

# The same for lines in the older one-line format.
list_source_twins() {
    awk -v release="$1" '/^deb / && !/ cdrom:/ && index($0, " " release) && / main/ { sub(/^deb/, "deb-src"); print }'
}

# add_source_entries FILE: writes standard input to a file in apt's list folder, unless it is empty.
add_source_entries() {
    local entries
    entries=$(cat)
    if [ -n "$entries" ]; then as_root tee "/etc/apt/sources.list.d/$1" <<<"$entries" >/dev/null; fi
}

# Adds the source packages to apt's lists if they are not known yet.
enable_source_packages() {
    local release folder=/etc/apt/sources.list.d
    if apt-cache showsrc "${windows_sources[@]}" >/dev/null 2>&1; then return; fi
    if [ -z "$(apt-get indextargets 'Created-By: Sources')" ]; then
        # shellcheck source=/dev/null
        release=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
        say "adding the source packages of $release to apt"
        find "$folder" -name '*.sources' -exec cat {} \; -exec echo \; |
            deb822_source_twins "$release" | add_source_entries trevandix-editor-sources.sources
        find /etc/apt -maxdepth 2 -name '*.list' -type f -exec cat {} \; |
            list_source_twins "$release" | add_source_entries trevandix-editor-sources.list
    fi
    as_root apt-get -qq -o DPkg::Lock::Timeout=300 update
}

# Unpacks one source package into the current folder. Tries the newest version first, then the others, because a mirror
# may not have the newest one.
fetch_listed() {
    local package=$1 version
    fetch_answer="apt does not know it"
    for version in $(apt-cache showsrc "$package" 2>/dev/null | sed -n 's/^Version: //p' | sort -Vru); do
        fetch_answer=$(apt-get -qq -o APT::Sandbox::User=root source "$package=$version" 2>&1) && return
    done
    return 1
}

# The same; updates apt's lists and tries again if no listed version is available.
fetch_source() {
    if fetch_listed "$1"; then return; fi
    as_root apt-get -qq -o DPkg::Lock::Timeout=300 update
    if fetch_listed "$1"; then return; fi
    say "the source package $1 cannot be fetched: $fetch_answer"
    return 1
}

# ---------------------------------------------------------------- libraries

# Prints the folder of the libraries. Its name depends on compiler, options and build steps.
library_prefix() {
    local key
    key=$({
        "$windows_triplet-g++-posix" -dumpfullversion
        printf '%s\n' "${windows_sources[@]}" "${windows_pugixml_options[@]}" "${windows_mimalloc_options[@]}" \
            "${windows_libpng_options[@]}" "${windows_googletest_options[@]}" "${windows_wxwidgets_options[@]}"
        declare -f build_library build_libraries keep_licences
        grep -v '^#' "$windows_root/cmake/mingw-w64.cmake"
    } | sha256sum)
    printf '%s\n' "$windows_cache/windows-${key:0:12}"
}

# build_library NAME PREFIX WORK OPTION...: configures, builds and installs the source WORK/NAME-*. Only the install
# step gets the real prefix, because wx stores the configured one in the program.
build_library() {
    local name=$1 prefix=$2 work=$3 source log
    shift 3
    source=$(find "$work" -maxdepth 1 -type d -name "$name*-*")
    log=$work/$name.log
    say "building $(basename "$source")"
    cmake -S "$source" -B "$work/obj-$name" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_STANDARD=20 \
        -DCMAKE_TOOLCHAIN_FILE="$windows_root/cmake/mingw-w64.cmake" -DTREVANDIX_WINDOWS_PREFIX="$prefix" \
        -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_SHARED_LIBS=OFF "$@" >"$log" 2>&1 &&
        nice ninja -C "$work/obj-$name" >>"$log" 2>&1 &&
        cmake --install "$work/obj-$name" --prefix "$prefix" >>"$log" 2>&1 && return
    tail -n 30 "$log" >&2
    return 1
}

# The program contains these libraries, so their licences are distributed with it.
keep_licences() {
    local prefix=$1 work=$2 file name
    mkdir -p "$prefix/licences"
    for file in "$work"/{pugixml,mimalloc,libpng,wxwidgets}*/debian/copyright; do
        name=${file%/debian/copyright}
        cp "$file" "$prefix/licences/$(basename "${name%-*}").txt" || return
    done
    cp /usr/share/doc/libz-mingw-w64-dev/copyright "$prefix/licences/zlib.txt" &&
        cp /usr/share/doc/mingw-w64-x86-64-dev/copyright "$prefix/licences/mingw-w64.txt" &&
        cp /usr/share/doc/g++-mingw-w64-x86-64-posix/copyright "$prefix/licences/gcc.txt"
}

build_libraries() {
    local prefix=$1 work=$1.work package
    rm -rf "$prefix" "$work"
    mkdir -p "$prefix" "$work"
    for package in "${windows_sources[@]}"; do (cd "$work" && fetch_source "$package") || return; done
    build_library pugixml "$prefix" "$work" "${windows_pugixml_options[@]}" &&
        build_library mimalloc "$prefix" "$work" "${windows_mimalloc_options[@]}" &&
        build_library libpng "$prefix" "$work" "${windows_libpng_options[@]}" &&
        build_library googletest "$prefix" "$work" "${windows_googletest_options[@]}" &&
        build_library wxwidgets "$prefix" "$work" "${windows_wxwidgets_options[@]}" \
            -DPNG_LIBRARY="$prefix/lib/libpng.a" -DPNG_PNG_INCLUDE_DIR="$prefix/include" || return
    keep_licences "$prefix" "$work" && (cd "$work" && printf '%s\n' *.dsc) >"$prefix/stamp" && rm -rf "$work"
}

# once STAMP COMMAND...: runs the command unless the stamp exists, in one process at a time. The command writes the
# stamp last, so interrupted work is repeated.
once() {
    local stamp=$1
    shift
    [ -f "$stamp" ] && return
    mkdir -p "$windows_cache"
    (
        flock 9
        [ -f "$stamp" ] || "$@"
    ) 9>"$windows_cache/windows.lock"
}

# ---------------------------------------------------------------- Wine

# Wine's folder contains its registry and drive C:. No menu entries on the host, no questions about Mono and Gecko. Wine
# tells only why it ends a program.
use_wine() {
    export WINEPREFIX=$windows_cache/wine WINEDEBUG=-all,err+seh,err+virtual WINEARCH=win64
    export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
}

make_wine_folder() {
    say "setting up Wine"
    rm -rf "$WINEPREFIX"
    env -u DISPLAY wine wineboot --init >/dev/null 2>&1 9>&- && wineserver -w && : >"$WINEPREFIX/stamp"
}

manages_windows() { xdotool get_desktop >/dev/null 2>&1; }

# Runs a command on its own virtual display with a window manager, and stops both afterwards.
with_display() {
    local number code=0 manager server
    number=$(mktemp)
    # Without -noreset the display restarts when its first client leaves, and refuses others meanwhile.
    Xvfb -displayfd 3 -noreset -screen 0 1280x900x24 -nolisten tcp 3>"$number" 2>/dev/null &
    server=$!
    for _ in {1..100}; do if [ -s "$number" ]; then break; else sleep 0.1; fi; done
    local -x DISPLAY
    DISPLAY=:$(cat "$number")
    rm -f "$number"
    openbox >/dev/null 2>&1 &
    manager=$!
    for _ in {1..300}; do if manages_windows; then break; else sleep 0.1; fi; done
    # By itself the server ends with each program, and the next one may meet it while it ends.
    wineserver -p 9>&- || true
    "$@" || code=$?
    wineserver -k || true
    kill "$manager" "$server" 2>/dev/null || true
    wait "$manager" "$server" 2>/dev/null || true
    return "$code"
}

# ---------------------------------------------------------------- commands

windows_setup() {
    install_packages
    local prefix
    prefix=$(library_prefix)
    if [ ! -f "$prefix/stamp" ]; then enable_source_packages; fi
    once "$prefix/stamp" build_libraries "$prefix"
    use_wine
    once "$WINEPREFIX/stamp" make_wine_folder
}

windows_build() {
    windows_setup
    local prefix
    prefix=$(library_prefix)
    cmake -S "$windows_root" -B "$windows_objects" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_COMPILE_WARNING_AS_ERROR=ON \
        -DCMAKE_TOOLCHAIN_FILE="$windows_root/cmake/mingw-w64.cmake" -DTREVANDIX_WINDOWS_PREFIX="$prefix"
    cmake --build "$windows_objects"
    mkdir -p "$windows_output"
    cp "$windows_objects"/trevandix{-editor,}.exe "$windows_output/"
    "$windows_root/tools/check-imports.sh" "$windows_output"/trevandix{-editor,}.exe
    pack_portable "$prefix"
}

# The portable folder: both programs, the samples, the manual and the licences.
pack_portable() {
    local prefix=$1 folder=$windows_output/trevandix-editor extra
    rm -rf "$folder" "$folder.zip"
    mkdir -p "$folder"
    cp "$windows_output"/trevandix{-editor,}.exe "$folder/"
    cp -r "$prefix/licences" "$folder/licences"
    cp /usr/share/doc/libcli11-dev/copyright "$folder/licences/cli11.txt"
    cp /usr/share/doc/nlohmann-json3-dev/copyright "$folder/licences/nlohmann-json.txt"
    "$windows_root/tools/manual.sh" "$folder/manual"
    for extra in samples LICENSE; do
        if [ -e "$windows_root/$extra" ]; then cp -r "$windows_root/$extra" "$folder/"; fi
    done
    (cd "$windows_output" && zip -qrX trevandix-editor.zip trevandix-editor)
    rm -rf "$folder"
    say "made trevandix-editor.exe, trevandix.exe and trevandix-editor.zip in $windows_output"
}

windows_test() {
    windows_build
    "$windows_root/tools/check-imports.sh" --self-test
    # Tests of all checkouts share one Wine folder and registry, so only one may run. With flock -o, Wine's server,
    # which outlives the programs, does not keep the lock.
    flock -o "$windows_cache/wine.lock" "$windows_root/tools/windows.sh" test-built
}

run_unit_tests() {
    local test count=0
    while read -r test; do
        say "$(basename "$test")"
        timeout 300 wine "$test" --gtest_brief=1 || return
        count=$((count + 1))
    done < <(find "$windows_objects" -name '*test*.exe' ! -path '*/CMakeFiles/*' | sort)
    if [ "$count" = 0 ]; then
        say "no test program was built"
        return 1
    fi
}

# The scripts of tests/window, with the same keys as on Linux.
run_window_test() {
    local flow
    for flow in new open-view-save editing undo bulk problems tables map large random crash portable; do
        say "window.$flow"
        TREVANDIX_PROGRAM=$windows_output/trevandix-editor.exe timeout 120 \
            "$windows_root/tests/window/$flow.sh" || return
    done
}

run_built_tests() {
    use_wine
    with_display run_unit_tests
    say "command-line"
    TREVANDIX_PROGRAM=$windows_output/trevandix.exe with_display "$windows_root/tests/command-line.sh"
    with_display run_window_test
}

windows_main() {
    local command=${1:-build}
    [ $# = 0 ] || shift
    case $command in
        setup | build | test) "windows_$command" "$@" ;;
        test-built) run_built_tests ;;
        prefix) library_prefix ;;
        wine)
            use_wine
            once "$WINEPREFIX/stamp" make_wine_folder
            wine "$@"
            ;;
        display)
            use_wine
            with_display "$@"
            ;;
        *)
            say "unknown command $command"
            return 2
            ;;
    esac
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then
    set -euo pipefail
    # Linux may put the heap of Wine's loader at random where Wine needs a fixed address. Wine then ends with code 1.
    if [ "$(cat /proc/self/personality 2>/dev/null)" = 00000000 ] && setarch --addr-no-randomize true 2>/dev/null; then
        exec setarch --addr-no-randomize "$0" "$@"
    fi
    windows_main "$@"
    exit # so that editing this file does not affect a running script
fi
