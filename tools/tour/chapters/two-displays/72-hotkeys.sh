# Keys that work whatever program is in front.

# The modifiers Alt, Control, Shift and the system key, then the key's code.
bind_hotkeys() {
    cat >"$WINEPREFIX/drive_c/hotkeys.reg" <<'REGISTRY'
REGEDIT4

[HKEY_CURRENT_USER\Software\Tevral, Inc.\Halyard\HotKeys]
"1"=hex:01,01,00,00,46,00,00,00
"4"=hex:01,01,00,00,27,00,00,00
"5"=hex:01,01,00,00,25,00,00,00
REGISTRY
    wine regedit /S 'C:\hotkeys.reg' || fail "the hotkeys couldn't be stored"
}

# The rings are there for a quarter of a second.
rings_are_seen() {
    local points
    xdotool key ctrl+alt+f
    import -window root "$lastPicture" || return 1
    points=$(compare -metric AE -extract 200x200+400+200 "$pictures/before-rings.png" "$lastPicture" null: 2>&1) || true
    [ "${points%%.*}" -ge 1000 ]
}

bind_hotkeys
configure DragTrans=0 CtrlMax=0
loader --disable --enable
say "Control, Alt and F find the mouse, in whatever program:"
open_at_rest Letter 500 140 480 400 "$Programs\\notepad.exe" 'C:\Letter.txt'
open_at_rest Addresses 1160 240 420 240 "$Programs\\notepad.exe" 'C:\Addresses.txt'
send_to_desktop Addresses 1
expect_status 'desktop 1: "Mail", 1 window'
click 700 153
expect_focus Letter
move_mouse 500 300 10
wait_for_rest "$pictures/before-rings.png"
next_picture rings
eventually rings_are_seen || fail "no rings came up around the mouse"
rm "$pictures/before-rings.png"
finish_picture "rings that close in on it"

say "Control, Alt and an arrow key go through the desktops:"
press_keys ctrl+alt+Right
expect_status "current desktop: 1"
keep_picture hotkey-next "the next one, with the addresses"
press_keys ctrl+alt+Left
expect_status "current desktop: 0"
close_programs notepad.exe
