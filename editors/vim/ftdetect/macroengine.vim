" Macro files and register files by their extensions. A line-based register file has none of its own: it says
" what it is in a modeline, or is told by hand (:setfiletype macroenginelines).

" Vim takes a .mac for assembler first, and that filetype leaves its mark behind.
autocmd BufRead,BufNewFile *.mac unlet! b:did_ftplugin | set filetype=macroengine
autocmd BufRead,BufNewFile *.rgi set filetype=macroengineregisters
