# Shared by the scripts: the project's folder as the working directory, messages, and installation of packages. It is
# sourced, not run.
# shellcheck shell=bash

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Prints a one-line reason and ends the script.
fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# Runs one of the commands that install packages: as root, or through sudo.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "packages are missing and there is no sudo; as root, run: apt-get update && apt-get build-dep ./"
    fi
}

# Installs the missing packages of debian/control. If none is missing, it needs no password and no network. The argument
# is a comma-separated list of the build profiles in debian/control; without one, what a build with tests needs.
set_up() {
    local profiles=${1:-}
    if dpkg-checkbuilddeps -P "$profiles" debian/control 2>/dev/null; then
        return
    fi
    command -v apt-get >/dev/null || fail "install what debian/control lists under Build-Depends first"
    as_root apt-get update
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get build-dep --yes --no-install-recommends --build-profiles "$profiles" ./
}
