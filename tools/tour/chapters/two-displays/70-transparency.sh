# A window that is dragged lets see what is behind it.

close_programs clock.exe
configure DragTrans=1 DragTransPerCent=60
# What draws windows through each other is a program of its own on this platform. It doesn't see the desktop's colour.
compositor=
if [ -z "$live" ]; then
    "$tour/root_pixmap" "$DefaultColour"
    xcompmgr >/dev/null 2>&1 &
    compositor=$!
    disown
fi
say "The addresses are dragged over the page, which shows through:"
open_at_rest Addresses 300 550 420 200 "$Programs\\notepad.exe" 'C:\Addresses.txt'
click 500 133
click 460 563
move_mouse 520 563
drag_mouse 420 223
expect_place Addresses 200 210 420 200
keep_picture transparent "while they are"
transparent=$lastPicture
drop_mouse
keep_picture solid "dropped"
if [ -n "$compositor" ]; then
    points=$(compare -metric AE -extract 400x160+210+240 "$transparent" "$lastPicture" null: 2>&1) || true
    [ "${points%%.*}" -ge 2000 ] || fail "the dragged window is solid: $points points differ from the dropped one"
    kill "$compositor"
fi
close_programs notepad.exe wordpad.exe
