" Macro files: what stands between the words of a block is indented. Directives stay where they are in the text.
if exists('b:did_indent')
    finish
endif
let b:did_indent = 1

setlocal indentexpr=MacroengineIndent()
setlocal indentkeys=!^F,o,O,=elseif,=else,=endif,=endloop

let b:undo_indent = 'setlocal indentexpr< indentkeys<'

if exists('*MacroengineIndent')
    finish
endif

function MacroengineIndent() abort
    let above = prevnonblank(v:lnum - 1)
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
