proc main {n} {
    set sum 0
    set i 0
    while {$i < $n} {
        set text [format %08X $i]
        scan $text %x number
        set sum [expr {$number - $sum}]
        incr i
    }
    puts "$sum $text"
}
main [lindex $argv 0]
