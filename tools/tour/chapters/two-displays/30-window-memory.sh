# A program that is told so reopens its window where it was.

say "The clock is told to remember its window, and is moved and enlarged:"
click 1400 153
expect_focus Clock
press_keys alt+space Up Right Return
move_mouse 1300 153
drag_mouse 1560 233
drop_mouse
expect_place Clock 1500 220 300 300
move_mouse 1798 518
drag_mouse 1898 618
drop_mouse
expect_place Clock 1500 220 400 400
keep_picture remembered-before "where it is left"
close_programs clock.exe
expect_gone Clock
wine "$Programs\\clock.exe" >/dev/null 2>&1 &
expect_window Clock
expect_place Clock 1500 220 400 400
keep_picture remembered-after "closed, and opened again"
