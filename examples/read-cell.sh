#!/usr/bin/env bash
# Reads a welding cell with a plain MQTT client: its state, and a welding file.
# docs/wire-protocol.md describes the topics.
set -euo pipefail

if (($# < 2)); then
    cat >&2 << 'END'
usage: read-cell.sh PORT CELL [NODE]      on this machine; user and password come from WELMO_USER
                                          and WELMO_BROKER_PASSWORD
       read-cell.sh 1883 cell1 arc_weld.welder_state
       read-cell.sh 1883 cell1 arc_weld.weld_param/arcdata3
END
    exit 2
fi
port=$1 cell=$2 node=${3:-arc_weld.welder_state}

config=$(mktemp -d)
trap 'rm -rf "$config"' EXIT
# Not on the command line, where other users could read the password.
printf -- '-u %s\n-P %s\n' "${WELMO_USER:?}" "${WELMO_BROKER_PASSWORD:?}" > "$config/mosquitto_sub"

# The value is retained, so it arrives at once. -C 1 waits for one message, -W at most five seconds.
XDG_CONFIG_HOME=$config mosquitto_sub -V 5 -p "$port" -C 1 -W 5 -t "welmo/1/$cell/value/$node"
