# ./dev package: packages and archives for this machine and for AArch64, tried out. Read by ./dev.
# shellcheck shell=bash

# shellcheck source=tools/build/cross.sh
. "$root/tools/build/cross.sh"

readonly packages=$root/build/packages

pack() { # PRESET
    say "packing build/$1"
    (cd "$root/build/$1" && cpack -B "$packages" > cpack.log) || die "see build/$1/cpack.log"
    rm -rf "$packages/_CPack_Packages"
}

# Arguments of mmdebstrap that bring the packages for an architecture into a root; a path must be
# the same inside it.
with_packages() { # ARCHITECTURE
    local package
    for package in "$packages"/welmo-*_"$1".deb; do
        include+=(--include="$package")
    done
    include+=(--setup-hook="mkdir -p \"\$1\"'$packages'"
        --setup-hook="cp '$packages'/*_$1.deb \"\$1\"'$packages'")
}

# Installs the packages in a fresh Debian, which is deleted afterwards.
try_installed() { # ARCHITECTURE
    local include=()
    with_packages "$1"
    say "trying the packages for $1 in a clean root"
    debian_sources | as_root mmdebstrap --quiet --variant=apt --dpkgopt=force-unsafe-io "${include[@]}" \
        --customize-hook="copy-in '$root/tests/package/starts' /" \
        --customize-hook="chroot \"\$1\" /starts ''" '' /dev/null -
}

# A foreign dpkg cannot run here, so the packages and their dependencies are only unpacked.
try_unpacked() { # ARCHITECTURE EMULATOR
    local include=()
    with_packages "$1"
    say "trying the packages for $1 under emulation"
    unpack "$scratch/root" "$1" "${include[@]}"
    "$root/tests/package/starts" "$scratch/root" "$2" -L "$scratch/root" \
        -E QT_PLUGIN_PATH="$scratch/root/usr/lib/aarch64-linux-gnu/qt5/plugins"
}

cmd_package() {
    (($# == 0)) || die "usage: ./dev package" 2
    need build cross
    need_sources
    need_sysroot
    rm -rf "$packages"
    build release shipped tst_library
    build arm64 shipped
    pack release
    pack arm64
    go_private
    say "building the plug-in against an SDK"
    (cd "$root" && ctest --preset package)
    try_installed "$(dpkg --print-architecture)"
    try_unpacked arm64 qemu-aarch64
    say "packages:"
    ls -l "$packages"
}
