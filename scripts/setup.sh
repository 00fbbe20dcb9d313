# shellcheck shell=bash
# What ./run, ./test and .ci/run share: packages, configuring, building, counting tests. Sourced from the project's
# root; nothing here reads standard input.

packageList=${packageList:-packaging/packages.txt}
osRelease=${osRelease:-/etc/os-release}

# Says in one sentence what is wrong and what to do, and ends the script.
fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

heading() {
    printf '\n== %s\n' "$*"
}

# The code name of the Debian release this is, or nothing where it is none that the package list knows.
debianRelease() {
    (
        ID='' VERSION_CODENAME=''
        # shellcheck disable=SC1090 # the file is the system's own
        [ -r "$osRelease" ] && . "$osRelease"
        case "$ID:$VERSION_CODENAME" in
            debian:bookworm | debian:trixie) printf '%s\n' "$VERSION_CODENAME" ;;
        esac
    )
}

# packagesOf RELEASE GROUP...: the names in these groups, one a line; without a release, those common to all.
packagesOf() {
    local release=$1
    shift
    awk -v release="$release" -v groups=" $* " '
        /^[[:space:]]*(#|$)/ { next }
        index(groups, " " $1 " ") && ($3 == "" || $3 == release) { print $2 }
    ' "$packageList"
}

# Of the names on standard input, those that are not installed.
missingOf() {
    local installed
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p' | sort -u)
    sort -u | comm -23 - <(printf '%s\n' "$installed")
}

# needPackages GROUP...: installs what is missing of these groups. Touches no network when nothing is.
needPackages() {
    local release missing names asRoot=() log=build/packages.log
    release=$(debianRelease)
    if [ -z "$release" ]; then
        names=$(packagesOf '' "$@" | tr '\n' ' ')
        fail "this sets itself up on Debian 12 and 13 only; elsewhere, install what these Debian packages hold and" \
            "build with CMake as README.md shows: $names"
    fi
    missing=$(packagesOf "$release" "$@" | missingOf)
    [ -n "$missing" ] || return 0
    # shellcheck disable=SC2086 # names of packages hold no blanks
    set -- $missing
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "packages are missing and sudo is too; as root, run:" \
            "apt-get install --no-install-recommends $*"
        asRoot=(sudo)
    fi
    mkdir -p build
    echo "Installing $# missing packages${asRoot[0]:+ with sudo}: $*"
    # A list that cannot be refreshed may still be good enough for these packages, so only the installation decides.
    "${asRoot[@]}" apt-get update </dev/null >"$log" 2>&1 || true
    "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
        -o DPkg::Lock::Timeout=120 "$@" </dev/null >>"$log" 2>&1 || {
        grep '^E: ' "$log" | tail -n 5 >&2 || tail -n 3 "$log" >&2
        fail "the packages could not be installed; read $log, mend what it says there (usually the network," \
            "/etc/apt/sources.list or the right to use sudo) and start again"
    }
}

# configure PRESET: makes the build folder, unless it is there and was made from these presets in this place. Changes
# to the CMake files are seen by the build itself.
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
        fail "$folder could not be configured; the lines above, from build/configure-$1.log, say why"
    }
}

# build PRESET [TARGET...]: configures when that is needed and builds.
build() {
    local preset=$1 targets=()
    shift
    configure "$preset"
    [ $# -eq 0 ] || targets=(--target "$@")
    # The toolkit's compilers complain about any locale that is not UTF-8, once for each file.
    LC_ALL=C.UTF-8 cmake --build --preset "$preset" "${targets[@]}" ||
        fail "the build in build/$preset failed; its first error stands above"
}

# runTests PRESET [CTEST OPTION...]: runs the built tests and says last how many passed and failed. False when one
# failed and when none ran.
runTests() {
    local preset=$1 report=$PWD/build/$1/tests.xml status=0 tests failed skipped
    shift
    rm -f "$report"
    ctest --preset "$preset" --parallel 2 --no-tests=error --output-junit "$report" "$@" || status=1
    [ -s "$report" ] || fail "ctest ended without a report; its words above say why"
    tests=$(grep -c '<testcase ' "$report") || true
    # Skipped is what said so itself; what could not be started for another reason has failed.
    skipped=$(grep -c '<skipped message="SKIP_' "$report") || true
    failed=$(grep -c -E '<failure|<skipped message="([^S]|S[^K])' "$report") || true
    [ $((tests - skipped)) -gt 0 ] || status=1
    printf '%d passed, %d failed' $((tests - failed - skipped)) "$failed"
    [ "$skipped" -eq 0 ] || printf ', %d skipped' "$skipped"
    printf '\n'
    return "$status"
}
