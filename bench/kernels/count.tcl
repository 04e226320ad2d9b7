proc main {n} {
    set i 0
    while {$i < $n} {
        incr i
    }
    puts $i
}
main [lindex $argv 0]
