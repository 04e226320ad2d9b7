proc main {n} {
    set flags {}
    set i 0
    while {$i <= $n} {
        lappend flags 1
        incr i
    }
    set count 0
    set i 2
    while {$i <= $n} {
        if {[lindex $flags $i] == 1} {
            incr count
            set multiple [expr {$i + $i}]
            while {$multiple <= $n} {
                lset flags $multiple 0
                incr multiple $i
            }
        }
        incr i
    }
    puts $count
}
main [lindex $argv 0]
