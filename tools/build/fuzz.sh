# The fuzz targets of tests/fuzz, built by clang into build/fuzz. Read by ./dev.
# shellcheck shell=bash

cmd_fuzz() { # [SECONDS [TARGET...]]
    local seconds=${1:-10} targets=("${@:2}") target
    [[ $seconds =~ ^[1-9][0-9]*$ ]] || die "usage: ./dev fuzz [SECONDS [TARGET...]]" 2
    ((${#targets[@]})) || mapfile -t targets < <(cd "$root/tests/fuzz/corpus" && printf '%s\n' *)
    for target in "${targets[@]}"; do
        [[ -d $root/tests/fuzz/corpus/$target ]] || die "there is no target '$target' in tests/fuzz" 2
    done
    need build fuzz
    build fuzz "${targets[@]/#/fuzz_}"
    # Some targets write files, which costs nothing in memory.
    [[ ! -w /dev/shm ]] || export TMPDIR=/dev/shm
    [[ ${scratch:-} ]] || go_private
    say "fuzzing ${#targets[@]} targets, $seconds s each"
    for target in "${targets[@]}"; do
        while (($(jobs -rp | wc -l) >= $(nproc))); do wait -n || true; done
        fuzz_one "$target" "$seconds" &
    done
    wait
    [[ ! -e $scratch/found ]] || die "fuzzing found something"
}

# New inputs go to the scratch folder; those that fail are kept. Leaks are searched once at the end,
# since doing it after each input takes nine tenths of the time.
fuzz_one() { # TARGET SECONDS
    local target=$1 found=$root/build/fuzz/found log=$scratch/$1.log
    mkdir -p "$found" "$scratch/$target"
    if run_target "$target" -detect_leaks=0 -max_total_time="$2" > "$log" 2>&1; then
        awk -v target="$target" '
            /stat::number_of_executed_units/ { inputs = $2 }
            /stat::average_exec_per_sec/ { rate = $2 }
            /stat::peak_rss_mb/ { size = $2 }
            END { printf "    %-14s %9d inputs, %6d a second, %4d MB\n", target, inputs, rate, size }' "$log"
        return
    fi
    touch "$scratch/found"
    # A leak is found at the end, when its input is unknown, so the inputs are run once more.
    if grep -aq LeakSanitizer "$log"; then
        find "$found" -name "$target-*" -empty -delete
        run_target "$target" -runs=0 >> "$log" 2>&1 || true
    fi
    cp "$log" "$found/$target.log"
    local why input
    why=$(grep -a -m1 -oE 'does not hold: .*|unexpected log line: .*|runtime error: .*|ASSERT.*|ERROR: .*' "$log" || true)
    input=$(sed -n 's/.*Test unit written to //p' "$log" | tail -n 1)
    say "$target: ${why:-it did not start}; input kept in ${input:-no file}, more in $found/$target.log" >&2
}

run_target() { # TARGET ARGUMENT...
    TMPDIR=$scratch ASAN_OPTIONS=quarantine_size_mb=64:malloc_context_size=10 UBSAN_OPTIONS=print_stacktrace=1 \
        ASAN_SYMBOLIZER_PATH=/usr/lib/llvm-14/bin/llvm-symbolizer \
        "$root/build/fuzz/targets/$1" "$scratch/$1" "$root/tests/fuzz/corpus/$1" "${@:2}" \
        -timeout=30 -rss_limit_mb=2048 -max_len=4096 -print_final_stats=1 \
        -artifact_prefix="$root/build/fuzz/found/$1-"
}
