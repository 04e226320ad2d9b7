" Macro files: what stands between the words of a block is indented, a directive with "#" begins its line.
if exists('b:did_indent')
    finish
endif
let b:did_indent = 1

setlocal indentexpr=MacroengineIndent()
setlocal indentkeys=!^F,o,O,0#,=elseif,=else,=endif,=endloop

let b:undo_indent = 'setlocal indentexpr< indentkeys<'

if exists('*MacroengineIndent')
    finish
endif

function MacroengineIndent() abort
    if getline(v:lnum) =~# '^\s*#'
        return 0
    endif
    let above = prevnonblank(v:lnum - 1)
    while above > 0 && getline(above) =~# '^\s*#'
        let above = prevnonblank(above - 1)
    endwhile
    if above == 0
        return 0
    endif
    let indent = indent(above)
    if getline(above) =~# '^\s*\%(if\|elseif\|else\|loop\)\>'
        let indent += shiftwidth()
    endif
    if getline(v:lnum) =~# '^\s*\%(elseif\|else\|endif\|endloop\)\>'
        let indent -= shiftwidth()
    endif
    return indent
endfunction
