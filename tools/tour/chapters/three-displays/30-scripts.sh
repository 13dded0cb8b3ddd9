# Titles in the scripts that people write.

close_programs notepad.exe clock.exe wordpad.exe
for title in Letter Addresses Page Clock; do expect_gone "$title"; done
say "Titles on the bars, whatever the script:"
for name in Letter Почта Ωκεανός 文字 سلام; do
    echo >"$WINEPREFIX/drive_c/$name.txt"
    wine "$Programs\\notepad.exe" "C:\\$name.txt" >/dev/null 2>&1 &
    expect_window "$name"
done
expect_buttons 2 5
keep_picture taskbars-scripts "Latin, Cyrillic, Greek, Chinese, Arabic"
close_programs notepad.exe
