# Sourced by the commands of the repository: what a machine lacks is installed, and the presets are built. Every message
# goes to stderr; the full output of each step lies in build/logs.

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
ROOT=$PWD
LOGS=$ROOT/build/logs
mkdir -p "$LOGS"

BUILD_PACKAGES=(cmake ninja-build g++ g++-mingw-w64-x86-64-posix mingw-w64-tools libwine-dev googletest)
# Drivers of databases are those of the system, also for programs under Wine.
WINE_PACKAGES=(wine wine64 libodbc2 libsqliteodbc fonts-wine xvfb)
TEST_PACKAGES=(g++-mingw-w64-i686-posix clang-format-19 clang-tidy-19)
WINE32_PACKAGES=(libodbc2:i386 libsqliteodbc:i386) # where 32-bit Wine is

Say() { printf '%s\n' "$*" >&2; }

# Logged NAME COMMAND...: runs the command with its output in build/logs/NAME.log; when it fails, shows the end of that.
Logged() {
    local log=$LOGS/$1.log
    shift
    if ! "$@" >"$log" 2>&1 </dev/null; then
        grep -E -m 20 'error|FAILED|^E:' "$log" >&2 || tail -n 20 "$log" >&2
        Say "failed: $*"
        Say "full output: ${log#"$ROOT"/}"
        return 1
    fi
}

# Installs those of the packages that are missing. With all of them present nothing is asked of the network.
NeedPackages() {
    local package missing=() asRoot=()
    for package in "$@"; do
        [[ $(dpkg-query -W -f='${db:Status-Abbrev}' "$package" 2>/dev/null) == ii* ]] || missing+=("$package")
    done
    ((${#missing[@]})) || return 0
    Say "installing: ${missing[*]}"
    ((EUID == 0)) || asRoot=(sudo)
    Logged apt-update "${asRoot[@]}" apt-get update -q || return 1
    Logged apt-install "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# Configure PRESET ON|OFF: whether warnings are errors.
Configure() { Logged "configure-$1" cmake --preset "$1" -D CMAKE_COMPILE_WARNING_AS_ERROR="$2"; }

# BuildPreset PRESET [TARGET...]: builds what is out of date. With STRICT=ON, as ./test has it, warnings are errors. A folder
# made so stays so, lest everything be built twice, until a warning ends a build of somebody else's.
BuildPreset() {
    local preset=$1 folder=build/$1 build
    build=(Logged "build-$preset" cmake --build --preset "$preset" ${2:+--target "${@:2}"})
    if [[ ! -f $folder/build.ninja ]] ||
        { [[ -n ${STRICT-} ]] && ! grep -q '^CMAKE_COMPILE_WARNING_AS_ERROR:.*=ON$' "$folder/CMakeCache.txt"; }; then
        Configure "$preset" "${STRICT:-OFF}" || return 1
    fi
    "${build[@]}" && return
    [[ -z ${STRICT-} ]] && grep -q 'warnings being treated as errors' "$LOGS/build-$preset.log" || return 1
    Say "building again, where warnings are no errors"
    Configure "$preset" OFF && "${build[@]}"
}
