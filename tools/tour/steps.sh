# The steps that chapters of the tour are made of. Each fails the tour, with what was seen, when what it asks for doesn't
# come about. Needs $binaries, $pictures and $live.

Patience=30 # seconds until something that was to happen must have

# The windows of the tour: where they stand (so that none covers another), and their titles in the order of opening.
declare -A placeOf
titles=()

say() { printf '%s\n' "$*"; }

fail() {
    printf 'FAILED: %s\n' "$*" >&2
    [ -n "$live" ] || import -window root "$pictures/failure.png" || true
    exit 1
}

demo_window() { wine "$binaries/demo_window.exe" "$@" | tr -d '\r'; }
loader() { wine "$binaries/tvlhload.exe" "$@" | tr -d '\r'; }

# Runs a command again and again until it succeeds; false when it doesn't in time.
eventually() {
    local deadline=$((SECONDS + Patience))
    until "$@"; do
        ((SECONDS < deadline)) || return 1
        sleep 0.2
    done
}

# Paints the empty desktop in the background colour that the system has at each time: Wine leaves that to a shell. What
# the colour was last is in the file $WINEPREFIX/background.
paint_background() {
    # The session ends this in the middle of it, and the shell would tell of that.
    {
        while wine "$binaries/background_colour.exe"; do :; done | while read -r colour; do
            colour=${colour%$'\r'}
            xsetroot -solid "#$colour"
            echo "$colour" >"$WINEPREFIX/background"
        done
    } 2>/dev/null &
    eventually test -s "$WINEPREFIX/background" || fail "the system didn't tell its background colour"
}

# open_window TITLE LEFT TOP WIDTH HEIGHT PROGRAM [ARGUMENT...]: starts a program and places its window.
open_window() {
    local title=$1 left=$2 top=$3 width=$4 height=$5
    shift 5
    wine "$@" >/dev/null 2>&1 &
    demo_window place "$title" "$left" "$top" "$width" "$height" || fail "$* didn't open its window \"$title\""
    placeOf[$title]=${width}x$height+$left+$top
    titles+=("$title")
}

send_to_desktop() { demo_window send "$1" "$2" || fail "\"$1\" couldn't be sent to desktop $2"; }

# expect_status LINE...: the lines that the loader's report must have.
expect_status() {
    local line
    status_holds() {
        report=$(loader --status) || return 1
        for line in "$@"; do
            grep -qxF -- "$line" <<<"$report" || return 1
        done
    }
    eventually status_holds "$@" || fail "wanted of the status: $*"$'\n'"seen: $report"
}

# start_system COMMAND...: starts the resident loader.
start_system() {
    wine "$@" >>"$pictures/loader.log" 2>&1 &
    # Its window, which is never shown, is the last thing that it makes.
    demo_window visible Halyard >/dev/null || fail "the resident loader didn't start"
    expect_status "enabled: yes" "hooks: in" "current desktop: 0"
}

stop_system() {
    has_ended() { ! loader --status >/dev/null; }
    loader --quit
    eventually has_ended || fail "the loader runs on after it was told to end"
}

# expect_windows TITLE...: the ones of the tour that must be shown; all the others must not.
expect_windows() {
    local wanted shown
    wanted=$(printf '%s\n' "$@")
    windows_are_right() {
        shown=$(demo_window visible "${titles[@]}") || return 1
        [ "$(sort <<<"$shown")" = "$(sort <<<"$wanted")" ]
    }
    eventually windows_are_right || fail "wanted these windows: ${wanted//$'\n'/, }; seen: ${shown//$'\n'/, }"
}

# What the programs of the tour have to show.
write_documents() {
    printf '%s\r\n' "Dear Ines," "" "the rigging plans for both masts are with the yard now." \
        "They want to step the main on Thursday, if the wind allows it." "" "Yours, Tomas" \
        >"$WINEPREFIX/drive_c/Letter.txt"
    printf '%s\r\n' "Ines     +351 21 555 0147" "Yard     +351 21 555 0119" "Tomas    +44 20 5550 0101" \
        >"$WINEPREFIX/drive_c/Addresses.txt"
    cat >"$WINEPREFIX/drive_c/Page.rtf" <<'DOCUMENT'
{\rtf1\ansi{\fonttbl{\f0\froman Times New Roman;}}\f0\fs44\b Halyards and how they run\b0\par\fs26\par
A halyard is the line that hoists a sail. Each sail has its own, and a well-kept ship has them led so that one hand 
can work them all without leaving the deck.\par\par\b Hoisting\b0\par Clear the line, take the slack, haul away.\par}
DOCUMENT
}

# The programs of this bitness.
Programs='C:\windows\syswow64'
