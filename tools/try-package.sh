#!/usr/bin/env bash
# tools/try-package.sh: installs and starts the packages of ./dev package as a user would. Needs root for chroot.
# The Debian package is installed in a minimal Debian 12, opened with a configuration from the desktop, and removed. The
# Windows zip is unpacked in a folder with a space in its name and started under Wine. The Windows installer installs an
# older version, upgrades and removes it, in a copy of Wine's folder; files and registry must then be as before.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
# shellcheck source=tools/packages.sh
. tools/packages.sh

name=trevandix-editor
version=$(tools/package.sh version)
portable=$root/build/package/${name}_${version}_windows-x64.zip
installer=${portable%.zip}.exe
title="VOSK Automation - Trevandix Configuration Editor"
work=build/try-package
mkdir -p "$work"

say() { echo "try: $*"; }
fail() {
    say "$*" >&2
    exit 1
}

# shown PICTURE COMMAND...: runs the command, waits for the main window, takes a screenshot, which must show the file,
# and closes the program.
shown() {
    local picture=$1 window
    shift
    "$@" >"$work/output" 2>&1 &
    window=$(timeout 60 xdotool search --sync --onlyvisible --name "^$title\$" | head -n 1) || true
    [ -n "$window" ] || fail "no main window: $(cat "$work/output")"
    sleep 3 # until the file is open and drawn
    import -window root "$picture"
    xdotool windowactivate --sync "$window" key alt+f x
    for _ in {1..100}; do
        if ! xdotool getwindowname "$window" >/dev/null 2>&1; then
            say "started and closed; screenshot: $picture"
            return
        fi
        sleep 0.1
    done
    fail "the program does not close; screenshot: $picture"
}

# ---------------------------------------------------------------- Debian

inside() { chroot "$clean" env DEBIAN_FRONTEND=noninteractive "$@"; }

make_clean_root() {
    say "installing a minimal Debian"
    debootstrap --variant=minbase bookworm "$clean" >"$work/debootstrap.log"
    mount -t proc proc "$clean/proc"
    mkdir -p "$clean/tmp/.X11-unix"
    mount --bind /tmp/.X11-unix "$clean/tmp/.X11-unix"
    inside apt-get -qq update
    # Every desktop has these.
    inside apt-get -qq -y install --no-install-recommends xdg-utils desktop-file-utils shared-mime-info \
        hicolor-icon-theme libglib2.0-bin >"$work/apt.log" 2>&1
    inside useradd -m engineer
}

# Keeps the folder if something is still mounted there, because that belongs to the machine.
remove_clean_root() {
    local place
    for place in tmp/.X11-unix proc; do
        if mountpoint -q "$clean/$place"; then umount "$clean/$place" || umount -l "$clean/$place" || return; fi
    done
    rm -rf --one-file-system "$clean"
}

traces() { inside find / -xdev \( -path /proc -o -path /tmp -o -path /home -o -path /var/lib/dpkg \) -prune -o \
    -iname '*trevandix*' -print -o -type f -size -1M -exec grep -li trevandix {} + | sort; }

try_debian() {
    local package=$1 file=water-works.xml
    clean=$(mktemp -d /var/tmp/trevandix-clean-XXXXXX) # build/ may be mounted with nodev
    trap remove_clean_root EXIT
    chmod 755 "$clean"
    make_clean_root
    cp "$package" "$clean/tmp/"
    inside apt-get -qq -y install --no-install-recommends "/tmp/${package##*/}" >>"$work/apt.log" 2>&1
    say "installed"
    inside su engineer -c "cp /usr/share/doc/$name/examples/$file ~"
    inside su engineer -c "gio mime application/x-trevandix-configuration" | grep "^Default.*$name.desktop" >/dev/null ||
        fail "no desktop entry opens a configuration"
    inside su engineer -c "gio info -a standard::content-type ~/$file" | grep x-trevandix-configuration >/dev/null ||
        fail "a configuration is not recognised"
    inside su engineer -c "trevandix check ~/$file && trevandix format ~/$file | cmp - ~/$file" || fail "trevandix fails"
    inside test -f /usr/share/man/man1/trevandix.1.gz || fail "trevandix has no manual page"
    shown "$work/debian.png" inside su engineer -c "DISPLAY=$DISPLAY gio open ~/$file"
    inside apt-get -qq -y purge $name >>"$work/apt.log" 2>&1
    local left
    left=$(traces | grep -v '^/var/log/' || true)
    [ -z "$left" ] || fail "left behind: $left"
    say "removed completely"
}

# ---------------------------------------------------------------- Windows

try_zip() {
    local folder
    folder=$(mktemp -d "/tmp/trevandix zip XXXXXX")
    unzip -q "$portable" -d "$folder"
    [ -f "$folder/$name/manual/manual.html" ] || fail "the zip has no manual"
    wine "$folder/$name/trevandix.exe" check --strict "Z:${folder//\//\\}\\$name\\samples\\*.xml" ||
        fail "trevandix.exe fails"
    shown "$work/windows.png" wine "$folder/$name/$name.exe" "Z:${folder//\//\\}\\$name\\samples\\boiler-house-rtu.xml"
    rm -rf "$folder"
}

# silently CODE COMMAND...: runs an installer, which must end with the code.
silently() {
    local code=$1 got=0
    shift
    wine "$@" || got=$?
    [ "$got" = "$code" ] || fail "$(basename "$1") ended with $got instead of $code"
}

# Uninstallers go on in a copy of themselves.
uninstall() { # FOLDER
    wine "$1/uninstall.exe" /S
    for _ in {1..100}; do
        [ -e "$1/uninstall.exe" ] || return 0
        sleep 0.1
    done
    fail "the uninstaller does not end"
}

# snapshot NAME: what files there are, and the registry. Without what Wine and the system's lists of recent files keep,
# and without two keys that every Windows has, but not a new folder of Wine.
snapshot() {
    local hive
    wineserver -w
    find "$WINEPREFIX/drive_c" ! -path '*/Recent*' ! -path '*/Temp/*' ! -path '*/temp/*' | LC_ALL=C sort >"$work/$1.files"
    for hive in HKCU HKLM; do
        wine reg export $hive "Z:${work_path//\//\\}\\$1.$hive" /y >/dev/null
        iconv -f UTF-16 -t UTF-8 "$work/$1.$hive" | tr -d '\r'
    done | awk '/^\[/ { recent = /Recent/ } !recent' |
        grep -vE 'DriverDate|^$|USER\\Software\\(Classes|Microsoft\\Windows\\CurrentVersion\\Uninstall)\]$' >"$work/$1.registry"
}

# unchanged WHEN [FILE...]: files and registry are as before, apart from these files.
unchanged() {
    local when=$1
    shift
    snapshot after
    printf '%s\n' "$@" >"$work/kept"
    diff <(grep -Fxvf "$work/kept" "$work/after.files") <(grep -Fxvf "$work/kept" "$work/before.files") ||
        fail "files differ $when"
    diff "$work/after.registry" "$work/before.registry" || fail "the registry differs $when"
}

value() { wine reg query "$1" /v "$2" 2>/dev/null | tr -d '\r' | sed -n "s/^ *$2 *REG_[A-Z_]* *//p"; }

installed_for_me() { echo "$WINEPREFIX/drive_c/users/$(id -un)/AppData/Local/Programs/Trevandix Configuration Editor"; }

# Installs for the user. The older version has a file that the newer one lacks.
try_upgrade() {
    local old=$1 place key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\TrevandixConfigurationEditor'
    place=$(installed_for_me)
    wine reg add 'HKCU\Environment' /v Path /t REG_EXPAND_SZ /d 'C:\tools;%USERPROFILE%\bin' /f >/dev/null
    snapshot before
    silently 0 "$old" /S /Associate /Path
    [ "$(value "$key" DisplayVersion) $(value 'HKCU\Environment' Path)" = \
        "0.9.0 C:\tools;%USERPROFILE%\bin;$(value "$key" InstallLocation)" ] || fail "not installed as asked"
    wine cmd /c 'trevandix --version' || fail "PATH does not find trevandix"
    shown "$work/start-menu.png" refused_while_running
    [ "$(value "$key" DisplayVersion)" = 0.9.0 ] || fail "replaced while it ran"
    # A new configuration is proposed in the program's folder, and somebody has worked on a sample.
    cp "$place/samples/water-works.xml" "$place/TrevandixTcpIp.xml"
    echo >>"$place/samples/water-works.xml"
    silently 0 "$installer" /S
    [ "$(value "$key" DisplayVersion) $(value "$key" Associate) $(value "$key" Path)" = "$version 0x1 0x1" ] ||
        fail "not upgraded as it was installed"
    [ ! -e "$place/licences/old.txt" ] || fail "the upgrade left a file of the older version"
    uninstall "$place"
    unchanged "after the upgrade was removed" "$(dirname "$place")" "$place" "$place/samples" \
        "$place/samples/water-works.xml" "$place/TrevandixTcpIp.xml"
    rm -r "$place"
    rmdir "$(dirname "$place")"
    say "installed, upgraded and removed"
}

refused_while_running() {
    wine start "$user_folder\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\Trevandix Configuration Editor\\Trevandix Configuration Editor.lnk"
    timeout 60 xdotool search --sync --onlyvisible --name "^$title\$" >/dev/null
    silently 3 "$installer" /S
}

set_path() { wine reg add 'HKCU\Environment' /v Path /t REG_EXPAND_SZ /d "$1" /f >/dev/null; }
path_is() { [ "$(value 'HKCU\Environment' Path)" = "$1" ] || fail "PATH is $(value 'HKCU\Environment' Path) instead of $1"; }

# path_row BEFORE INSTALLED CHANGED UPGRADED REMOVED: what PATH is, and what somebody changes it to before the upgrade.
path_row() {
    set_path "$1"
    silently 0 "$installer" /S /Path
    path_is "$2"
    set_path "$3"
    silently 0 "$installer" /S
    path_is "$4"
    uninstall "$(installed_for_me)"
    path_is "$5"
}

try_path() {
    local long longest folder=$user_folder'\AppData\Local\Programs\Trevandix Configuration Editor'
    long=$(printf 'C:\\folder%04d;' {1..300})
    longest=${long:0:$((2047 - 1 - ${#folder}))}
    set_path 'C:\a'
    snapshot before
    path_row "$longest" "$longest;$folder" "$longest;$folder" "$longest;$folder" "$longest"
    path_row "${longest}x" "${longest}x" "${longest}x" "${longest}x" "${longest}x"
    path_row 'C:\a;' "C:\\a;$folder;" "C:\\a;$folder;$long" "C:\\a;$folder;$long" "C:\\a;$long"
    path_row "$long" "$long" 'C:\a' "C:\\a;$folder" 'C:\a'
    unchanged "after PATH was changed" "$(dirname "$(installed_for_me)")"
    say "changed PATH, or left a long one alone"
}

try_options() {
    local folder key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\TrevandixConfigurationEditor'
    silently 0 "$installer" /S /AllUsers /Associate /Path '/D=C:\editor'
    silently 0 "$installer" /S /AllUsers /Chosen
    [ "$(value "$key" InstallLocation)$(value "$key" Associate)$(value "$key" Path)" = 'C:\editor' ] || fail "choices stay"
    for folder in 'Q:\none' 'C:\windows\win.ini' '"C:\quoted"' 'C:\editor'; do
        silently 2 "$installer" /S /CurrentUser "/D=$folder"
    done
    uninstall "$WINEPREFIX/drive_c/editor"
    unchanged "after choices were taken back and folders refused"
    say "took choices back and refused folders"
}

# For all users: Wine 8 does not look at a user's own associations.
try_association() {
    local place="$WINEPREFIX/drive_c/Program Files/Trevandix Configuration Editor"
    silently 0 "$installer" /S /AllUsers /Associate
    cp "$place/samples/boiler-house-rtu.xml" "$WINEPREFIX/drive_c/plant.xml"
    shown "$work/association.png" wine start 'C:\plant.xml'
    rm "$WINEPREFIX/drive_c/plant.xml"
    uninstall "$place"
    unchanged "after it was removed for all users"
    say "opened by association and removed"
}

try_installer() {
    local old
    user_folder='C:\users\'$(id -un)
    work_path=$(realpath "$work")
    old=$work_path/${name}_0.9.0_windows-x64.exe
    rm -rf "$work_path/wine" "$work_path/old"
    unzip -q "$portable" -d "$work_path/old"
    cp "$root/README.md" "$work_path/old/$name/licences/old.txt"
    tools/installer.sh "$work_path/old/$name" 0.9.0 "$old"
    cp -a "$WINEPREFIX" "$work_path/wine"
    export WINEPREFIX=$work_path/wine
    try_upgrade "$old"
    try_association
    try_options
    try_path
    wineserver -k
    rm -rf "$work_path/wine" "$work_path/old"
}

case ${1:-all} in
    all)
        if [ "$(id -u)" != 0 ]; then exec sudo --preserve-env=TREVANDIX_CACHE,XDG_CACHE_HOME "$0"; fi
        install_packages debootstrap xvfb xauth openbox xdotool imagemagick unzip
        xvfb-run -a -s "-noreset -screen 0 1280x900x24 -nolisten tcp -ac" "$0" debian
        # shellcheck disable=SC1091
        (. tools/windows.sh && flock -o "$windows_cache/wine.lock" tools/windows.sh display "$root/tools/try-package.sh" windows)
        ;;
    debian)
        openbox >/dev/null 2>&1 &
        manager=$!
        try_debian "$root/build/package/${name}_${version}_$(dpkg --print-architecture).deb"
        kill $manager
        ;;
    windows)
        try_zip
        try_installer
        ;;
esac
