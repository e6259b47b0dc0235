# ./dev cross: everything for AArch64, its tests under emulation. Read by ./dev.
# shellcheck shell=bash

readonly sysroot=$root/build/sysroot-arm64

# The Debian mirrors that apt uses on this machine, as lines for a sources list.
debian_sources() {
    # shellcheck disable=SC2016 # apt-get expands the fields
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' | sort -u
}

# Without package lists, as in a container image, apt does not know which addresses are mirrors.
need_sources() {
    [[ $(debian_sources) ]] || as_root apt-get -q update
    [[ $(debian_sources) ]] || die "apt knows of no Debian mirror"
}

# Unpacks packages and their dependencies without installing them. It goes through an archive, so
# that the files belong to the present user.
unpack() { # FOLDER ARCHITECTURE MMDEBSTRAP ARGUMENT...
    mkdir -p "$1"
    debian_sources | as_root mmdebstrap --quiet --variant=extract --arch="$2" --format=tar "${@:3}" '' - - \
        | tar -x --no-same-owner --exclude='./dev/*' -C "$1"
}

need_sysroot() {
    local wanted
    wanted=$(packages_in sysroot | sort)
    [[ $(cat "$sysroot/.packages" 2> /dev/null) != "$wanted" ]] || return 0
    need_sources
    say "unpacking the arm64 libraries into ${sysroot#"$root/"}"
    rm -rf "$sysroot"
    unpack "$sysroot" arm64 --include="$(paste -sd, <<< "$wanted")"
    printf '%s\n' "$wanted" > "$sysroot/.packages"
}

cmd_cross() {
    need build cross
    need_sysroot
    build arm64
    go_private
    say "testing build/arm64 under emulation"
    (cd "$root" && ctest --preset arm64 --parallel "$(nproc)" "$@")
}

# Counts the instructions of the emulated processor.
bench_emulated() { # [BENCH ARGUMENT...]
    need build bench run cross >&2
    need_sysroot >&2
    build arm64 welmo-bench welmo >&2
    go_private
    gcc -shared -fPIC -O2 -o "$scratch/instructions.so" "$root/bench/emulator/instructions.c"
    WELMO_COUNTS=$scratch/counts qemu-aarch64 -L "$sysroot" \
        -E QT_PLUGIN_PATH="$sysroot/usr/lib/aarch64-linux-gnu/qt5/plugins" \
        -plugin "$scratch/instructions.so,counts=$scratch/counts" \
        "$root/build/arm64/bin/welmo-bench" "$@"
}
