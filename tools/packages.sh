# shellcheck shell=bash
# install_packages PACKAGE...: installs missing Debian packages, with sudo unless run as root.

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

install_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -q '^installed$' || missing+=("$package")
    done
    [ ${#missing[@]} = 0 ] && return
    echo "Installing: ${missing[*]}" >&2
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 update -q >&2
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 install -y -q \
        --no-install-recommends "${missing[@]}" >&2
}
