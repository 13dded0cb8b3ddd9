#!/usr/bin/env bash
# Checks tools/desktop: what a program sees of its session, and that nothing of a session is left. One line per check;
# the exit status says whether all held.
set -uo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
desktop=$here/../../tools/desktop
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Whatever Wine or X would put into a home, or leave among the temporary files, shows up here.
mkdir "$work/home" "$work/tmp"
export HOME=$work/home TMPDIR=$work/tmp
failures=0

# check NAME WANTED SEEN
check() {
    if [ "$2" = "$3" ]; then
        printf 'ok    %s\n' "$1"
    else
        printf 'FAIL  %s\n      wanted: %s\n      seen:   %s\n' "$1" "$2" "$3"
        failures=$((failures + 1))
    fi
}

# Runs a command again and again until it succeeds, for at most so many seconds.
within() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < deadline)) || return 1
        sleep 0.05
    done
}

# What the session whose folder is kept in the file $1 has left: its folder, processes that inherited its mark.
remains() {
    local session
    session=$(cat "$1") || { echo "no session was seen"; return; }
    [ ! -e "$session" ] || echo "$session"
    grep -lzxF "HALYARD_SESSION=$session" /proc/[0-9]*/environ 2>/dev/null | while read -r file; do
        printf '%s ' "$file"
        tr '\0' ' ' <"${file%/environ}/cmdline"
        echo
    done
}
nothing_remains() { [ -z "$(remains "$1")" ]; }

i686-w64-mingw32-g++ -O1 -static -o "$work/show32.exe" "$here/show_displays.cpp" || exit 1
x86_64-w64-mingw32-g++ -O1 -static -o "$work/show64.exe" "$here/show_displays.cpp" || exit 1
export work

# The line of a display at the given left edge, 800x600 in size, whose work area is the whole unless given.
display_line() {
    printf '\\\\.\\DISPLAY%d %d 0 %d 600 work %s\n' "$1" "$2" $(($2 + 800)) "${3:-$2 0 $(($2 + 800)) 600}"
}

# By way of a file: a pipe would stay open for as long as any program that the session failed to end.
sees() {
    "$desktop" "${@:3}" >"$work/output" 2>&1
    check "$1" "$2" "$(tr -d '\r' <"$work/output")"
}

three=$(display_line 1 0 "0 0 800 560" && display_line 2 800 "820 0 1600 600" && display_line 3 1600)
sees "three displays with their work areas, as Windows 98, in 32 bits and in 64" \
    "$three"$'\nversion 1 4.10\n'"$three"$'\nversion 1 4.10' \
    --displays 3 --size 800x600 --windows win98 --work-areas "0,0,800,560;820,0,780,600;1600,0,800,600" -- \
    bash -c 'wine $work/show32.exe && wine $work/show64.exe'
sees "one display, as Windows XP" "$(display_line 1 0)"$'\nversion 2 5.1' \
    --displays 1 --size 800x600 --windows winxp -- wine "$work/show32.exe"
sees "ten displays" 10 --displays 10 --size 800x600 -- bash -c 'wine $work/show32.exe | grep -c DISPLAY'

"$desktop" -- bash -c 'exit 7'
check "the exit status of the command" 7 $?
"$desktop" -- "$work/no-such-command" 2>/dev/null
check "a command that isn't there" 127 $?
check "the input of the command" "to the command" "$(echo "to the command" | "$desktop" -- cat)"

# A root window of one colour shows that the picture is of the session's screen, and of all of it.
"$desktop" --displays 2 --size 800x600 --picture "$work/picture.png" -- xsetroot -solid '#336699'
check "a picture of the whole desktop" "1600x600 1 336699" \
    "$(identify -format '%wx%h %k %[hex:p{1599,599}]' "$work/picture.png" 2>&1)"

# Each session waits for the other to be up, then both look at their displays.
together='
    echo "$DISPLAY $WINEPREFIX" >$work/$0
    for ((tries = 0; tries < 200; tries++)); do [ -e $work/$1 ] && break; sleep 0.05; done
    [ -e $work/$1 ] && wine $work/show32.exe | grep -c DISPLAY'
"$desktop" --displays 2 -- bash -c "$together" first second >"$work/first.out" &
first=$!
"$desktop" --displays 3 -- bash -c "$together" second first >"$work/second.out"
wait "$first"
check "two sessions at the same time" "2 and 3" "$(cat "$work/first.out") and $(cat "$work/second.out")"
check "each has a display and a prefix of its own" 4 "$(tr ' ' '\n' <"$work/first" | sort -u - <(tr ' ' '\n' <"$work/second") | wc -l)"

# Programs that outlive the command, one of them deaf to a polite request.
"$desktop" -- bash -c '
    echo "$HALYARD_SESSION" >$work/stragglers
    wine notepad & (trap "" TERM; sleep 300) & sleep 300 &
    wine $work/show32.exe' >"$work/stragglers.out" 2>&1
check "nothing is left of programs that outlive the command" "" "$(remains "$work/stragglers")"

# hang NAME: a session that is up and would stay; its process id is in $hanging.
hang() {
    "$desktop" -- bash -c 'wine $work/show32.exe >$work/$0.out; echo "$HALYARD_SESSION" >$work/$0; wine notepad' "$1" &
    hanging=$!
    within 20 test -s "$work/$1" || echo "      the session did not come up"
}
has_ended() { ! grep -q '^State:[[:space:]]*[^Z]' "/proc/$1/status" 2>/dev/null; }
for signal in TERM:143 INT:130 HUP:129; do
    # A shell that isn't interactive lets its background jobs ignore INT; job control keeps it from that.
    set -m
    hang "${signal%:*}"
    set +m
    kill -s "${signal%:*}" "$hanging"
    within 8 has_ended "$hanging" || kill -KILL "$hanging"
    wait "$hanging" 2>/dev/null
    check "${signal%:*} ends the session soon" "${signal#*:} " "$? $(remains "$work/${signal%:*}")"
done
hang KILL
kill -KILL "$hanging"
wait "$hanging" 2>/dev/null
within 10 nothing_remains "$work/KILL"
check "nothing is left when tools/desktop itself is killed" "" "$(remains "$work/KILL")"

# Whatever it is about to start at that moment. The guard against a killed tools/desktop may take a moment to notice
# that it has nothing to do.
nothing_runs() { ! pgrep -f "$work/" >/dev/null; }
for delay in 0.02 0.05 0.1 0.2 0.4; do
    "$desktop" -- tail -f "$work/show32.exe" >/dev/null 2>&1 &
    sleep "$delay"
    kill -TERM $!
    wait $! 2>/dev/null
    status=$?
    within 3 nothing_runs
    check "TERM after $delay s of starting" "143 " "$status $(pgrep -fa "$work/")"
done

while read -r arguments; do
    # shellcheck disable=SC2086  # the words of the line are the arguments
    seen=$(env -u DISPLAY "$desktop" $arguments 2>&1 >/dev/null)
    check "wrong usage: $arguments" "2 usage" "$? $(grep -o '^usage' <<<"$seen")"
done <<'ARGUMENTS'

--
--displays 0 -- true
--displays 11 -- true
--displays two -- true
--displays
--size 1024 -- true
--size 0x768 -- true
--size 4096x768 --displays 10 -- true
--windows win3 -- true
--work-areas 1,2,3 -- true
--work-areas 0,0,9,9; -- true
--live -- true
--picture
--unknown -- true
ARGUMENTS

check "no file is left among the temporary ones or in the home" "" "$(find "$work/tmp" "$work/home" -mindepth 1 -maxdepth 1)"
[ "$failures" -eq 0 ]
