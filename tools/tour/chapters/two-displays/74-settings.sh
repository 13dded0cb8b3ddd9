# The property sheet, where all of it is set.

SettingsTitle="Tevral Ombrel Windows Manager"

# open_settings PAGE: as the window in front. Needs another window, at the place of the letter.
open_settings() {
    loader --config "$1"
    expect_window "$SettingsTitle"
    # The runtime doesn't draw a window as active that comes up by itself: it must become so by a click.
    click 1400 153
    click_in "$SettingsTitle" 160 12
    expect_focus "$SettingsTitle"
    move_mouse 600 700
}

# keep_page NUMBER NAME WHAT: of the open sheet.
keep_page() {
    loader --config "$1"
    keep_picture "$2" "$3"
}

close_settings() {
    expect_focus "$SettingsTitle"
    press_keys Escape
    expect_gone "$SettingsTitle"
}

stop_system
configure Autodock=1 WindowMem=1 CtrlMax=1 DialogControl=4 DragTrans=1 DragTransPerCent=60
start_system "$binaries/tvlhload.exe"
open_at_rest Letter 1240 140 480 300 "$Programs\\notepad.exe" 'C:\Letter.txt'
move_mouse 600 700
say "The settings, on four pages:"
open_settings 0
keep_page 0 settings-windows "what is done to windows"
keep_page 1 settings-taskbars "taskbars and the task switch"
keep_page 2 settings-desktops "the virtual desktops"
keep_page 3 settings-hotkeys "what the keys are bound to"
close_settings
open_settings 0
move_mouse 424 250
press_keys F1
# Beside the popup, which has come up at the mouse.
move_mouse 404 246
keep_picture settings-help "every control explains itself at F1"
press_keys Escape
move_mouse 600 700
say "With the system turned off:"
loader --disable
expect_status "hooks: out"
keep_page 0 settings-off-windows "nothing can be set"
keep_page 2 settings-off-desktops "nor the desktops changed"
loader --enable
expect_status "hooks: in"
close_settings
