" Macro files
if exists('b:current_syntax')
    finish
endif

syntax case match

" What comes later wins at the same place.
syntax match macroengineStray /\S/
syntax match macroengineName /\<\h\w*/
syntax match macroengineDelimiter /[()[\],.]/
syntax match macroengineOperator /[-+*\/=<>&|]\|!=/
syntax match macroengineNumber /\<\d\+/
syntax match macroengineFloat /\<\d\+\.\d*/
syntax match macroengineNumber /\<0[xX]\x\+/

syntax match macroengineCategory /\<\h\w*\ze\s*\.\s*\h/ nextgroup=macroenginePoint skipwhite
syntax match macroenginePoint /\./ contained nextgroup=macroengineCommand,macroengineBuiltin skipwhite
syntax match macroengineCommand /\h\w*/ contained
syntax keyword macroengineBuiltin contained format int2hex int2dec str2dec hex2dec str2float split init max
syntax keyword macroengineBuiltin contained file_write mkdir get_time_local get_time_serial command_exec variable
syntax keyword macroengineBuiltin contained csvfile_read abort get_variable_type find_file namespace
syntax keyword macroengineBuiltin wait_ms

syntax keyword macroengineConditional if elseif else endif
syntax keyword macroengineRepeat loop endloop

syntax match macroengineInclude /^\s*#\?include\>/
syntax match macroengineDefine /^\s*#\?define\>/ nextgroup=macroengineMacro skipwhite
syntax match macroengineMacro /\<\h\w*/ contained
syntax match macroenginePreCondit /^\s*#\%(if\|elseif\|else\|endif\)\>/ nextgroup=macroengineExist skipwhite
syntax keyword macroengineExist contained exist

" A quote behind an even number of backslashes closes the text.
syntax match macroengineUnclosed /".*/
syntax match macroengineString /"\%(\\.\|[^"\\]\)*"/ contains=macroengineEscape,macroenginePlaceholder
syntax match macroengineEscape /\\["\\]/ contained
syntax match macroenginePlaceholder /%\%(%\|[-+ #0]*\d*\%(\.\d*\)\?\%(hh\|h\|l\)\?[diouxXceEfFgGaAs]\)/ contained

" A */ ends a line comment, too.
syntax keyword macroengineTodo contained TODO FIXME
syntax match macroengineComment "//.\{-}\ze\%(\*/\|$\)" contains=macroengineTodo,@Spell
syntax region macroengineComment start="/\*" end="\*/" contains=macroengineTodo,@Spell fold

syntax sync ccomment macroengineComment minlines=50

highlight default link macroengineStray Error
highlight default link macroengineUnclosed Error
highlight default link macroengineDelimiter Delimiter
highlight default link macroengineOperator Operator
highlight default link macroengineNumber Number
highlight default link macroengineFloat Float
highlight default link macroengineCategory Identifier
highlight default link macroenginePoint Delimiter
highlight default link macroengineCommand Function
highlight default link macroengineBuiltin Function
highlight default link macroengineConditional Conditional
highlight default link macroengineRepeat Repeat
highlight default link macroengineInclude Include
highlight default link macroengineDefine Define
highlight default link macroengineMacro Macro
highlight default link macroenginePreCondit PreCondit
highlight default link macroengineExist PreCondit
highlight default link macroengineString String
highlight default link macroengineEscape SpecialChar
highlight default link macroenginePlaceholder SpecialChar
highlight default link macroengineTodo Todo
highlight default link macroengineComment Comment

let b:current_syntax = 'macroengine'
