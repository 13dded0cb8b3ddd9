# The end: the resident loader goes when it is told to.

has_ended() { ! loader --status >/dev/null; }
loader --quit
eventually has_ended || fail "the loader runs on after it was told to end"
[ -s "$pictures/loader.log" ] || rm "$pictures/loader.log"
