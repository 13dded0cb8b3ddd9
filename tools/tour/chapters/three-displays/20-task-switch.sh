# Alt+Tab on every display.

say "Alt is held, and Tab pressed twice:"
xdotool keydown alt
press_keys Tab Tab
keep_picture task-switch "the shell's window on the first display, its mirrors on the others"
switch=$lastPicture
xdotool keyup alt
wait_for_rest "$pictures/after.png"
for display in 1 2 3; do
    points=$(compare -metric AE -extract "300x100+$((1024 * display - 512 - 150))+334" "$switch" "$pictures/after.png" \
        null: 2>&1) || true
    [ "${points%%.*}" -ge 2000 ] || fail "nothing of the task switch was seen on display $display"
done
rm "$pictures/after.png"
