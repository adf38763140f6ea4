#!/usr/bin/env bash
# tools/try-package.sh: installs and starts the packages of ./dev package as a user would. Needs root for chroot.
# The Debian package is installed in a minimal Debian 12, opened with a configuration from the desktop, and removed. The
# Windows zip is unpacked in a folder with a space in its name and started under Wine.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
# shellcheck source=tools/packages.sh
. tools/packages.sh

name=trevandix-editor
version=$(tools/package.sh version)
portable=$root/build/package/${name}_${version}_windows-x64.zip
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

case ${1:-all} in
    all)
        if [ "$(id -u)" != 0 ]; then exec sudo --preserve-env=TREVANDIX_CACHE,XDG_CACHE_HOME "$0"; fi
        install_packages debootstrap xvfb xauth openbox xdotool imagemagick unzip
        xvfb-run -a -s "-noreset -screen 0 1280x900x24 -nolisten tcp -ac" "$0" debian
        # shellcheck disable=SC1091
        (. tools/windows.sh && flock -o "$windows_cache/wine.lock" tools/windows.sh display "$root/tools/try-package.sh" zip)
        ;;
    debian)
        openbox >/dev/null 2>&1 &
        manager=$!
        try_debian "$root/build/package/${name}_${version}_$(dpkg --print-architecture).deb"
        kill $manager
        ;;
    zip) try_zip ;;
esac
