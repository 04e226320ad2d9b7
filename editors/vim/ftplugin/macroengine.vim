" Macro files: comments, indentation by four blanks, and macroctl as the compiler of :make.
if exists('b:did_ftplugin')
    finish
endif
let b:did_ftplugin = 1

setlocal comments=s1:/*,mb:*,ex:*/,://
setlocal commentstring=//\ %s
setlocal formatoptions-=t formatoptions+=croql
setlocal expandtab shiftwidth=4 softtabstop=4
setlocal include=^\\s*#\\?include
setlocal suffixesadd=.mac
setlocal errorformat=%f(%l):\ %trror\ :\ %m
let &l:makeprg = 'macroctl check ' . get(g:, 'macroengine_arguments', '--board') . ' -- %:S'

" For matchit: % goes from each word of a block to the next one.
let b:match_words = '#\@<!\<if\>:#\@<!\<elseif\>:#\@<!\<else\>:#\@<!\<endif\>,'
    \ . '\<loop\>:\<endloop\>,'
    \ . '#if\>:#elseif\>:#else\>:#endif\>'
let b:match_ignorecase = 0

let b:undo_ftplugin = 'setlocal comments< commentstring< formatoptions< expandtab< shiftwidth< softtabstop<'
    \ . ' include< suffixesadd< errorformat< makeprg< | unlet! b:match_words b:match_ignorecase'
