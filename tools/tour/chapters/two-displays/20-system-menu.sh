# The submenu at the end of a system menu, which sends a window to another desktop.

close_programs notepad.exe clock.exe wordpad.exe
for title in "${titles[@]}"; do expect_gone "$title"; done
titles=()
configure Autodock=1 WindowMem=1
loader --enable
expect_status "enabled: yes" "current desktop: 0"

say "A submenu in every window's system menu; it sends the letter to desktop Mail:"
open_at_rest Clock 1240 140 300 300 "$Programs\\clock.exe"
open_at_rest Letter 240 140 560 400 "$Programs\\notepad.exe" 'C:\Letter.txt'
# The one window of a desktop isn't drawn as active by the runtime: another one is it first.
click 1400 153
click 500 153
expect_focus Letter
click 254 153
press_keys Up Right Up Right Down
keep_picture system-menu "the program's settings, and the desktops"
press_keys Return
expect_gone Letter
expect_status 'desktop 1: "Mail", 1 window'
