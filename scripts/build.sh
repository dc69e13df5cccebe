# What the commands share: their options, the packages, the build. Sourced at the project's root.
# shellcheck shell=sh

# What a bare Debian 12 or 13 lacks beside Qt, in the order build, look of the screens, private
# instrument.
packages='g++ cmake ninja-build
    fonts-open-sans fonts-dejavu-core
    uidmap'
qt5_packages='qtbase5-dev qtdeclarative5-dev qml-module-qtquick2 qttools5-dev-tools'
qt6_packages='qt6-base-dev qt6-declarative-dev qml6-module-qtquick qml6-module-qtqml
    qml6-module-qtqml-models qml6-module-qtqml-workerscript qt6-l10n-tools'

# For lines in each script's usage().
build_options='  --debug            build without optimisation, with debug information, in a folder of its own
  --sanitize         build with the address and undefined-behaviour sanitizers, likewise
  --qt6              build for Qt 6 instead of Qt 5.15, likewise
  --qmake <path>     build for the Qt 4.8 that this qmake belongs to, likewise
  --arm              build for 32-bit ARM with a Qt 5 from Debian, likewise, and run that with qemu
  --help             show this text'

build=build
build_type=Release
benchmarks=OFF
sanitize=OFF
qt=5
qmake=
embedded=
arm=

fail() {
    echo "$0: $*" >&2
    exit 1
}

# Takes the option in front if it is one of the above. Sets "taken" to the number of words taken.
take_build_option() {
    taken=1
    case $1 in
    --debug)
        build_type=Debug
        build=$build-debug
        ;;
    --sanitize)
        sanitize=ON
        build_type=Debug
        build=$build-sanitize
        ;;
    --qt6)
        qt=6
        build=$build-qt6
        ;;
    --qmake)
        [ $# -gt 1 ] || fail "--qmake needs the path of a qmake"
        qmake=$2
        build=$build-qt4
        taken=2
        ;;
    --arm)
        arm=yes
        build=$build-arm
        ;;
    --help)
        usage
        exit 0
        ;;
    *) fail "unknown option $1; try --help" ;;
    esac
}

# What kind of Qt the qmake belongs to: one that is its own display server, one for another processor?
look_at_qmake() {
    configuration=$("$qmake" -query QMAKE_MKSPECS 2>/dev/null)/qconfig.pri
    if grep -qs '^QT_CONFIG.* embedded' "$configuration"; then
        embedded=yes
        build=$build-embedded
    else
        packages="$packages xvfb xauth"
    fi
    if grep -qs '^QT_ARCH *= *arm$' "$configuration"; then
        arm=yes
    fi
}

# for_qt <packages for Qt 5> <packages for Qt 6>: those for the Qt that was chosen.
for_qt() {
    case $qt in
    5) echo "$1" ;;
    6) echo "$2" ;;
    esac
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

missing_packages() {
    # shellcheck disable=SC2086 # one package per word
    installed=$(dpkg-query --show --showformat='${Package} ${db:Status-Status}\n' $packages \
        2>/dev/null | sed -n 's/ installed$//p')
    for package in $packages; do
        echo "$installed" | grep -qx "$package" || echo "$package"
    done
}

install_missing_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian: taking for granted the like of" $packages
        return
    fi
    missing=$(missing_packages)
    [ -n "$missing" ] || return 0
    echo "Installing" $missing
    as_root apt-get update -q -o Acquire::Retries=5
    # What is found when the build is configured may be more now.
    rm -f "$build/build.ninja"
    # shellcheck disable=SC2086 # one package per word
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q --yes --no-install-recommends -o Acquire::Retries=5 $missing
}

# build_project [target...]
build_project() {
    [ -z "$arm" ] || [ "$sanitize $qt $qmake" = "OFF 5 " ] ||
        fail "--arm goes with none of --sanitize, --qt6 and --qmake"
    [ -z "$qmake" ] || look_at_qmake
    if [ -n "$arm" ]; then
        packages="$packages g++-arm-linux-gnueabihf"
        . scripts/arm.sh
    fi
    packages="$packages $(for_qt "$qt5_packages" "$qt6_packages")"
    install_missing_packages
    [ -z "$arm" ] || prepare_arm
    # What was installed just now may be what the build could do without so far.
    if [ ! -e "$build/build.ninja" ] || [ -n "${missing-}" ]; then
        cmake -G Ninja -S . -B "$build" -DCMAKE_BUILD_TYPE="$build_type" \
            -DFILEBROWSER_SANITIZE="$sanitize" -DFILEBROWSER_BENCHMARKS="$benchmarks" \
            -DFILEBROWSER_QT="$qt" -DQT_QMAKE_EXECUTABLE="$qmake" \
            ${arm:+-DCMAKE_TOOLCHAIN_FILE="$arm_toolchain" -DDEVICE_SYSROOT="$arm_sysroot"}
    fi
    ninja -C "$build" "$@"
}

# Runs a command with a display that nobody sees, if it needs one and has none.
with_display() {
    if [ -n "$qmake" ] && [ -z "$embedded${DISPLAY-}" ]; then
        xvfb-run --auto-servernum "$@"
    else
        "$@"
    fi
}
