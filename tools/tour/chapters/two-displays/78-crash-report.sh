# A fault of the library's own. The library that is shipped has none to show: one with an entry that faults takes its
# place, in a program that calls it when it is clicked.

FaultingTitle="Faulting sample"
ReportTitle=sample_fault.exe

open_faulting() {
    wine "$binaries/sample_fault.exe" >/dev/null 2>&1 &
    expect_window "$FaultingTitle"
    demo_window place "$FaultingTitle" 60 60 400 300
    expect_place "$FaultingTitle" 60 60 400 300
}

stop_system
cp "$binaries/tvlhload.exe" "$binaries/faulting/tvlHalyd.dll" "$WINEPREFIX/drive_c/"
start_system 'C:\tvlhload.exe'
say "The library faults inside a program:"
open_faulting
expect_status 'desktop 0: "Default", 1 window'
click_in "$FaultingTitle" 200 180
expect_window "$ReportTitle"
expect_focus "$ReportTitle"
click_in "$ReportTitle" 20 261
move_mouse 700 700
keep_picture crash-report "what happened, for the developer, and a box that keeps Halyard out of that program"
press_keys Return
expect_gone "$FaultingTitle"
open_faulting
expect_status 'desktop 0: "Default", 0 windows'
click_in "$FaultingTitle" 14 14
press_keys Up
keep_picture crash-excluded "started again: its menu has no submenu any more"
press_keys Escape
close_programs sample_fault.exe
expect_gone "$FaultingTitle"
stop_system
start_system "$binaries/tvlhload.exe"
