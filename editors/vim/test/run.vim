" Tests of the syntax files, the indentation and the settings: scripts/test_editors runs them in a Vim without a
" screen. What is wrong goes to the file that the environment variable RESULT names, and the exit status is 1 then.
set nocompatible noswapfile hidden
let s:folder = expand('<sfile>:p:h:h')
let s:examples = fnamemodify(s:folder, ':h:h') . '/examples'
execute 'set runtimepath^=' . fnameescape(s:folder)
filetype plugin indent on
syntax on

" Compares the syntax groups of a text's tokens with those expected: pairs of a token and its group, in order.
function s:ExpectGroups(filetype, lines, expected) abort
    enew!
    call setline(1, a:lines)
    let &l:filetype = a:filetype
    let line = 1
    let column = 0
    for [token, group] in a:expected
        let found = stridx(getline(line), token, column)
        while found < 0 && line < line('$')
            let line += 1
            let column = 0
            let found = stridx(getline(line), token)
        endwhile
        call assert_notequal(-1, found, token)
        for at in range(found + 1, found + len(token))
            let shown = synIDattr(synID(line, at, 1), 'name')
            call assert_equal(a:filetype . group, shown, getline(line) . ': ' . token)
        endfor
        let column = found + len(token)
    endfor
endfunction

function s:TestMacro() abort
    call s:ExpectGroups('macroengine', ['loop ready == 0 && i < 0x1F // turn', 'x[1] = 2.5 * text_1'], [
        \ ['loop', 'Repeat'], ['ready', 'Name'], ['==', 'Operator'], ['0', 'Number'], ['&&', 'Operator'],
        \ ['i', 'Name'], ['0x1F', 'Number'], ['// turn', 'Comment'],
        \ ['x', 'Name'], ['[', 'Delimiter'], ['1', 'Number'], ['=', 'Operator'], ['2.5', 'Float'],
        \ ['text_1', 'Name']])
    call s:ExpectGroups('macroengine', ['if a != 1', 'elseif b', 'else', 'endif', 'looping = 1'], [
        \ ['if', 'Conditional'], ['!=', 'Operator'], ['elseif', 'Conditional'], ['else', 'Conditional'],
        \ ['endif', 'Conditional'], ['looping', 'Name']])
    call s:ExpectGroups('macroengine', ['x = string.format("%5.2f \"V\"", x)', 'board.write3(1)', 'wait_ms(1)'], [
        \ ['string', 'Category'], ['.', 'Point'], ['format', 'Builtin'], ['"', 'String'],
        \ ['%5.2f', 'Placeholder'], ['\"', 'Escape'], ['V', 'String'], ['\"', 'Escape'], ['"', 'String'],
        \ ['board', 'Category'], ['write3', 'Command'], ['wait_ms', 'Builtin']])
    call s:ExpectGroups('macroengine', ['#include "a.mac"', 'define LIMIT 3', '#if exist board.preset', '#endif'], [
        \ ['#include', 'Include'], ['"a.mac"', 'String'], ['define', 'Define'], ['LIMIT', 'Macro'],
        \ ['3', 'Number'], ['#if', 'PreCondit'], ['exist', 'Exist'], ['board', 'Category'],
        \ ['preset', 'Command'], ['#endif', 'PreCondit']])
    call s:ExpectGroups('macroengine', ['a // b */ = 1', '/*/ still', 'one */ x', 's = "// no"', 't = "open', ';'], [
        \ ['// b ', 'Comment'], ['=', 'Operator'], ['/*/ still', 'Comment'], ['one */', 'Comment'], ['x', 'Name'],
        \ ['"// no"', 'String'], ['"open', 'Unclosed'], [';', 'Stray']])
endfunction

function s:TestRegisters() abort
    call s:ExpectGroups('macroengineregisters', ['Sensor 2', '[ENDIAN]', 'B : 0x00 .. 16 // big', '[REGISTER]',
        \ 'REGISTER_NAME, LSB, RW', 'GAIN, 0x10, RW, "a \"b\"" // x', 'X, "open'], [
        \ ['[ENDIAN]', 'Section'], ['B', 'Order'], ['0x00', 'Number'], ['..', 'Range'], ['16', 'Number'],
        \ ['// big', 'Comment'], ['[REGISTER]', 'Section'], ['REGISTER_NAME', 'Column'], ['LSB', 'Column'],
        \ ['RW', 'Column'], ['GAIN', 'Name'], [',', 'Separator'], ['0x10', 'Number'], ['RW', 'Access'],
        \ ['"a ', 'String'], ['\"', 'Escape'], ['// x', 'Comment'], ['"open', 'Unclosed']])
endfunction

function s:TestLines() abort
    call s:ExpectGroups('macroenginelines', ['HiAddress 12 // x', '//.note', 'GAIN u12*0.5+3 0010 0 8 11 4 2 // y'], [
        \ ['HiAddress', 'HighAddress'], ['12', 'Upper'], ['// x', 'Comment'], ['//.note', 'Note'],
        \ ['GAIN', 'Name'], ['u12*0.5+3', 'Value'], ['0010', 'Address'], ['0', 'Bit'], ['8', 'Width'],
        \ ['11', 'Address'], ['4', 'Bit'], ['2', 'Width'], ['// y', 'Comment']])
endfunction

" The examples are found by their names, have no mistake, and are indented as the indentation file would.
function s:TestExamples() abort
    let files = glob(s:examples . '/**/*.mac', 0, 1)
    call assert_notequal([], files)
    for file in files
        execute 'edit ' . fnameescape(file)
        call assert_equal('macroengine', &filetype)
        let lines = getline(1, '$')
        for number in range(1, line('$'))
            for column in range(1, col([number, '$']) - 1)
                let group = synIDattr(synID(number, column, 1), 'name')
                call assert_notmatch('Stray\|Unclosed', group, file . '(' . number . ')')
            endfor
        endfor
        silent %left
        silent normal! gg=G
        call assert_equal(lines, getline(1, '$'), file)
    endfor
    for file in glob(s:examples . '/**/*.rgi', 0, 1)
        execute 'edit ' . fnameescape(file)
        call assert_equal('macroengineregisters', &filetype)
    endfor
endfunction

function s:TestSettings() abort
    enew!
    setfiletype macroengine
    call assert_equal(['// %s', 4, 1], [&commentstring, &shiftwidth, &expandtab])
    let &g:errorformat = &l:errorformat
    cgetexpr ['a.mac(3): error : syntax error ''x''']
    let [finding] = getqflist()
    call assert_equal([3, 'e', 'syntax error ''x'''], [finding.lnum, finding.type, finding.text])
endfunction

try
    call s:TestMacro()
    call s:TestRegisters()
    call s:TestLines()
    call s:TestExamples()
    call s:TestSettings()
catch
    call add(v:errors, v:throwpoint . ': ' . v:exception)
endtry
call writefile(empty(v:errors) ? ['Vim: all good'] : v:errors, $RESULT)
if !empty(v:errors)
    cquit
endif
qall!
