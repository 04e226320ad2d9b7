proc main {n} {
    set sum 0
    set i 0
    while {$i < $n} {
        set sum [expr {$i * 3 - $sum}]
        incr i
    }
    puts $sum
}
main [lindex $argv 0]
