" Register files with sections
if exists('b:current_syntax')
    finish
endif

syntax case match

syntax region macroengineregistersEndian matchgroup=macroengineregistersSection start=/^\s*\[\s*ENDIAN\s*\]/
    \ end=/^\ze\s*\[/ contains=macroengineregistersOrder,macroengineregistersNumber,macroengineregistersRange,macroengineregistersComment
syntax match macroengineregistersOrder /^\s*[BL]\ze\s*:/ contained
syntax match macroengineregistersRange /\.\./ contained

syntax region macroengineregistersRecords matchgroup=macroengineregistersSection start=/^\s*\[\s*REGISTER\s*\]/
    \ end=/\%$/ contains=macroengineregistersHeader,macroengineregistersName,macroengineregistersAccess,macroengineregistersNumber,macroengineregistersString,macroengineregistersUnclosed,macroengineregistersSeparator,macroengineregistersComment
syntax keyword macroengineregistersAccess contained RW RO WO NC
syntax match macroengineregistersName /^\s*\zs\w\+\ze\s*,/ contained
syntax match macroengineregistersHeader /^\s*\%(REGISTER_NAME\|ADDRESS_2WIRE\|ADDRESS_3WIRE\|LSB\|LENGTH\|RW\|DESCRIPTION\|FUNCTION\)\s*\%(,.*\)\?$/
    \ contained contains=macroengineregistersColumn,macroengineregistersSeparator,macroengineregistersComment
syntax keyword macroengineregistersColumn contained REGISTER_NAME ADDRESS_2WIRE ADDRESS_3WIRE LSB LENGTH RW DESCRIPTION FUNCTION
syntax match macroengineregistersSeparator /,/ contained

syntax match macroengineregistersNumber /\<\%(0[xX]\x\+\|\d\+\)\>/ contained
syntax match macroengineregistersUnclosed /".*/ contained
syntax match macroengineregistersString /"\%(\\.\|[^"\\]\)*"/ contained contains=macroengineregistersEscape,@Spell
syntax match macroengineregistersEscape /\\["\\]/ contained

" A */ ends a line comment, too.
syntax match macroengineregistersComment "//.\{-}\ze\%(\*/\|$\)" contains=@Spell
syntax region macroengineregistersComment start="/\*" end="\*/" contains=@Spell

syntax sync fromstart

highlight default link macroengineregistersSection Title
highlight default link macroengineregistersOrder Constant
highlight default link macroengineregistersRange Operator
highlight default link macroengineregistersAccess Constant
highlight default link macroengineregistersName Identifier
highlight default link macroengineregistersColumn Keyword
highlight default link macroengineregistersSeparator Delimiter
highlight default link macroengineregistersNumber Number
highlight default link macroengineregistersUnclosed Error
highlight default link macroengineregistersString String
highlight default link macroengineregistersEscape SpecialChar
highlight default link macroengineregistersComment Comment

let b:current_syntax = 'macroengineregisters'
