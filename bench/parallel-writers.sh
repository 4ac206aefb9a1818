#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Kivora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Several command lines changing the profiles at once, with no application running: LOOPS
# loops of OPS operations each (adds, switches, edits and removals of the loop's own
# profiles) in a fresh home folder. Prints how many profiles should be there and how many were
# lost or came back after their removal.
#
#   bench/parallel-writers.sh KIVORA [LOOPS] [OPS]
set -u
kivora=$(readlink -f "${1:?usage: $0 KIVORA [LOOPS] [OPS]}")
loops=${2:-2}
ops=${3:-200}

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export HOME=$home XDG_CONFIG_HOME=$home/.config GIT_CONFIG_NOSYSTEM=1
unset DISPLAY WAYLAND_DISPLAY XDG_RUNTIME_DIR
git config --global user.name Start
git config --global user.email start@example.org
"$kivora" list >/dev/null 2>&1

loop() {
    local id=$1 k name oldest=0 added=0
    for ((k = 0; k < ops; k++)); do
        case $((k % 10)) in
        3) "$kivora" use "L$id-$((added - 1))" ;;
        8) "$kivora" edit "L$id-$((added - 1))" --git-email "edited-$k@example.org" ;;
        4 | 9) "$kivora" remove "L$id-$oldest" && echo "L$id-$oldest" >>"$home/removed-$id"
            oldest=$((oldest + 1)) ;;
        *) name="L$id-$added"
            "$kivora" add "$name" --git-name "Loop $id" --git-email "l$id@example.org"
            added=$((added + 1)) ;;
        esac >/dev/null 2>>"$home/errors-$id"
    done
    for ((k = oldest; k < added; k++)); do echo "L$id-$k"; done >"$home/expected-$id"
}

start=$(date +%s.%N)
for ((i = 0; i < loops; i++)); do loop "$i" & done
wait
end=$(date +%s.%N)

"$kivora" list --names >"$home/present" 2>/dev/null
expected=$(cat "$home"/expected-* | wc -l)
lost=$(sort "$home"/expected-* | comm -23 - <(sort "$home/present") | wc -l)
back=$(sort "$home"/removed-* 2>/dev/null | comm -12 - <(sort "$home/present") | wc -l)
failed=$(cat "$home"/errors-* | grep -c . || true)
printf '%d loops x %d operations: %d profiles expected, %d lost, %d removed ones back, %d failed commands, %.1f s\n' \
    "$loops" "$ops" "$expected" "$lost" "$back" "$failed" "$(awk "BEGIN { print $end - $start }")"
