#!/usr/bin/env bash
# Real-window smoke test of the installed program, run by scripts/test after
# CTest. Installs the build into a temporary prefix, starts the editor under
# Xvfb with the command of its desktop entry (through the bin/ link) and two
# files, edits and saves one with keys, checks the bytes on disk, closes the
# window with the keyboard and checks the exit status. Screenshots go to
# <build>/smoke/.
#
# Usage: tests/smoke/smoke.sh [BUILD_DIR]   (default: build)
set -euo pipefail

build=$(realpath "${1:-build}")
shots="$build/smoke"
mkdir -p "$shots"
rm -f "$shots"/*.png

tmp=$(mktemp -d "${TMPDIR:-/tmp}/se-smoke.XXXXXX")
xvfb_pid=""
wm_pid=""
editor_pid=""
cleanup() {
    [[ -n $editor_pid ]] && kill "$editor_pid" 2>/dev/null || true
    [[ -n $wm_pid ]] && kill "$wm_pid" 2>/dev/null || true
    [[ -n $xvfb_pid ]] && kill "$xvfb_pid" 2>/dev/null || true
    rm -rf "$tmp"
}
trap cleanup EXIT

log="$tmp/editor.log"
fail() {
    echo "smoke: FAIL: $*" >&2
    shot failure || true
    if [[ -s $log ]]; then
        echo "smoke: the editor's output:" >&2
        sed 's/^/    /' "$log" | tail -40 >&2
    fi
    echo "smoke: screenshots in $shots" >&2
    echo "smoke: 0 passed, 1 failed"
    exit 1
}
shot() {
    import -window root "$shots/$1.png"
}
# Polls a condition (a command) about ten times a second until it holds or
# the limit in seconds passes; the limit only bounds a hung run.
wait_for() {
    local limit=$1
    shift
    local tries=$((limit * 10))
    while ((tries-- > 0)); do
        "$@" && return 0
        sleep 0.1
    done
    return 1
}

prefix="$tmp/prefix"
cmake --install "$build" --prefix "$prefix" >"$tmp/install.log" || {
    cat "$tmp/install.log" >&2
    fail "cmake --install failed"
}
[[ -L $prefix/bin/sourceeditor ]] || fail "no bin/sourceeditor link in the installed tree"
desktop=$(ls "$prefix"/share/applications/*.desktop)
exec_line=$(sed -n 's/^Exec=//p' "$desktop")
[[ $exec_line == *%F* ]] || fail "the desktop entry's Exec has no %F: $exec_line"

# A user with nothing: own home and settings, English, plain X session.
home="$tmp/home"
work="$tmp/work"
mkdir -p "$home/.config" "$work" "$tmp/runtime"
chmod 0700 "$tmp/runtime"
printf 'alpha\nbeta\n' >"$work/first.txt"
printf 'int main()\n{\n    return 0;\n}\n' >"$work/second.c"

exec 3>"$tmp/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp >"$tmp/xvfb.log" 2>&1 &
xvfb_pid=$!
exec 3>&-
wait_for 10 test -s "$tmp/display" || fail "Xvfb did not start: $(cat "$tmp/xvfb.log")"
export DISPLAY=":$(cat "$tmp/display")"

# A window manager, as on a desktop: it gives the window focus, so that
# window-wide shortcuts reach it. Ready once it announces itself on the root.
HOME="$home" XDG_CONFIG_HOME="$home/.config" openbox --sm-disable >"$tmp/wm.log" 2>&1 &
wm_pid=$!
wm_ready() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }
wait_for 10 wm_ready || fail "the window manager did not start: $(cat "$tmp/wm.log")"

# The desktop entry's command, %F replaced by the two files.
read -r -a command <<<"${exec_line/\%F/}"
(
    cd "$work"
    exec env -i PATH="$prefix/bin:/usr/bin:/bin" DISPLAY="$DISPLAY" HOME="$home" \
        XDG_CONFIG_HOME="$home/.config" XDG_RUNTIME_DIR="$tmp/runtime" LANG=C.UTF-8 \
        QT_QPA_PLATFORM=xcb "${command[@]}" "$work/first.txt" "$work/second.c"
) >"$log" 2>&1 &
editor_pid=$!

# An exited child stays a zombie until waited for, which kill -0 still sees.
exited() {
    local stat
    stat=$(cat "/proc/$editor_pid/stat" 2>/dev/null) || return 0
    stat=${stat##*) }
    [[ $stat == Z* ]]
}
find_window() {
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1)
    [[ -n $window ]]
}
# The title is the full path of the tool in front.
titles="^$(printf '%s' "$work" | sed 's/[.[\*^$]/\\&/g')/(first\.txt|second\.c)\$"
if ! wait_for 20 find_window "$titles"; then
    exited && fail "the editor exited at start"
    if find_window "Source Editor"; then
        fail "the window opened without the files: title '$(xdotool getwindowname "$window")'"
    fi
    fail "no window titled with either file's path"
fi
title=$(xdotool getwindowname "$window")
echo "smoke: window $window titled $title"
xdotool windowactivate --sync "$window"
active() { [[ $(xdotool getactivewindow 2>/dev/null) == "$window" ]]; }
wait_for 10 active || fail "the window manager did not activate the window"
shot 01-started

# Edit the file in front: append a line at the end, save with the standard key.
case $title in
*/first.txt) edited="$work/first.txt" other="$work/second.c"
    expected=$'alpha\nbeta\nsmoke test\n' ;;
*) edited="$work/second.c" other="$work/first.txt"
    expected=$'int main()\n{\n    return 0;\n}\nsmoke test\n' ;;
esac
other_before=$(sha256sum <"$other")
# A user clicks into the text before typing.
xdotool key --clearmodifiers ctrl+End
xdotool type --delay 30 "smoke test"
xdotool key --clearmodifiers Return ctrl+s
saved() { [[ "$(cat "$edited"; echo x)" == "${expected}x" ]]; }
if ! wait_for 10 saved; then
    fail "$edited does not hold the typed line after Ctrl+S: $(od -c "$edited" | head -5)"
fi
[[ $(sha256sum <"$other") == "$other_before" ]] || fail "$other changed without an edit"
echo "smoke: $edited saved with the typed line"
shot 02-edited-and-saved

# Menus as a user sees them: icons and shortcuts.
for menu in f:03-file-menu e:04-edit-menu v:05-view-menu; do
    xdotool key --clearmodifiers "alt+${menu%%:*}"
    sleep 0.7
    shot "${menu#*:}"
    xdotool key --clearmodifiers Escape
    sleep 0.3
done

xdotool key --clearmodifiers ctrl+q
if ! wait_for 10 exited; then
    shot 06-still-open
    fail "the window did not close on Ctrl+Q"
fi
status=0
wait "$editor_pid" || status=$?
editor_pid=""
((status == 0)) || fail "the editor exited with status $status"
echo "smoke: screenshots in $shots"
echo "smoke: 1 passed, 0 failed"
