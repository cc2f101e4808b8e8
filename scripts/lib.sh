# What the scripts share: the project's folder as the working directory, messages, and the set-up that each
# script does for itself. It is sourced, not run.
# shellcheck shell=bash

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Says in one line why the script cannot go on, and ends it.
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

# Installs what debian/control lists and the machine lacks. When nothing is missing it asks for no password and
# does not touch the network. The argument is a comma-separated list of the build profiles that
# debian/control tells of; without one it is what a build with its tests needs.
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
