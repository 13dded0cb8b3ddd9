# The sheet of a user who may not change what an administrator has set for all.

# A program of 32 bits has its own part of the machine's settings.
store_for_machine() {
    cat >"$WINEPREFIX/drive_c/machine.reg"
    wine "$Programs\\regedit.exe" /S 'C:\machine.reg' || fail "the machine's settings couldn't be stored"
}

stop_system
store_for_machine <<'REGISTRY'
REGEDIT4

[HKEY_LOCAL_MACHINE\Software\Tevral, Inc.\Halyard]
"Run"=dword:00000001
"RunWizard"=dword:00000001
"MultiDesk"=dword:00000001
"Autodock"=dword:00000001
"DialogControl"=dword:00000004

[HKEY_LOCAL_MACHINE\Software\Tevral, Inc.\Halyard\Desktops\1]
@="Ward"
REGISTRY
start_system "$binaries/ordinary_user.exe" "$binaries/tvlhload.exe"
say "An ordinary user, where an administrator has made the settings for all:"
open_settings 0
keep_page 0 settings-locked-windows "they can be seen"
keep_page 2 settings-locked-desktops "and not be changed"
close_settings
stop_system
store_for_machine <<'REGISTRY'
REGEDIT4

[-HKEY_LOCAL_MACHINE\Software\Tevral, Inc.\Halyard]
REGISTRY
start_system "$binaries/tvlhload.exe"
close_programs notepad.exe
expect_gone Letter
