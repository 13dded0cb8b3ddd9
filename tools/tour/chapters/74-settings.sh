# The property sheet, where all of it is set.

SettingsTitle="Tevral Ombrel Windows Manager"

# show_page NUMBER: of the sheet, which opens or comes to the front.
show_page() {
    loader --config "$1"
    expect_window "$SettingsTitle"
}

close_settings() {
    expect_focus "$SettingsTitle"
    press_keys Escape
    expect_gone "$SettingsTitle"
}

configure Autodock=1 WindowMem=1 CtrlMax=1 DialogControl=3 DialogMonitor=2 DragTrans=1 DragTransPerCent=60
loader --disable --enable
say "The settings, on four pages:"
show_page 0
keep_picture settings-windows "what is done to windows"
show_page 1
keep_picture settings-taskbars "taskbars and the task switch"
show_page 2
keep_picture settings-desktops "the virtual desktops"
show_page 3
keep_picture settings-hotkeys "the hotkeys"
loader --disable
expect_status "hooks: out"
for page in 0 1 2 3; do
    show_page $page
    keep_picture settings-disabled-$page "disabled"
done
loader --enable
expect_status "hooks: in"
close_settings
