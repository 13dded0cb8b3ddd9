# Titles in the scripts that people write.

close_programs notepad.exe clock.exe wordpad.exe
for title in Letter Addresses Page Clock; do expect_gone "$title"; done
# This platform looks into no other font for the letters that one lacks unless it is told to.
stop_system
link_fonts() {
    wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink' /v "$1" /t REG_MULTI_SZ \
        /d 'DejaVuSans.ttf,DejaVu Sans\0DroidSansFallbackFull.ttf,Droid Sans Fallback' /f >/dev/null 2>&1 ||
        fail "the fonts couldn't be linked"
}
link_fonts Tahoma
link_fonts "MS Shell Dlg"
start_system "$binaries/tvlhload.exe"
say "Titles on the bars, whatever the script:"
for name in Letter Почта Ωκεανός 文字 سلام; do
    echo >"$WINEPREFIX/drive_c/$name.txt"
    wine "$Programs\\notepad.exe" "C:\\$name.txt" >/dev/null 2>&1 &
    expect_window "$name"
done
expect_buttons 2 5
keep_picture taskbars-scripts "Latin, Cyrillic, Greek, Chinese, Arabic"
close_programs notepad.exe
