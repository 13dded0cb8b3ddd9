# What somebody sees who has just installed it: the wizard, the icon, the window that tells what is done to each program.

stop_system
wine reg delete 'HKCU\Software\Tevral, Inc.\Halyard' /f >/dev/null 2>&1 || fail "the settings couldn't be deleted"
say "The first start brings the wizard, which is answered by keyboard:"
wine "$binaries/tvlhload.exe" >>"$pictures/loader.log" 2>&1 &
expect_window '^Halyard$'
keep_picture wizard-features "what to turn on"
press_keys alt+n
keep_picture wizard-desktops "desktops, with hotkeys that are free"
press_keys alt+n
keep_picture wizard-start "and done"
press_keys Return
expect_status "enabled: yes" 'desktop 3: "Desktop 4", 0 windows'
press_keys ctrl+alt+Right
expect_status "current desktop: 1"
press_keys ctrl+alt+1
expect_status "current desktop: 0"

say "The icon beside the clock, in the window that this platform has for it:"
expect_window "Wine System Tray"
open_at_rest Letter 1240 140 480 300 "$Programs\\notepad.exe" 'C:\Letter.txt'
move_mouse 12 32
xdotool click 3
move_mouse 600 600
keep_picture tray-menu "the desktops, and what can be done with all of it"
# Without a window of its own the menu hears no key on this platform.
click 600 600
click 1400 153
expect_focus Letter

say "The programs that it takes part in, and why it treats their windows so; the letter's is kept out and let in again:"
wine "$binaries/tvlhload.exe" --programs &
expect_window "Halyard: programs"
keep_picture programs "the rule that decided stands beside each window"
is_excluded() { loader --excluded | grep -qF 'notepad.exe'; }
is_included() { ! is_excluded; }
press_keys alt+k
eventually is_excluded || fail "the program isn't kept out"
press_keys alt+l
eventually is_included || fail "the program isn't let in again"
press_keys Escape
expect_gone "Halyard: programs"

say "Another picture for a desktop, where the platform has no panel for it:"
convert -size 320x200 gradient:'#1F6F5C-#E8D8A0' -alpha off "BMP3:$WINEPREFIX/drive_c/Dunes.bmp"
wine reg add 'HKCU\Control Panel\Desktop' /v Wallpaper /d 'C:\Dunes.bmp' /f >/dev/null 2>&1
# It opens on the display where the mouse is.
move_mouse 600 700
open_settings 2
loader --config 2
click_in "$SettingsTitle" 50 155
click_in "$SettingsTitle" 260 197
expect_window "Background of the desktop"
keep_picture wallpaper "the chooser, with the desktop in small"
press_keys Escape
expect_gone "Background of the desktop"
close_settings
close_programs notepad.exe
expect_gone Letter
