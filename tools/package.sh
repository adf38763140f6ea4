#!/usr/bin/env bash
# tools/package.sh version: prints the version of the packages.
# tools/package.sh BUILD: makes build/package/trevandix-editor_VERSION_ARCHITECTURE.deb from a build folder, using cmake
# --install, with icons in all sizes and the documents that Debian requires.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
if [ "$1" = version ]; then
    echo "$version"
    exit
fi
# shellcheck source=tools/packages.sh
. tools/packages.sh
install_packages dpkg-dev librsvg2-bin fakeroot

build=$1
name=trevandix-editor
architecture=$(dpkg --print-architecture)
work=build/package
tree=$work/tree
rm -rf "$tree"
mkdir -p "$tree/DEBIAN"
chmod 755 "$tree/DEBIAN"

put() { # MODE FILE PLACE
    install -D -m "$1" "$2" "$tree/$3"
}

put_program() {
    tools/manual.sh "$build/manual"
    DESTDIR=$(realpath "$tree") cmake --install "$build" --prefix /usr --strip >/dev/null
    strip --remove-section=.comment --remove-section=.note "$tree"/usr/bin/*
    gzip -9n "$tree"/usr/share/man/man1/*.1
    local size
    for size in 16 24 32 48 64 128 256; do
        rsvg-convert -w $size -h $size -o "$work/icon.png" resources/icons/app.svg
        put 644 "$work/icon.png" usr/share/icons/hicolor/${size}x$size/apps/$name.png
    done
}

put_documents() {
    local documents=$tree/usr/share/doc/$name date
    put 644 resources/linux/copyright usr/share/doc/$name/copyright
    put 644 /usr/share/doc/libcli11-dev/copyright usr/share/doc/$name/copyright.cli11
    put 644 /usr/share/doc/nlohmann-json3-dev/copyright usr/share/doc/$name/copyright.nlohmann-json
    date=$(git log -1 --format=%cD 2>/dev/null || date -R)
    printf '%s (%s) unstable; urgency=medium\n\n  * See CHANGELOG.md.gz.\n\n -- %s  %s\n' \
        $name "$version" "$maintainer" "$date" | gzip -9n >"$documents/changelog.gz"
    gzip -9nc CHANGELOG.md >"$documents/CHANGELOG.md.gz"
}

# The packages of the libraries that the programs use, with their minimum versions.
library_packages() {
    mkdir -p "$work/debian"
    printf 'Source: %s\n\nPackage: %s\nArchitecture: any\n' $name $name >"$work/debian/control"
    (cd "$work" && dpkg-shlibdeps -O tree/usr/bin/* 2>/dev/null) | sed 's/^shlibs:Depends=//'
}

write_control() {
    cat >"$tree/DEBIAN/control" <<TEXT
Package: $name
Version: $version
Architecture: $architecture
Maintainer: $maintainer
Installed-Size: $(du -ks --exclude=DEBIAN "$tree" | cut -f1)
Depends: $(library_packages)
Recommends: xdg-utils
Section: utils
Priority: optional
Homepage: $homepage
Description: configuration editor for a Modbus OPC server
 Creates, opens, edits and saves the XML configuration of an OPC DA server
 that reads and writes Modbus devices over TCP/IP or a serial line: data types,
 units, branches and items. The command trevandix checks, compares, formats,
 fills and publishes such files.
TEXT
    (cd "$tree" && find usr -type f -print0 | sort -z | xargs -0 md5sum) >"$tree/DEBIAN/md5sums"
    # No maintainer scripts: triggers of other packages update the caches of desktop entries, icons and file types.
}

setting() { sed -n "s/^set($1 \"\([^\"]*\)\".*/\1/p" CMakeLists.txt; }
maintainer="$(setting TREVANDIX_COMPANY) <$(setting TREVANDIX_CONTACT_MAIL)>"
homepage=$(setting TREVANDIX_CONTACT_URL)

put_program
put_documents
write_control
find "$tree" -type d -exec chmod 755 {} +
find "$tree/usr/share" -type f -exec chmod 644 {} +
package=$work/${name}_${version}_$architecture.deb
fakeroot dpkg-deb --build "$tree" "$package" >/dev/null
echo "Made $package"
