# Taskbars on the displays beside the shell's own. The shell is one that stands in, since the runtime has none.

# The class by which programs add and remove buttons of the shell's taskbar.
register_shell() {
    cat >"$WINEPREFIX/drive_c/shell.reg" <<REGISTRY
REGEDIT4

[HKEY_CLASSES_ROOT\\CLSID\\{56FDF344-FD6D-11D0-958A-006097C9A090}\\InprocServer32]
@="$(winepath -w "$binaries/standin_shell.dll" | sed 's/\\/\\\\/g')"
"ThreadingModel"="Apartment"
REGISTRY
    wine regedit /S 'C:\shell.reg' || fail "the shell couldn't be registered"
}

# The left edges of the displays' buttons, and where all bars lie.
barLefts=(0 0 1024 2048)
BarTop=742

# expect_buttons DISPLAY COUNT: how many buttons its bar has. Each begins with a picture of many colours.
expect_buttons() {
    local display=$1 count=$2 button seen
    buttons_are_right() {
        import -window root "$pictures/buttons.png" || return 1
        seen=0
        for ((button = 0; button < 6; button++)); do
            local place=16x16+$((barLefts[display] + 9 + 160 * button))+$((BarTop + 4))
            [ "$(convert "$pictures/buttons.png" -crop "$place" +repage -format '%k' info:)" -lt 5 ] || seen=$((seen + 1))
        done
        [ "$seen" -eq "$count" ]
    }
    eventually buttons_are_right || fail "display $display has $seen buttons, not $count"
    rm -f "$pictures/buttons.png"
}

register_shell
write_documents
paint_background
wine "$binaries/standin_tray.exe" &
configure Run=1 RunWizard=1 TaskbarsEnable=1 TaskswitchMirrorEnable=1
start_system "$binaries/tvlhload.exe"

say "Three displays, the first with the shell's own bar. Each has the windows that stand on it:"
open_window Letter 100 120 560 400 "$Programs\\notepad.exe" 'C:\Letter.txt'
open_window Clock 1200 160 300 300 "$Programs\\clock.exe"
open_window Addresses 1560 420 420 200 "$Programs\\notepad.exe" 'C:\Addresses.txt'
open_window Page 2200 100 660 420 'C:\Program Files (x86)\Windows NT\Accessories\wordpad.exe' 'C:\Page.rtf'
click 1350 173
expect_focus Clock
expect_buttons 1 1
expect_buttons 2 2
expect_buttons 3 1
keep_picture taskbars "a bar on each; the clock is active"

say "The clock is dragged to the third display, and its button goes along:"
drag_mouse 2750 440
drop_mouse
expect_buttons 2 1
expect_buttons 3 2
keep_picture taskbars-moved "the clock's button is on the third display"

say "A click on a button minimises the active window:"
# The runtime makes a minimised window as small as a title bar, behind the shell's.
is_minimised() { [ "$(xdotool getwindowgeometry --shell "$(number_of Clock)" | sed -n 's/^HEIGHT=//p')" -lt 100 ]; }
click $((2048 + 160 + 60)) 754
eventually is_minimised || fail "the clock isn't minimised"
keep_picture taskbars-minimised "the clock has gone down to its button"
click $((2048 + 160 + 60)) 754
expect_focus Clock

say "The bar of the second display is dragged to the right, the third one's menu is opened:"
move_mouse 1900 754
drag_mouse 1990 400
drop_mouse
xdotool mousemove 2700 754 click 3
keep_picture taskbars-edges "a bar on another edge, and a bar's menu"
press_keys Escape
move_mouse 1990 700
drag_mouse 1500 750
drop_mouse

say "All windows on every bar:"
stop_system
configure TaskbarsShowAllTasks=1
start_system "$binaries/tvlhload.exe"
for display in 1 2 3; do expect_buttons "$display" 4; done
keep_picture taskbars-all "four buttons on each"
