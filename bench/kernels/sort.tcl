proc main {n} {
    set values {}
    set seed 42
    set i 0
    while {$i < $n} {
        set seed [expr {($seed * 3877 + 29573) % 139968}]
        lappend values $seed
        incr i
    }
    set last [expr {$n - 1}]
    while {$last > 0} {
        set j 0
        while {$j < $last} {
            set k [expr {$j + 1}]
            if {[lindex $values $j] > [lindex $values $k]} {
                set larger [lindex $values $j]
                lset values $j [lindex $values $k]
                lset values $k $larger
            }
            set j $k
        }
        incr last -1
    }
    set sum 0
    set i 0
    while {$i < $n} {
        set sum [expr {($sum * 31 + [lindex $values $i]) % 65521}]
        incr i
    }
    puts "[lindex $values 0] $sum"
}
main [lindex $argv 0]
