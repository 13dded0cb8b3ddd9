# A dragged window stays whole on one display.

close_programs notepad.exe
say "The addresses are dragged over the border between the displays:"
open_at_rest Addresses 300 300 420 240 "$Programs\\notepad.exe" 'C:\Addresses.txt'
click 1600 233
click 460 313
move_mouse 510 313
drag_mouse 920 333
expect_place Addresses 604 320 420 240
keep_picture docking-held "held at the border, though the mouse is further on"
move_mouse 1060 333 10
expect_place Addresses 1024 320 420 240
keep_picture docking-over "most of it would be on the other display: over it goes"
drop_mouse
