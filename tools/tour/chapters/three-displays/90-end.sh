# The end: the resident loader goes when it is told to.

stop_system
[ -s "$pictures/loader.log" ] || rm "$pictures/loader.log"
