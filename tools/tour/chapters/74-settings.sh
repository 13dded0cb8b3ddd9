# The property sheet, where all of it is set.

SettingsTitle="Tevral Ombrel Windows Manager"

# keep_page NUMBER NAME WHAT: of the sheet, which opens or turns to that page.
keep_page() {
    loader --config "$1"
    expect_window "$SettingsTitle"
    keep_picture "$2" "$3"
}

close_settings() {
    expect_focus "$SettingsTitle"
    press_keys Escape
    expect_gone "$SettingsTitle"
}

stop_system
configure Autodock=1 WindowMem=1 CtrlMax=1 DialogControl=4 DragTrans=1 DragTransPerCent=60 TaskbarsEnable=1
start_system "$binaries/tvlhload.exe"
# The one window of a desktop isn't drawn as active by the runtime: another one is it first.
open_at_rest Letter 1240 140 480 300 "$Programs\\notepad.exe" 'C:\Letter.txt'
move_mouse 600 700
say "The settings, on four pages:"
keep_page 0 settings-windows "what is done to windows"
keep_page 1 settings-taskbars "taskbars and the task switch"
keep_page 2 settings-desktops "the virtual desktops"
keep_page 3 settings-hotkeys "what the keys are bound to"
close_settings
keep_page 0 settings-help ""
press_keys F1
keep_picture settings-help "every control explains itself at F1"
say "With the system turned off:"
loader --disable
expect_status "hooks: out"
keep_page 0 settings-off-windows "nothing can be set"
keep_page 2 settings-off-desktops "nor the desktops changed"
loader --enable
expect_status "hooks: in"
close_settings
