# A desktop that is left and found again, window for window; moves by hotkey; the name of a desktop.

# What two pictures may differ by are a caret that blinks and a clock's hands.
pictures_are_alike() { [ "$(compare -metric AE "$1" "$2" null: 2>&1)" -lt 500 ]; }

cat >"$WINEPREFIX/drive_c/moves.reg" <<'REGISTRY'
REGEDIT4

[HKEY_CURRENT_USER\Software\Tevral, Inc.\Halyard\HotKeys]
"-2147483647"=hex:01,01,00,00,4D,00,00,00
"-1610612734"=hex:01,01,00,00,44,00,00,00
REGISTRY
wine regedit /S 'C:\moves.reg' || fail "the moves couldn't be stored"
loader --disable --enable
say "Windows over each other, the letter in front; away and back with Control, Alt and an arrow key:"
open_at_rest Addresses 520 300 420 240 "$Programs\\notepad.exe" 'C:\Addresses.txt'
open_at_rest Clock 1600 420 300 300 "$Programs\\clock.exe"
open_at_rest Letter 240 140 480 400 "$Programs\\notepad.exe" 'C:\Letter.txt'
click 800 310
click 500 153
expect_focus Letter
press_keys End
keep_picture round-trip-left "before"
left=$lastPicture
press_keys ctrl+alt+Right
expect_status "current desktop: 1"
press_keys ctrl+alt+Left
expect_status "current desktop: 0"
keep_picture round-trip-found "found again as it was left"
[ -n "$live" ] || pictures_are_alike "$left" "$lastPicture" || fail "the desktop came back otherwise than it was left"
expect_focus Letter

say "Control, Alt and D move the letter to the other display; with M it goes to desktop Mail:"
press_keys ctrl+alt+d
expect_place Letter 1264 140 480 400
keep_picture moved-to-display "the letter on the second display"
press_keys ctrl+alt+m
expect_gone Letter
expect_status 'desktop 1: "Mail", 1 window'

say "With Shift the user goes along; the desktop says its name:"
configure ShowDesktopName=1
loader --disable --enable
click 800 310
expect_focus Addresses
press_keys ctrl+alt+shift+m
next_picture desktop-name
# It stands for a second in the middle of each display; here beside the window.
name_is_seen() {
    import -window root "$lastPicture" || return 1
    [ -n "$live" ] || [ "$(convert "$lastPicture" -depth 8 -format '%[hex:p{472,384}]' info:)" != "$MailColour" ]
}
eventually name_is_seen || fail "no name came up"
expect_status "current desktop: 1"
finish_picture "Mail"
configure ShowDesktopName=0
loader --switch 0
close_programs notepad.exe clock.exe
