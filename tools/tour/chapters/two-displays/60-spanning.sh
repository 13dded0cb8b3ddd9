# A window over all displays, and back.

close_programs notepad.exe
expect_gone Letter
configure CtrlMax=2 DialogControl=0
say "The page is maximised by a double-click, over both displays:"
open_at_rest Page 160 120 660 420 'C:\Program Files (x86)\Windows NT\Accessories\wordpad.exe' 'C:\Page.rtf'
click 1600 233
move_mouse 500 133
xdotool click --repeat 2 --delay 50 1
expect_place Page -4 -4 2056 776
keep_picture spanning "both displays are its own"
move_mouse 500 9
xdotool click --repeat 2 --delay 50 1
expect_place Page 160 120 660 420
keep_picture restored "back where it was"
