proc main {n} {
    set registers {}
    set i 0
    while {$i < 64} {
        lappend registers [expr {$i * 257}]
        incr i
    }
    set i 0
    while {$i < $n} {
        set address [expr {$i & 63}]
        set value [lindex $registers $address]
        set field [expr {($value >> 3) & 31}]
        set field [expr {($field + $i) & 31}]
        lset registers $address [expr {($value & 0xFF07) | ($field << 3)}]
        incr i
    }
    set sum 0
    set i 0
    while {$i < 64} {
        set sum [expr {($sum * 31 + [lindex $registers $i]) & 0xFFFFFF}]
        incr i
    }
    puts $sum
}
main [lindex $argv 0]
