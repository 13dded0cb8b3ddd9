# Virtual desktops: windows of four programs are spread over three desktops, each with its own colour.

MailColour=1F6F5C
WebColour=7A3E1D

# The registry holds colours with red in the lowest byte.
stored_colour() { printf '%s%s%s' "${1:4:2}" "${1:2:2}" "${1:0:2}"; }

store_configuration() {
    cat >"$WINEPREFIX/drive_c/configuration.reg" <<REGISTRY
REGEDIT4

[HKEY_CURRENT_USER\\Software\\Tevral, Inc.\\Halyard]
"Run"=dword:00000001
"RunWizard"=dword:00000001
"MultiDesk"=dword:00000001
"ShowDesktopName"=dword:00000000
"TrayIcon"=dword:00000000

[HKEY_CURRENT_USER\\Software\\Tevral, Inc.\\Halyard\\Desktops\\1]
@="Mail"
"Colour"=dword:00$(stored_colour $MailColour)

[HKEY_CURRENT_USER\\Software\\Tevral, Inc.\\Halyard\\Desktops\\2]
@="Web"
"Colour"=dword:00$(stored_colour $WebColour)
REGISTRY
    wine regedit /S 'C:\configuration.reg' || fail "the configuration couldn't be stored"
}

store_configuration
write_documents
DefaultColour=
if [ -z "$live" ]; then
    paint_background
    DefaultColour=$(cat "$WINEPREFIX/background")
fi
start_system "$binaries/tvlhload.exe"
open_window Letter 60 60 560 400 "$Programs\\notepad.exe" 'C:\Letter.txt'
open_window Clock 690 300 270 300 "$Programs\\clock.exe"
open_window Page 1090 60 660 420 'C:\Program Files (x86)\Windows NT\Accessories\wordpad.exe' 'C:\Page.rtf'
open_window Addresses 1560 520 420 200 "$Programs\\notepad.exe" 'C:\Addresses.txt'

say "Four windows of three programs on two displays, all on the default desktop:"
expect_status 'desktop 1: "Mail", 0 windows' 'desktop 2: "Web", 0 windows'
take_picture programs "$DefaultColour" Letter Clock Page Addresses

say "The letter and the addresses go to desktop Mail, the page to desktop Web, and vanish from here:"
send_to_desktop Letter 1
send_to_desktop Addresses 1
send_to_desktop Page 2
expect_status 'desktop 1: "Mail", 2 windows' 'desktop 2: "Web", 1 window'
take_picture sent "$DefaultColour" Clock

say "Desktop Mail:"
loader --switch 1
expect_status "current desktop: 1"
take_picture mail $MailColour Letter Addresses

say "Desktop Web:"
loader --switch 2
expect_status "current desktop: 2"
take_picture web $WebColour Page

say "The default desktop again:"
loader --switch 0
expect_status "current desktop: 0"
take_picture back "$DefaultColour" Clock

say "Halyard turned off; every window comes back:"
loader --disable
expect_status "enabled: no" "hooks: out"
take_picture disabled "$DefaultColour" Letter Clock Page Addresses
