#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Kivora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian package as a user's machine sees it.
#
#   test-package.sh contents   builds the package with CPack in the build folder and checks its
#                              files, control data, desktop entry, AppStream metadata, icons,
#                              manual page and programs (without installing anything)
#   test-package.sh install    installs it with dpkg, uses the installed programs, removes and
#                              purges it and checks that nothing is left; needs root and a
#                              system without Kivora installed, and exits with 77 (skipped)
#                              otherwise. Whatever happens, the system is left as it was found.
#
# Environment: KIVORA_LAYOUT (layout.sh written by the build), KIVORA_DEB_DIR (where the
# package is built). The last line printed is PASS, FAIL or SKIP.
set -uo pipefail

step=${1:-}
[[ $step == contents || $step == install ]] || {
    echo "usage: test-package.sh contents|install" >&2
    exit 2
}
# shellcheck source=/dev/null
source "${KIVORA_LAYOUT:?KIVORA_LAYOUT is not set}"
deb_dir=${KIVORA_DEB_DIR:?KIVORA_DEB_DIR is not set}

scratch=$(mktemp -d "${TMPDIR:-/tmp}/kivora-package.XXXXXX")
failures=0
installing=0

ok() { echo "ok: $*"; }
not_ok() {
    echo "not ok: $*"
    failures=$((failures + 1))
}
check() {
    local what=$1
    shift
    if "$@"; then ok "$what"; else not_ok "$what"; fi
}
skip() {
    echo "SKIP: package $step: $*"
    exit 77
}
finish() {
    if ((failures > 0)); then
        echo "FAIL: package $step: $failures check(s) failed"
        exit 1
    fi
    echo "PASS: package $step"
    exit 0
}
abort() {
    not_ok "$*"
    finish
}

# What the package must hold, each a regular file, from the install layout.
icon_sizes=(16 22 24 32 48 64 128 256)
executables=(/usr/bin/kivora "$KIVORA_APP_PATH")
data_files=(
    "/usr/share/applications/$KIVORA_APP_ID.desktop"
    "/usr/share/metainfo/$KIVORA_APP_ID.metainfo.xml"
    /usr/share/icons/hicolor/scalable/apps/kivora.svg
    /usr/share/bash-completion/completions/kivora
    /usr/share/zsh/vendor-completions/_kivora
    /usr/share/man/man1/kivora.1.gz
    /usr/share/doc/kivora/copyright
)
for size in "${icon_sizes[@]}"; do
    data_files+=("/usr/share/icons/hicolor/${size}x${size}/apps/kivora.png")
done
# Loaded at run time, so no shared-library scan can find them, or run by a switch.
runtime_depends=(qml6-module-qtquick qml6-module-qtquick-controls qml6-module-qtquick-layouts
    qml6-module-qtquick-dialogs qml6-module-qtquick-window qml6-module-qtquick-templates
    qml6-module-qtqml-workerscript qt6-qpa-plugins libqt6svg6 git openssh-client)

find_deb() {
    local debs=("$deb_dir"/kivora_*.deb)
    [[ ${#debs[@]} == 1 && -f ${debs[0]} ]] || return 1
    echo "${debs[0]}"
}

# Paths of the package's regular files and of its folders, without the leading ".".
package_files() { dpkg-deb -c "$1" | awk '$1 ~ /^-/ { sub(/^\./, "", $6); print $6 }' | sort; }
package_dirs() {
    dpkg-deb -c "$1" | awk '$1 ~ /^d/ { sub(/^\./, "", $6); sub(/\/$/, "", $6); print $6 }' |
        grep -v '^$' | sort
}
mode_of() { dpkg-deb -c "$1" | awk -v p=".$2" '$6 == p { print $1 " " $2 }'; }

# "name (>= 1)" and "a | b" groups of a relation field, one name per line.
relation_names() { tr ',|' '\n' <<<"$1" | sed -E 's/^[[:space:]]+//; s/[[:space:](].*//' | grep -v '^$'; }

is_installed() { [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }

# Width and height of a PNG, from its header.
png_size() {
    local header
    header=$(od -An -tx1 -j12 -N12 "$1" | tr -d ' \n')
    [[ ${header:0:8} == 49484452 ]] || return 1 # IHDR
    echo "$((16#${header:8:8}))x$((16#${header:16:8}))"
}

desktop_value() { sed -n "s/^$2=//p" "$1" | head -n 1; }

run_contents() {
    rm -rf "$deb_dir"
    mkdir -p "$deb_dir"
    echo "building the package in $KIVORA_BUILD_DIR"
    if ! (cd "$KIVORA_BUILD_DIR" && "$KIVORA_CPACK" -G DEB -B "$deb_dir") >"$scratch/cpack.log" 2>&1; then
        cat "$scratch/cpack.log"
        abort "cpack -G DEB built the package"
    fi
    local deb
    deb=$(find_deb) || abort "cpack left exactly one kivora_*.deb in $deb_dir"
    ok "built $deb"

    # Files: exactly the expected ones, programs executable, everything owned by root.
    local expected actual
    expected=$(printf '%s\n' "${executables[@]}" "${data_files[@]}" | sort)
    actual=$(package_files "$deb")
    if [[ $expected == "$actual" ]]; then
        ok "the package holds exactly the expected files"
    else
        not_ok "the package holds exactly the expected files"
        diff <(echo "$expected") <(echo "$actual") | sed 's/^/    /'
    fi
    local path
    for path in "${executables[@]}"; do
        check "$path is -rwxr-xr-x root/root" [ "$(mode_of "$deb" "$path")" == "-rwxr-xr-x root/root" ]
    done
    for path in "${data_files[@]}"; do
        check "$path is -rw-r--r-- root/root" [ "$(mode_of "$deb" "$path")" == "-rw-r--r-- root/root" ]
    done

    # Control data.
    field() { dpkg-deb -f "$deb" "$1"; }
    check "Package is kivora" [ "$(field Package)" == kivora ]
    check "Version is $KIVORA_VERSION" [ "$(field Version)" == "$KIVORA_VERSION" ]
    check "Architecture is $(dpkg --print-architecture)" \
        [ "$(field Architecture)" == "$(dpkg --print-architecture)" ]
    check "Section is vcs or utils" grep -qxE 'vcs|utils' <<<"$(field Section)"
    check "Maintainer is Name <e-mail>" grep -qE '^[^<]+ <[^>@]+@[^>]+>$' <<<"$(field Maintainer)"
    check "Description has a summary and a long text" \
        [ "$(field Description | head -n 1)" != "" -a "$(field Description | wc -l)" -gt 1 ]
    local depends name
    depends=$(relation_names "$(field Depends)")
    echo "Depends: $(field Depends)"
    for name in "${runtime_depends[@]}" libqt6core6 libqt6quick6 libc6; do
        check "Depends names $name" grep -qx "$name" <<<"$depends"
    done
    check "Recommends names x-terminal-emulator" \
        grep -qx x-terminal-emulator <<<"$(relation_names "$(field Recommends)")"

    local root=$scratch/root
    dpkg-deb -x "$deb" "$root" || abort "dpkg-deb -x unpacked the package"

    # The desktop entry: valid without a single warning or hint, and saying what a menu needs.
    local desktop=$root/usr/share/applications/$KIVORA_APP_ID.desktop report
    report=$(desktop-file-validate "$desktop" 2>&1)
    check "desktop-file-validate accepts the desktop entry" [ $? == 0 ]
    check "desktop-file-validate has nothing to say" [ -z "$report" ]
    [[ -z $report ]] || echo "$report" | sed 's/^/    /'
    local key value
    for key in Type=Application Name=Kivora Exec=kivora Icon=kivora Terminal=false \
        Categories=Development\;RevisionControl\; Keywords=git\;identity\;ssh\;profile\;switch\; \
        StartupWMClass=Kivora; do
        value=$(desktop_value "$desktop" "${key%%=*}")
        check "desktop entry: $key" [ "${key%%=*}=$value" == "$key" ]
    done
    check "desktop entry has a GenericName and a Comment" \
        [ -n "$(desktop_value "$desktop" GenericName)" -a -n "$(desktop_value "$desktop" Comment)" ]

    # AppStream metadata: valid, and naming the same id, desktop entry and version.
    local metainfo=$root/usr/share/metainfo/$KIVORA_APP_ID.metainfo.xml
    report=$(appstreamcli validate --no-net "$metainfo" 2>&1)
    check "appstreamcli validate --no-net accepts the metainfo" [ $? == 0 ]
    echo "$report" | sed 's/^/    /'
    check "metainfo id is $KIVORA_APP_ID" grep -q "<id>$KIVORA_APP_ID</id>" "$metainfo"
    check "metainfo launches $KIVORA_APP_ID.desktop" \
        grep -q "<launchable type=\"desktop-id\">$KIVORA_APP_ID.desktop</launchable>" "$metainfo"
    check "metainfo lists release $KIVORA_VERSION" \
        grep -q "<release version=\"$KIVORA_VERSION\"" "$metainfo"

    # Icons: the logo itself as the scalable icon, PNGs of exactly their folder's size.
    check "the scalable icon is the logo" \
        cmp -s "$KIVORA_SOURCE_DIR/assets/kivora-logo.svg" "$root/usr/share/icons/hicolor/scalable/apps/kivora.svg"
    for size in "${icon_sizes[@]}"; do
        check "the ${size}x${size} icon is a ${size}x${size} PNG" \
            [ "$(png_size "$root/usr/share/icons/hicolor/${size}x${size}/apps/kivora.png")" == "${size}x${size}" ]
    done

    # Completions as in the sources; the manual page made from the command line's help.
    check "bash completion is cli/completions/kivora.bash" \
        cmp -s "$KIVORA_SOURCE_DIR/cli/completions/kivora.bash" "$root/usr/share/bash-completion/completions/kivora"
    check "zsh completion is cli/completions/_kivora" \
        cmp -s "$KIVORA_SOURCE_DIR/cli/completions/_kivora" "$root/usr/share/zsh/vendor-completions/_kivora"
    local man=$root/usr/share/man/man1/kivora.1.gz
    check "the manual page is gzip-compressed" gzip -t "$man"
    check "the manual page is kivora(1)" grep -q '^\.TH KIVORA "\?1' <(zcat "$man")
    check "the manual page shows version $KIVORA_VERSION" grep -q "kivora $KIVORA_VERSION" <(zcat "$man")
    for name in list use terminal autostart check-updates; do
        check "the manual page describes kivora $name" grep -q "kivora $name" <(zcat "$man")
    done

    # The programs: every library found, and the command line working from the package.
    for path in "${executables[@]}"; do
        check "ldd finds every library of $path" eval "! ldd '$root$path' | grep -q 'not found'"
    done
    check "the packaged kivora --version prints kivora $KIVORA_VERSION" \
        [ "$("$root/usr/bin/kivora" --version)" == "kivora $KIVORA_VERSION" ]

    # `kivora` without a command starts the application where the package puts it: a stand-in
    # that only reports its start takes the application's place in a copy of the tree.
    local copy=$scratch/lookup
    cp -a "$root" "$copy"
    printf '#!/bin/sh\necho "tray application started"\n' >"$copy$KIVORA_APP_PATH"
    check "kivora starts the application at $KIVORA_APP_PATH" \
        [ "$(env -u KIVORA_APP "$copy/usr/bin/kivora" 2>&1)" == "tray application started" ]
}

# Installing: leave the system exactly as it was, whatever happens.
new_dirs=()
files=()
cleanup() {
    if ((installing)); then
        local status
        status=$(dpkg-query -W -f='${db:Status-Status}' kivora 2>/dev/null)
        if [[ -n $status && $status != not-installed ]]; then
            echo "cleaning up: purging kivora (status $status)"
            dpkg -P kivora >/dev/null 2>&1 || echo "cleaning up: dpkg -P kivora failed"
        fi
        # None of these existed before the install.
        local path i
        for path in "${files[@]}"; do
            [[ -e $path || -L $path ]] && rm -f "$path"
        done
        for ((i = ${#new_dirs[@]} - 1; i >= 0; i--)); do
            [[ -d ${new_dirs[i]} ]] && rmdir "${new_dirs[i]}" 2>/dev/null
        done
    fi
    rm -rf "$scratch"
}
trap cleanup EXIT
trap 'exit 130' INT TERM HUP

run_install() {
    [[ $(id -u) == 0 ]] || skip "installing with dpkg needs root (running as $(id -un))"
    command -v dpkg >/dev/null && dpkg --version >/dev/null 2>&1 || skip "dpkg is not usable here"
    [[ -w /var/lib/dpkg ]] || skip "the dpkg database /var/lib/dpkg is not writable"
    local deb
    deb=$(find_deb) || abort "the package built by package_contents is in $deb_dir"

    local status version
    status=$(dpkg-query -W -f='${db:Status-Status}' kivora 2>/dev/null)
    if [[ -n $status && $status != not-installed ]]; then
        version=$(dpkg-query -W -f='${Version}' kivora 2>/dev/null)
        skip "a kivora package is already on this system ($status, version $version); it is left as it is"
    fi
    mapfile -t files < <(package_files "$deb")
    local path
    for path in "${files[@]}"; do
        [[ -e $path || -L $path ]] && skip "$path already exists (not from this package); it is left as it is"
    done
    local group name found
    while read -r group; do
        [[ -n $group ]] || continue
        found=0
        for name in $(relation_names "$group"); do
            is_installed "$name" && found=1
        done
        ((found)) || skip "the dependency \"$group\" is not installed (scripts/install-deps installs it)"
    done < <(dpkg-deb -f "$deb" Depends | tr ',' '\n')
    for path in $(package_dirs "$deb"); do
        [[ -d $path ]] || new_dirs+=("$path")
    done

    installing=1
    if ! dpkg -i "$deb" >"$scratch/dpkg.log" 2>&1; then
        cat "$scratch/dpkg.log"
        abort "dpkg -i installed the package"
    fi
    ok "dpkg -i installed the package"
    check "dpkg reports kivora $KIVORA_VERSION installed" \
        [ "$(dpkg-query -W -f='${db:Status-Status} ${Version}' kivora)" == "installed $KIVORA_VERSION" ]
    local missing=0
    for path in "${files[@]}"; do
        [[ -f $path ]] || {
            echo "    missing: $path"
            missing=1
        }
    done
    check "every file of the package is installed" [ $missing == 0 ]

    check "/usr/bin/kivora --version prints kivora $KIVORA_VERSION" \
        [ "$(/usr/bin/kivora --version)" == "kivora $KIVORA_VERSION" ]
    check "the installed application is executable at $KIVORA_APP_PATH" [ -x "$KIVORA_APP_PATH" ]
    for path in /usr/bin/kivora "$KIVORA_APP_PATH"; do
        check "ldd finds every library of the installed $path" eval "! ldd '$path' | grep -q 'not found'"
    done
    # The installed command works in a user's (here a scratch) home.
    local home=$scratch/home
    mkdir -p "$home"
    check "the installed kivora switches autostart on" \
        [ "$(HOME=$home XDG_CONFIG_HOME=$home/.config /usr/bin/kivora autostart on)" == "Kivora starts at login." ]
    check "the autostart entry is in the user's config folder" [ -f "$home/.config/autostart/kivora.desktop" ]
    if command -v man >/dev/null; then
        check "man finds kivora(1)" [ "$(man -w kivora 2>/dev/null)" == /usr/share/man/man1/kivora.1.gz ]
    fi

    if ! dpkg -r kivora >"$scratch/dpkg.log" 2>&1; then
        cat "$scratch/dpkg.log"
        abort "dpkg -r removed the package"
    fi
    ok "dpkg -r removed the package"
    if ! dpkg -P kivora >"$scratch/dpkg.log" 2>&1; then
        cat "$scratch/dpkg.log"
        abort "dpkg -P purged the package"
    fi
    ok "dpkg -P purged the package"
    status=$(dpkg-query -W -f='${db:Status-Status}' kivora 2>/dev/null)
    check "dpkg knows kivora no more" [ -z "$status" -o "$status" == not-installed ]
    local left=0
    for path in "${files[@]}"; do
        [[ -e $path || -L $path ]] && {
            echo "    left behind: $path"
            left=1
        }
    done
    for path in "${new_dirs[@]}"; do
        [[ -d $path ]] && {
            echo "    folder left behind: $path"
            left=1
        }
    done
    check "nothing of the package is left on the system" [ $left == 0 ]
}

case $step in
contents) run_contents ;;
install) run_install ;;
esac
finish
