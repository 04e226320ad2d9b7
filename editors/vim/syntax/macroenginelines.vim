" Line-based register files
if exists('b:current_syntax')
    finish
endif

syntax case match

syntax match macroenginelinesName /^\s*\S\+/ nextgroup=macroenginelinesValue skipwhite
syntax match macroenginelinesValue /\S\+/ contained nextgroup=macroenginelinesAddress skipwhite
syntax match macroenginelinesAddress /\x\+\ze\s\+\d\+\s\+\d\+\%(\s\|$\)/ contained nextgroup=macroenginelinesBit skipwhite
syntax match macroenginelinesBit /\d\+/ contained nextgroup=macroenginelinesWidth skipwhite
syntax match macroenginelinesWidth /\d\+/ contained nextgroup=macroenginelinesAddress skipwhite
syntax match macroenginelinesHighAddress /^\s*HiAddress\>/ nextgroup=macroenginelinesUpper skipwhite
syntax match macroenginelinesUpper /\x\+/ contained
syntax match macroenginelinesComment "//.*" contains=@Spell
syntax match macroenginelinesNote "^\s*//\..*" contains=@Spell

highlight default link macroenginelinesName Identifier
highlight default link macroenginelinesValue Constant
highlight default link macroenginelinesAddress Number
highlight default link macroenginelinesBit Number
highlight default link macroenginelinesWidth Number
highlight default link macroenginelinesHighAddress Keyword
highlight default link macroenginelinesUpper Number
highlight default link macroenginelinesComment Comment
highlight default link macroenginelinesNote SpecialComment

let b:current_syntax = 'macroenginelines'
