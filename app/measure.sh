#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Kivora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Measures the tray application on a private X display: time from process start to the tray
# icon, first and later popover openings, and resident memory idle, after the popover and
# after the settings window. Needs Xvfb, trayer and xdotool.
#
#   app/measure.sh [path/to/kivora-app]      (default: build/app/kivora-app)
set -euo pipefail

app=${1:-$(dirname "$0")/../build/app/kivora-app}
app=$(realpath "$app")
work=$(mktemp -d)
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    rm -rf "$work"
}
trap cleanup EXIT

# Xvfb picks a free display itself and writes its number, then a line end, to descriptor 3.
# -noreset: the server stays as it is when its last client leaves (a reset between two
# clients can refuse the next one).
Xvfb -displayfd 3 -screen 0 1400x900x24 -nolisten tcp -noreset 3>"$work/display" >/dev/null 2>&1 &
pids+=($!)
until [[ $(<"$work/display") == *[0-9] ]] 2>/dev/null; do sleep 0.05; done
display=:$(<"$work/display")

export HOME=$work/home XDG_CONFIG_HOME=$work/home/.config DISPLAY=$display KIVORA_TRACE=1
mkdir -p "$HOME/.ssh" "$XDG_CONFIG_HOME"
git config --global user.name "Ada Lovelace"
git config --global user.email ada@example.com
for key in id_ed25519_work id_ed25519_personal; do
    ssh-keygen -q -t ed25519 -N "" -f "$HOME/.ssh/$key" -C "$key"
done

until xdotool getdisplaygeometry >/dev/null 2>&1; do sleep 0.1; done
trayer --edge top --align right --widthtype pixel --width 120 --heighttype pixel --height 28 \
    --SetDockType true >/dev/null 2>&1 & pids+=($!)
sleep 1

rss() { awk '/VmRSS/ {print $2 " KiB"}' "/proc/$1/status"; }

"$app" 2>"$work/trace" & app_pid=$!; pids+=($app_pid)
until grep -q tray-shown "$work/trace"; do sleep 0.05; done
sleep 1
echo "idle:               $(rss $app_pid)"
for _ in 1 2 3; do
    xdotool mousemove 1388 14 click 1; sleep 1        # open
    xdotool key Escape; sleep 0.5                     # close
done
echo "after the popover:  $(rss $app_pid)"
xdotool mousemove 1388 14 click 1; sleep 1
popover=$(xdotool search --onlyvisible --name '^Kivora$' | head -1)
eval "$(xdotool getwindowgeometry --shell "$popover")"
xdotool mousemove $((X + 50)) $((Y + HEIGHT - 22)) click 1; sleep 2   # "Add Profile"
echo "with both windows:  $(rss $app_pid)"
grep kivora-trace "$work/trace"
