# Sourced by the scripts: installs the Debian packages that are missing.

packages_to_run="g++ cmake ninja-build qt6-base-dev qt6-base-dev-tools qt6-serialport-dev qt6-svg-dev
  fonts-open-sans dbus xvfb xauth openbox libxtst-dev libx11-dev libxcb1-dev python3"
packages_to_test="$packages_to_run libgtest-dev libgmock-dev clang-format at-spi2-core gir1.2-atspi-2.0 python3-gi"
packages_to_check="$packages_to_test clang libclang-rt-14-dev"
packages_to_bench="$packages_to_test libbenchmark-dev libeigen3-dev libboost-dev libopencv-core-dev"
packages_to_tidy="$packages_to_bench clang clang-tidy libclang-rt-14-dev"

# install_missing PACKAGE...
install_missing() {
    missing=""
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    echo "Installing from Debian's packages:$missing"
    as_root=""
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null 2>&1; then
            echo "These packages are missing and can be installed neither as root nor with sudo:$missing" >&2
            exit 1
        fi
        as_root="sudo"
    fi
    $as_root apt-get update -qq
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

# in_order DESCRIPTION COMMAND...: says what it does and what time it took, and fails with one clear sentence.
in_order() {
    description="$1"
    shift
    echo "== $description"
    TIMEFORMAT="   took %R s, of the processors' time %U s, of the system's %S s"
    time "$@" || {
        echo "Failed: $description." >&2
        exit 1
    }
}

# tell_time WHAT: since the script began.
tell_time() {
    # Only without a pipe does the builtin tell of this shell and its children.
    used="$(mktemp)"
    times >"$used"
    processor="$(awk 'NR == 2 { for (i = 1; i <= 2; ++i) { split($i, part, /[ms]/); sum += 60 * part[1] + part[2] } }
                      END { printf "%d", sum }' "$used")"
    rm -f "$used"
    echo "== $1: $SECONDS s, $processor s of processor time since the script began"
}
