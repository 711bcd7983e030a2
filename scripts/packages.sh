# The packages of Debian 12 and 13 that the commands need, and how they are installed.
# To be sourced; README.md says what each package is for.

build_packages=(cmake ninja-build g++ ccache qt6-base-dev qt6-serialport-dev libsqlite3-dev libxcb1-dev libzint-dev pkgconf mdbtools-dev)
program_packages=(qt6-translations-l10n fonts-morisawa-bizud-gothic)
no_display_packages=(python3 xvfb xdotool openbox scrot)
# A Japanese input method, and what an assistive technology sees, each on a message bus of its own.
screen_packages=(ibus ibus-anthy at-spi2-core gir1.2-atspi-2.0 python3-gi dbus-daemon)
# dpkg-dev and file find out which packages the Debian package depends on; the five after them check its content.
test_packages=(dpkg-dev file lintian appstream desktop-file-utils man-db systemd libgtest-dev libbenchmark-dev clang-format clang-tidy poppler-utils zbar-tools cups-daemon cups-client cups-ipp-utils cups-filters-core-drivers weston qt6-wayland xwayland "${screen_packages[@]}" "${no_display_packages[@]}")
# Only for ./check --clang.
clang_packages=(clang)
# Only for taking the pictures of the guide anew: guide_pictures.py.
guide_packages=(imagemagick poppler-utils)
bench_packages=(libbenchmark-dev libgtest-dev "${no_display_packages[@]}")

say() { printf '\n== %s\n' "$*"; }

# Prints which of the named packages are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
    done
}

# Installs the named packages that are missing; needs no permission when all are there.
install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is not a Debian system. Needed are the equivalents of: $*"
        return 0
    fi
    local missing as_root=()
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Missing, and neither root nor sudo is here to install them: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    say "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -q
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# A runtime folder of our own where the session gives none.
runtime_folder() {
    if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
        export XDG_RUNTIME_DIR="$PWD/build/runtime"
        mkdir -p "$XDG_RUNTIME_DIR"
        chmod 700 "$XDG_RUNTIME_DIR"
    fi
}
