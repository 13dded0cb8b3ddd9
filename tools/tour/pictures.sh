# shellcheck shell=bash
# Pictures of the whole desktop, each kept once what it is to show stands in it. Needs $pictures and $live.

# The numbers go on behind those of the chapters before.
pictureCount=$(find "$pictures" -name '[0-9][0-9]-*.png' | wc -l)

# Waits until nothing changes on the desktop any more, but for a clock's hands. Leaves a picture of it in the file.
wait_for_rest() {
    local file=$1
    is_at_rest() {
        import -window root "$pictures/before.png" && sleep 0.3 && import -window root "$file" || return 1
        [ -n "$live" ] || [ "$(compare -metric AE "$pictures/before.png" "$file" null: 2>&1)" -lt 500 ]
    }
    eventually is_at_rest || fail "the desktop doesn't come to rest"
    rm -f "$pictures/before.png"
}

# What `convert` draws: the edges of the displays, and the mouse where it is.
drawing() {
    local width height left top stroke
    xrandr --listmonitors | sed -nE 's/.* ([0-9]+)\/[0-9]+x([0-9]+)\/[0-9]+\+([0-9]+)\+([0-9]+) .*/\1 \2 \3 \4/p' |
        while read -r width height left top; do
            # Dashes of two colours, one of which shows on whatever is there.
            for stroke in '#FFFFFF90' '#00000060 stroke-dasharray 4,4'; do
                printf 'fill none stroke %s rectangle %d,%d %d,%d\n' "$stroke" "$left" "$top" $((left + width - 1)) \
                    $((top + height - 1))
            done
        done
    xdotool getmouselocation --shell |
        sed -n 's/^X=/fill white stroke black translate /p; s/^Y=/,/p' | paste -s -d ''
    printf '%s\n' "stroke-dasharray none path 'M 0,0 L 0,17 L 4,13 L 7,20 L 10,19 L 7,12 L 12,12 Z'"
}

# next_picture NAME: leaves the path of the next picture in $lastPicture.
next_picture() {
    pictureCount=$((pictureCount + 1))
    lastPicture=$pictures/$(printf %02d "$pictureCount")-$1.png
}

# finish_picture WHAT: draws what the X server doesn't give into the picture, and tells of it.
finish_picture() {
    convert "$lastPicture" -draw "$(drawing)" "$lastPicture"
    say "  ${lastPicture##*/}: $1"
    [ -z "$live" ] || sleep 2
}

# keep_picture NAME WHAT: once the desktop is at rest.
keep_picture() {
    next_picture "$1"
    wait_for_rest "$lastPicture"
    finish_picture "$2"
}

# The part of a picture where a window stands has its many colours when it is shown, and the background alone when not.
# Leaves the number of colours and the first of them in $colours.
part_is_right() {
    local place=$2 shown=$3 colour=$4
    colours=$(convert "$1" -crop "$place" +repage -depth 8 -format '%k %[hex:p{0,0}]' info:) || return 1
    if [ -n "$shown" ]; then
        [ "${colours% *}" -ge 8 ]
    else
        [ "$colours" = "1 $colour" ]
    fi
}

# take_picture NAME COLOUR TITLE...: keeps a picture in which these windows, and no others of the tour, stand before the
# background of that colour.
take_picture() {
    local colour=$2 title shown wrong colours
    next_picture "$1"
    shift 2
    picture_is_right() {
        import -window root "$lastPicture" || return 1
        # Nobody's own desktop is like ours.
        [ -z "$live" ] || return 0
        for title in "${titles[@]}"; do
            wrong="the part of $title"
            shown=$(printf '%s\n' "${windows[@]}" | grep -xF -- "$title")
            part_is_right "$lastPicture" "${placeOf[$title]}" "$shown" "$colour" || return 1
        done
        wrong="all of it, which still changes"
        # Programs paint in steps; a picture is worth keeping when the next one is like it but for a clock's hands.
        import -window root "$pictures/next.png" || return 1
        [ "$(compare -metric AE "$lastPicture" "$pictures/next.png" null: 2>&1)" -lt 500 ]
    }
    local windows=("$@")
    expect_windows "${windows[@]}"
    eventually picture_is_right ||
        fail "wrong in the picture ${lastPicture##*/}: $wrong (colours and the first of them: $colours)"
    rm -f "$pictures/next.png"
    finish_picture "$*"
}
