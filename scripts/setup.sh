# shellcheck shell=bash
# What the commands share: installing packages, configuring, building, running and counting tests. Sourced from the
# project's root; nothing here reads standard input.

packageList=${packageList:-packaging/packages.txt}
osRelease=${osRelease:-/etc/os-release}

# Ends the script with one sentence that says what is wrong and what to do.
fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

heading() {
    printf '\n== %s\n' "$*"
}

# What the package list has for this system: the code name of a Debian release, "relative" for a system that has
# Debian's package names, or nothing.
debianRelease() {
    (
        ID='' VERSION_ID='' VERSION_CODENAME='' DEBIAN_CODENAME=''
        # shellcheck disable=SC1090 # the file is the system's own
        [ -r "$osRelease" ] && . "$osRelease"
        case "$ID:${DEBIAN_CODENAME:-$VERSION_CODENAME}" in
            debian:bookworm | debian:trixie) printf '%s\n' "$VERSION_CODENAME" ;;
            linuxmint:bookworm | linuxmint:trixie) echo relative ;; # Mint's edition that is made from Debian
            ubuntu:*) [ "${VERSION_ID%%.*}" -lt 24 ] || echo relative ;;
            linuxmint:*) [ "${VERSION_ID%%.*}" -lt 22 ] || echo relative ;;
        esac
    )
}

# packagesOf RELEASE GROUP...: the packages in these groups, one a line; without a release, those common to both. A
# relative of Debian gets these and, of those that only one release has, the ones that its apt knows.
packagesOf() {
    local release=$1
    shift
    awk -v release="$release" -v groups=" $* " '
        /^[[:space:]]*(#|$)/ { next }
        index(groups, " " $1 " ") && ($3 == "" || $3 == release) { print $2 }
        index(groups, " " $1 " ") && $3 != "" && release == "relative" {
            if (system("apt-cache show " $2 " >/dev/null 2>&1") == 0) print $2
        }
    ' "$packageList"
}

# Of the packages named on standard input, those that are not installed.
missingOf() {
    local installed
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p' | sort -u)
    sort -u | comm -23 - <(printf '%s\n' "$installed")
}

# needPackages GROUP...: installs the packages of these groups that are missing. Uses the network only if some are.
needPackages() {
    local release missing names asRoot=() log=build/packages.log
    release=$(debianRelease)
    if [ -z "$release" ]; then
        names=$(packagesOf '' "$@" | tr '\n' ' ')
        fail "packages can be installed on Debian 12 and 13, Ubuntu 24.04, Linux Mint 22 and later ones only;" \
            "elsewhere, install the equivalents of these Debian packages and build with CMake as README.md shows:" \
            "$names"
    fi
    [ "$release" != relative ] ||
        echo "Tarvolt has not been tried on this relative of Debian; going on with Debian's package names."
    missing=$(packagesOf "$release" "$@" | missingOf)
    [ -n "$missing" ] || return 0
    # shellcheck disable=SC2086 # package names contain no spaces
    set -- $missing
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "packages are missing, and so is sudo; as root, run:" \
            "apt-get install --no-install-recommends $*"
        asRoot=(sudo)
    fi
    mkdir -p build
    echo "Installing $# missing packages${asRoot[0]:+ with sudo}: $*"
    # Even if the package lists cannot be refreshed, they may be recent enough for these packages.
    "${asRoot[@]}" apt-get update </dev/null >"$log" 2>&1 || true
    "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
        -o DPkg::Lock::Timeout=120 "$@" </dev/null >>"$log" 2>&1 || {
        grep '^E: ' "$log" | tail -n 5 >&2 || tail -n 3 "$log" >&2
        fail "the packages could not be installed; see $log, fix the cause (usually the network," \
            "/etc/apt/sources.list or permission to use sudo) and start again"
    }
}

# configure PRESET: configures the build folder, unless that was done for these presets and this location. The build
# itself notices changes to the CMake files.
configure() {
    local folder=build/$1
    if [ "$folder/build.ninja" -nt CMakePresets.json ] &&
        grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$folder/CMakeCache.txt"; then
        return 0
    fi
    echo "Configuring $folder"
    mkdir -p build
    cmake --fresh --preset "$1" >"build/configure-$1.log" 2>&1 || {
        tail -n 20 "build/configure-$1.log" >&2
        fail "$folder could not be configured; the lines above, from build/configure-$1.log, show why"
    }
}

# build PRESET [TARGET...]: configures if needed and builds.
build() {
    local preset=$1 targets=()
    shift
    configure "$preset"
    [ $# -eq 0 ] || targets=(--target "$@")
    # Qt's compilers print a warning for every file unless the locale is UTF-8.
    LC_ALL=C.UTF-8 cmake --build --preset "$preset" "${targets[@]}" ||
        fail "the build in build/$preset failed; see its first error above"
}

# runTests PRESET [CTEST OPTION...]: runs the built tests and prints how many passed and failed. Fails if a test failed
# or none ran.
runTests() {
    local preset=$1 report=$PWD/build/$1/tests.xml status=0 tests failed skipped
    shift
    rm -f "$report"
    ctest --preset "$preset" --parallel 2 --no-tests=error --output-junit "$report" "$@" || status=1
    [ -s "$report" ] || fail "ctest ended without a report; its output above shows why"
    tests=$(grep -c '<testcase ' "$report") || true
    # Only tests that skipped themselves count as skipped; one that could not be started has failed.
    skipped=$(grep -c '<skipped message="SKIP_' "$report") || true
    failed=$(grep -c -E '<failure|<skipped message="([^S]|S[^K])' "$report") || true
    [ $((tests - skipped)) -gt 0 ] || status=1
    printf '%d passed, %d failed' $((tests - failed - skipped)) "$failed"
    [ "$skipped" -eq 0 ] || printf ', %d skipped' "$skipped"
    printf '\n'
    return "$status"
}
