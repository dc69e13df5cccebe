# What --arm adds: a Qt for 32-bit ARM to build with, and a machine that runs what was built. Sourced at
# the project's root, after scripts/build.sh.
# shellcheck shell=sh

arm_toolchain=cmake/toolchains/arm-linux-gnueabihf.cmake
# Debian's, as the machine has it outside. Ignored by git, and kept when the build is thrown away.
arm_folder=$PWD/build-arm-machine
arm_sysroot=$arm_folder/sysroot
arm_qemu=$arm_folder/qemu-arm

# A package manager of its own for another architecture or suite: what the machine has installed stays
# out of its sight, and the machine's package manager never hears of it.
#   other_apt <architecture> <suite>: prepares it, for "apt_get" to use.
other_apt() {
    apt_state=$arm_folder/apt
    rm -rf "$apt_state" "$arm_folder/unpacked"
    mkdir -p "$apt_state/lists/partial" "$apt_state/archives/partial" "$apt_state/none"
    : >"$apt_state/status"
    architecture=$1
    echo "deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $(mirror) $2 main" \
        >"$apt_state/sources.list"
    apt_get update
}

# As root its downloads would be made by an account that can't get into every folder.
apt_get() {
    apt-get -q --yes --no-install-recommends \
        -o APT::Architecture="$architecture" -o APT::Architectures::="$architecture" \
        -o APT::Sandbox::User="$(id -un)" -o Acquire::Retries=5 -o Acquire::Languages=none \
        -o Dir::State="$apt_state" -o Dir::State::lists="$apt_state/lists" \
        -o Dir::State::status="$apt_state/status" -o Dir::Cache="$apt_state" \
        -o Dir::Etc::SourceList="$apt_state/sources.list" -o Dir::Etc::SourceParts="$apt_state/none" \
        -o Dir::Etc::PreferencesParts="$apt_state/none" -o Dir::Etc::Preferences="$apt_state/none" \
        "$@"
}

# Where the machine's own packages come from.
mirror() {
    site=$(apt-get indextargets --format '$(SITE)' 'Created-By: Packages' 'Origin: Debian' \
        "Codename: $release" | head -n 1)
    echo "${site:-http://deb.debian.org/debian}"
}

# unpack <folder> <package file...>
unpack() {
    folder=$1
    shift
    for package; do
        dpkg-deb --fsys-tarfile "$package" | tar -x --keep-directory-symlink -C "$folder"
    done
}

# Debian's Qt for ARM with all that it needs, of the release that the machine has.
make_sysroot() {
    echo "Making a file system for 32-bit ARM in $arm_sysroot"
    other_apt armhf "$release"
    apt_get install --download-only qtbase5-dev qtdeclarative5-dev qml-module-qtquick2 \
        libc6-dev "libstdc++-$(arm-linux-gnueabihf-g++ -dumpversion)-dev"
    root=$arm_folder/unpacked
    mkdir -p "$root/usr/bin" "$root/usr/sbin" "$root/usr/lib"
    ln -s usr/bin usr/sbin usr/lib "$root"
    unpack "$root" "$apt_state"/archives/*.deb
    # Programs would find these here instead of the machine's own.
    rm -rf "$root/etc" "$root/var" "$root/usr/share/fonts"
    mv "$root" "$arm_sysroot"
}

# Version 10, because 7 refuses the clone() that QProcess starts children with.
fetch_qemu() {
    echo "Fetching qemu"
    suite=$release
    [ "$release" != bookworm ] || suite=bookworm-backports
    other_apt "$(dpkg --print-architecture)" "$suite"
    (cd "$apt_state/archives" && apt_get download qemu-user)
    root=$arm_folder/unpacked
    mkdir "$root"
    unpack "$root" "$apt_state"/archives/qemu-user_*.deb
    mv "$root/usr/bin/qemu-arm" "$arm_qemu"
}

# Until this script and all that it starts have ended, however they end: then nobody holds the pipe.
lend_arm_to_the_kernel() {
    lease=$(mktemp -d)
    mkfifo "$lease/pipe"
    exec 8<>"$lease/pipe"
    as_root scripts/lend-arm "filebrowser-arm-$$" "$arm_qemu" "$lease/pipe" 8>&- ||
        fail "--arm needs root, or sudo, on a kernel with binfmt_misc"
    rm -r "$lease"
    trap take_arm_back EXIT
}

# Ends the lease, and waits for what is done then.
take_arm_back() {
    exec 8>&-
    tries=0
    while find /proc/sys/fs/binfmt_misc -name "filebrowser-arm-$$*" | grep -q . && [ $tries -lt 100 ]; do
        tries=$((tries + 1))
        sleep 0.05
    done
}

prepare_arm() {
    release=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
    case $release in
    bookworm | trixie) ;;
    *) fail "--arm needs a Debian 12 or 13" ;;
    esac
    if [ "$(cat "$arm_folder/release" 2>/dev/null)" != "$release" ]; then
        rm -rf "$arm_folder" "$build"
        mkdir "$arm_folder"
        echo "$release" >"$arm_folder/release"
    fi
    if [ -n "$qmake" ]; then
        arm_sysroot= # what a Qt of one's own was built with comes with the compiler
    elif [ ! -d "$arm_sysroot" ]; then
        make_sysroot
    fi
    [ -e "$arm_qemu" ] || fetch_qemu
    rm -rf "$arm_folder/apt" "$arm_folder/unpacked"
    lend_arm_to_the_kernel
    export QEMU_LD_PREFIX="${arm_sysroot:-/usr/arm-linux-gnueabihf}"
    # qemu looks there for what is opened, but not for what is only asked after.
    export QML2_IMPORT_PATH="$arm_sysroot/usr/lib/arm-linux-gnueabihf/qt5/qml"
}
