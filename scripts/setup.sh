# Shared by ./run, ./test and .ci/run: what the project needs of Debian 12, and how it is built.
# To be sourced with the repository as the current directory.

build_packages=(g++ cmake ninja-build ccache qt6-base-dev qt6-charts-dev libqt6opengl6-dev libgl-dev libsqlite3-dev libicu-dev libfuse3-dev pkg-config)
run_packages=(libqt6svg6 qt6-translations-l10n breeze-icon-theme fonts-dejavu-core xdg-utils fuse3)
test_packages=(libgtest-dev sqlite3 python3)
check_packages=(clang-format)

# Another checkout of the same sources finds its objects in the cache too.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

say() { printf '%s\n' "$*" >&2; }

# install_missing PACKAGE...: asks for root only when something is missing.
install_missing() {
    command -v dpkg-query >/dev/null && command -v apt-get >/dev/null || {
        say "No apt here. What is needed, by its Debian names: $*"
        return 0
    }
    local package missing=() as_root=()
    for package in "$@"; do
        [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || missing+=("$package")
    done
    ((${#missing[@]})) || return 0
    if ((EUID != 0)); then
        command -v sudo >/dev/null || {
            say "Please install as root: apt-get install ${missing[*]}"
            return 1
        }
        as_root=(sudo)
    fi
    say "Installing ${missing[*]}"
    "${as_root[@]}" apt-get update -q
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# build PRESET TARGET... [-- CMAKE_OPTION...]: configures build/PRESET and builds the targets.
build() {
    local preset=$1 targets=() options=() jobs
    shift
    while (($#)) && [[ $1 != -- ]]; do
        targets+=("$1")
        shift
    done
    (($#)) && options=("${@:2}")
    if command -v ccache >/dev/null; then
        options+=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    jobs=$(nproc)
    cmake --preset "$preset" --log-level=WARNING "${options[@]}" >/dev/null
    cmake --build "build/$preset" --parallel "$jobs" --target "${targets[@]}"
}
