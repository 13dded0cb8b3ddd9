# Dialogs come up where their user wants them.

dialogModes=("left alone" "over its program" "on its program's display" "on display 2" "on the display where the mouse is")

say "A dialog of the letter's program, in the ways that can be chosen:"
for mode in "${!dialogModes[@]}"; do
    close_programs notepad.exe
    expect_gone Addresses
    expect_gone Letter
    configure DialogControl="$mode" DialogMonitor=2
    open_at_rest Letter 60 420 480 300 "$Programs\\notepad.exe" 'C:\Letter.txt'
    click 1600 233
    click 260 433
    expect_focus Letter
    [[ ${dialogModes[mode]} != *"the mouse is" ]] || move_mouse 1300 680
    press_keys ctrl+f
    expect_window Find
    keep_picture "dialog-$mode" "${dialogModes[mode]}"
    press_keys Escape
    expect_gone Find
done
