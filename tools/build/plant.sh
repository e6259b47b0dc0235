# ./dev run --plant: a plant to look at. Read by ./dev.
# shellcheck shell=bash

readonly most_cells=200

secret() {
    od -An -N16 -tx1 /dev/urandom | tr -d ' \n'
}

# Everything ends with the shell, and nothing is kept.
run_plant() { # [N]
    local cells=${1:-6} broker=$root/tools/broker/broker port cell password viewer
    [[ $# -le 1 && $cells =~ ^[1-9][0-9]*$ ]] && ((cells <= most_cells)) \
        || die "run --plant takes a number of cells from 1 to $most_cells" 2
    need build
    build dev controllerd recorder
    port=$(free_port)
    password=$(secret)
    viewer=$(secret)
    viewer=${viewer:0:8}
    scratch=$(mktemp -d)
    started=()
    trap 'kill "${started[@]}" 2> /dev/null; wait; rm -rf "$scratch"' EXIT
    trap 'exit 1' INT TERM
    "$broker" init "$scratch/broker" "$port"
    "$broker" recorder "$scratch/broker" recorder <<< "$password"
    "$broker" reader "$scratch/broker" plant <<< "$viewer"
    for ((cell = 1; cell <= cells; cell++)); do
        "$broker" cell "$scratch/broker" "$(printf 'cell%02d' "$cell")" <<< "$password"
    done
    export WELMO_BROKER_PASSWORD=$password
    "$broker" run "$scratch/broker" 2> "$scratch/broker.log" &
    started+=($!)
    say "$cells cells begin to weld"
    for ((cell = 1; cell <= cells; cell++)); do
        start_cell "$(printf 'cell%02d' "$cell")" "$port"
    done
    mkdir "$scratch/recorder"
    say "sign in as the user plant with the password $viewer"
    "$root/build/dev/bin/recorder" --broker "mqtt://recorder@127.0.0.1:$port" \
        --data "$scratch/recorder" --http 127.0.0.1:0 &
    started+=($!)
    wait "$!"
}

start_cell() { # NAME PORT
    local program programs=()
    for program in fillet stitch pipe; do
        programs+=(--weld "$root/examples/$program.tl")
    done
    mkdir "$scratch/$1"
    echo "recorder viewer" > "$scratch/$1/users"
    "$root/build/dev/bin/controllerd" --cell "$1" --broker "mqtt://127.0.0.1:$2" --data "$scratch/$1" \
        --example "${programs[@]}" 2> "$scratch/$1.log" &
    started+=($!)
}
