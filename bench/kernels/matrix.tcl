proc main {n} {
    set a {}
    set b {}
    set i 0
    while {$i < $n} {
        set rowOfA {}
        set rowOfB {}
        set j 0
        while {$j < $n} {
            lappend rowOfA [expr {$i + $j}]
            lappend rowOfB [expr {$i * 2 - $j}]
            incr j
        }
        lappend a $rowOfA
        lappend b $rowOfB
        incr i
    }
    set c {}
    set i 0
    while {$i < $n} {
        set row {}
        set j 0
        while {$j < $n} {
            set sum 0
            set k 0
            while {$k < $n} {
                set sum [expr {$sum + [lindex $a $i $k] * [lindex $b $k $j]}]
                incr k
            }
            lappend row $sum
            incr j
        }
        lappend c $row
        incr i
    }
    set trace 0
    set i 0
    while {$i < $n} {
        incr trace [lindex $c $i $i]
        incr i
    }
    set last [expr {$n - 1}]
    puts "$trace [lindex $c 0 $last] [lindex $c $last 0]"
}
main [lindex $argv 0]
