# What the scripts beside the sources share: packages and building. Sourced, not run.

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libsdl2-dev libsdl2-image-dev liblua5.1-0-dev
    fonts-liberation2 libgl1-mesa-dev)
test_packages=(libgtest-dev libbenchmark-dev libxcb1-dev clang-format clang-tidy python3 python3-pil tidy xvfb x11-xkb-utils xdotool imagemagick)
package_packages=(dpkg-dev binutils xz-utils python3 python3-pil)
# What a screen reader talks to.
test_packages+=(at-spi2-core dbus-daemon gir1.2-atspi-2.0 python3-gi)
# The tests look at the packages, too.
test_packages+=("${package_packages[@]}" lintian desktop-file-utils appstream man-db)

windows_packages=(g++ cmake ninja-build g++-mingw-w64-x86-64-posix wine wine64 googletest)

# Installs the named Debian packages that are missing, asking nothing; says what it lacks when it may not.
install_packages() {
    local missing=()
    local name
    for name in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing ${missing[*]}"
    local as_root=()
    [ "$(id -u)" = 0 ] || as_root=(sudo -n)
    if ! "${as_root[@]}" apt-get update -qq ||
        ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
            "${missing[@]}" >/dev/null; then
        echo "These packages are needed and could not be installed: ${missing[*]}" >&2
        exit 1
    fi
}

# configure PRESET [-DNAME=VALUE...]: what an earlier run switched on stays on.
configure() {
    [ $# -eq 1 ] && [ -f "out/$1/build.ninja" ] || cmake --preset "$@" >/dev/null
}

# build PRESET TARGET...
build() {
    local preset=$1
    shift
    cmake --build --preset "$preset" --target "$@"
}
