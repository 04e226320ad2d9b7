proc main {n} {
    set fizz 0
    set buzz 0
    set both 0
    set other 0
    set i 1
    while {$i <= $n} {
        if {$i % 3 == 0 && $i % 5 == 0} {
            incr both
        } elseif {$i % 3 == 0} {
            incr fizz
        } elseif {$i % 5 == 0} {
            incr buzz
        } else {
            incr other
        }
        incr i
    }
    puts "$fizz $buzz $both $other"
}
main [lindex $argv 0]
