// The examples look as they should: every token has a meaning, and the indentation is the one that the editor gives.
'use strict';

const assert = require('assert');
const fs = require('fs');
const path = require('path');
const test = require('node:test');
const oniguruma = require('vscode-oniguruma');
const textmate = require('vscode-textmate');

const extension = path.join(__dirname, '..');
const examples = path.join(extension, '..', '..', 'examples');
const {contributes} = require('../package.json');

function filesBelow(folder) {
    return fs.readdirSync(folder, {withFileTypes: true}).flatMap(entry => {
        const file = path.join(folder, entry.name);
        return entry.isDirectory() ? filesBelow(file) : [file];
    });
}

function readLines(file) {
    return fs.readFileSync(file, 'utf8').split(/\r?\n/);
}

// The language of a file by its extension. Of line-based register files the user says it.
function languageOf(file) {
    const extension = path.extname(file);
    if (extension === '.txt') return 'macroengine-register-lines';
    return contributes.languages.find(({extensions}) => (extensions || []).includes(extension)).id;
}

const FILES = filesBelow(examples).filter(file => /\.(mac|rgi)$|registers.*\.txt$/.test(file));

async function loadRegistry() {
    const wasm = require.resolve('vscode-oniguruma/release/onig.wasm');
    await oniguruma.loadWASM(fs.readFileSync(wasm).buffer);
    return new textmate.Registry({
        onigLib: Promise.resolve({
            createOnigScanner: patterns => new oniguruma.OnigScanner(patterns),
            createOnigString: text => new oniguruma.OnigString(text),
        }),
        loadGrammar: async scopeName => {
            const grammar = contributes.grammars.find(candidate => candidate.scopeName === scopeName);
            const file = path.join(extension, grammar.path);
            return textmate.parseRawGrammar(fs.readFileSync(file, 'utf8'), file);
        },
    });
}

test('there are examples of every language', () => {
    const languages = new Set(FILES.map(languageOf));
    assert.deepStrictEqual([...languages].sort(), contributes.languages.map(({id}) => id).sort());
});

test('every token of the examples has a meaning', async () => {
    const registry = await loadRegistry();
    for (const file of FILES) {
        const {scopeName} = contributes.grammars.find(({language}) => language === languageOf(file));
        const grammar = await registry.loadGrammar(scopeName);
        let state = textmate.INITIAL;
        readLines(file).forEach((line, index) => {
            const {tokens, ruleStack} = grammar.tokenizeLine(line, state);
            state = ruleStack;
            for (const {startIndex, endIndex, scopes} of tokens) {
                const text = line.slice(startIndex, endIndex);
                if (text.trim() === '') continue;
                const scope = scopes[scopes.length - 1];
                assert.ok(!/^(source|invalid|meta\.(?!preamble))/.test(scope),
                    `${file}(${index + 1}): "${text}" is ${scope}`);
            }
        });
    }
});

test('the editor would indent the examples as they are', () => {
    const {indentationRules} = require('../macro.language-configuration.json');
    const increase = new RegExp(indentationRules.increaseIndentPattern);
    const decrease = new RegExp(indentationRules.decreaseIndentPattern);
    const unindented = new RegExp(indentationRules.unIndentedLinePattern);
    for (const file of FILES.filter(candidate => languageOf(candidate) === 'macroengine')) {
        let depth = 0;
        readLines(file).forEach((line, index) => {
            if (line.trim() === '' || unindented.test(line)) return;
            if (decrease.test(line)) --depth;
            assert.strictEqual(line.length - line.trimStart().length, 4 * depth, `${file}(${index + 1})`);
            if (increase.test(line)) ++depth;
        });
        assert.strictEqual(depth, 0, file);
    }
});

test('every fold that begins ends', () => {
    const {folding} = require('../macro.language-configuration.json');
    const start = new RegExp(folding.markers.start);
    const end = new RegExp(folding.markers.end);
    for (const file of FILES.filter(candidate => languageOf(candidate) === 'macroengine')) {
        const lines = readLines(file);
        assert.strictEqual(lines.filter(line => start.test(line)).length,
            lines.filter(line => end.test(line)).length, file);
    }
    assert.ok(start.test('    loop a < 1') && end.test('    endloop') && !start.test('looping = 1'));
});
