# shellcheck shell=bash
# The steps by which chapters use programs as their user does. Mouse and keys go into the X server, beneath programs.
# Where things come to stand is looked at on the headless desktop only, whose displays are known.

# store_values KEY NAME=NUMBER...: under the user's Software.
store_values() {
    local value key=$1 file=$WINEPREFIX/drive_c/values.reg
    shift
    {
        printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\%s]\n' "$key"
        for value in "$@"; do
            printf '"%s"=dword:%08x\n' "${value%=*}" "${value#*=}"
        done
    } >"$file"
    wine regedit /S 'C:\values.reg' || fail "these values couldn't be stored: $*"
}

# configure NAME=NUMBER...: the system. Programs read it when they start.
configure() { store_values 'Tevral, Inc.\Halyard' "$@"; }

# Moves in small steps, as a hand does.
move_mouse() {
    local x=$1 y=$2 steps=${3:-1} step fromX fromY
    eval "$(xdotool getmouselocation --shell | sed -n 's/^X=/fromX=/p; s/^Y=/fromY=/p')"
    for ((step = 1; step <= steps; step++)); do
        xdotool mousemove $((fromX + (x - fromX) * step / steps)) $((fromY + (y - fromY) * step / steps))
        [ "$steps" -eq 1 ] || sleep 0.02
    done
}

click() { move_mouse "$1" "$2" && xdotool click 1; }
press_keys() { xdotool key --delay 60 "$@"; }

# The X server's number of a window of a program of ours that is shown, by a part of its title.
number_of() {
    local number
    for number in $(xdotool search --onlyvisible --name "$1" 2>/dev/null); do
        if xprop -id "$number" WM_CLASS 2>/dev/null | grep -q '\.exe"'; then
            echo "$number"
            return
        fi
    done
}

# click_in TITLE RIGHT DOWN: so far from the left top corner of the window.
click_in() {
    local X Y
    eval "$(xdotool getwindowgeometry --shell "$(number_of "$1")" | grep -E '^[XY]=')"
    click $((X + $2)) $((Y + $3))
}

# expect_window TITLE: waits until it is shown.
expect_window() {
    is_shown() { [ -n "$(number_of "$1")" ]; }
    eventually is_shown "$1" || fail "no window \"$1\" came up"
}

# expect_gone TITLE: waits until it isn't.
expect_gone() {
    is_gone() { [ -z "$(number_of "$1")" ]; }
    eventually is_gone "$1" || fail "the window \"$1\" stays"
}

# expect_focus TITLE: waits until keys go to it, directly or by the window of ours that hands them on.
expect_focus() {
    hears_keys() {
        local name
        name=$(xdotool getwindowfocus getwindowname 2>/dev/null)
        [[ $name == *"$1"* ]] || { xprop -id "$(xdotool getwindowfocus)" WM_CLASS | grep -q tvlhload && demo_window front "$1"; }
    }
    eventually hears_keys "$1" || fail "keys don't go to \"$1\""
}

# expect_place TITLE LEFT TOP WIDTH HEIGHT: where the window must come to stand.
expect_place() {
    local title=$1 wanted="${*:2}" seen
    stands_there() {
        seen=$(xdotool getwindowgeometry --shell "$(number_of "$title")" 2>/dev/null |
            sed -n 's/^\(X\|Y\|WIDTH\|HEIGHT\)=//p' | paste -s -d ' ')
        [ "$seen" = "$wanted" ]
    }
    [ -n "$live" ] || eventually stands_there || fail "\"$title\" should stand at $wanted; it stands at $seen"
}

# open_at_rest TITLE LEFT TOP WIDTH HEIGHT PROGRAM [ARGUMENT...]: starts a program, and places its window once all of it
# is painted.
open_at_rest() {
    local title=$1 place=("${@:2:4}")
    # Notepad doesn't paint all of its status bar when it is enlarged. It opens where it was last.
    store_values 'Microsoft\Notepad' "iWindowPosX=$2" "iWindowPosY=$3" "iWindowPosDX=$4" "iWindowPosDY=$5"
    shift 5
    wine "$@" >/dev/null 2>&1 &
    expect_window "$title"
    wait_for_rest "$pictures/opened.png"
    demo_window place "$title" "${place[@]}" || fail "\"$title\" couldn't be placed"
    expect_place "$title" "${place[@]}"
    wait_for_rest "$pictures/opened.png"
    rm "$pictures/opened.png"
}

# drag_mouse X Y: with the button held from where the mouse is. It stays held.
drag_mouse() { xdotool mousedown 1 && move_mouse "$1" "$2" 25; }
drop_mouse() { xdotool mouseup 1; }

# Ends programs by the names of their files, as closing their windows does.
close_programs() {
    local program
    for program in "$@"; do
        wine taskkill /IM "$program" >/dev/null 2>&1 || true
    done
}
