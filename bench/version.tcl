# Jim Tcl tells its own version with another command than Tcl.
if {[info exists tcl_patchLevel]} {
    puts "Tcl $tcl_patchLevel"
} else {
    puts "Jim Tcl [info version]"
}
