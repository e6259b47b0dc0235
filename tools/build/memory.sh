# ./dev bench --memory: what the pendant's process holds. Read by ./dev.
# shellcheck shell=bash

# The most proportional set size of a command in MiB, which is ended after some seconds.
most_memory() { # SECONDS COMMAND...
    local end=$((SECONDS + $1)) most=0 now process
    "${@:2}" > /dev/null 2>&1 &
    process=$!
    while ((SECONDS < end)) && kill -0 "$process" 2> /dev/null; do
        now=$(awk '/^Pss:/ { print $2 }' "/proc/$process/smaps_rollup" 2> /dev/null || true)
        ((${now:-0} <= most)) || most=$now
        sleep 0.2
    done
    kill "$process" 2> /dev/null || true
    wait "$process" 2> /dev/null || true
    printf '%s' "$((most / 1024))"
}

bench_memory() {
    need build run >&2
    build release welmo-pendant welmo weldbook welmo-tour >&2
    go_private
    local bin=$root/build/release/bin
    printf '| The process of the pendant | MiB at most |\n|---|--:|\n'
    printf '| without plug-ins, its first page | %s |\n' \
        "$(most_memory 8 "$bin/welmo-pendant" --data "$scratch/plain" --module "$scratch/none" --book none)"
    printf '| with both plug-ins, its first page | %s |\n' \
        "$(most_memory 8 "$bin/welmo-pendant" --data "$scratch/both")"
    printf '| after every page and form was opened, in both languages and themes (the tour) | %s |\n' \
        "$(most_memory 600 "$bin/welmo-tour" "$scratch/pictures")"
}
