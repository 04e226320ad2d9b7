proc main {rounds} {
    set total 0
    set round 0
    while {$round < $rounds} {
        set text 0
        set i 1
        while {$i < 2000} {
            append text "," $i
            incr i
        }
        set pieces [split $text ","]
        set count [llength $pieces]
        set number [lindex $pieces [expr {$count - 1}]]
        set total [expr {$total + $count + $number}]
        incr round
    }
    puts $total
}
main [lindex $argv 0]
