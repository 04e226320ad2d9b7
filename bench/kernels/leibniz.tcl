proc main {n} {
    set sum 0.0
    set sign 4.0
    set divisor 1.0
    set i 0
    while {$i < $n} {
        set sum [expr {$sum + $sign / $divisor}]
        set sign [expr {-$sign}]
        set divisor [expr {$divisor + 2.0}]
        incr i
    }
    puts [format %.12f $sum]
}
main [lindex $argv 0]
