// The package holds what the extension needs, and nothing else.
'use strict';

const assert = require('assert');
const {execFileSync} = require('child_process');
const fs = require('fs');
const os = require('os');
const path = require('path');
const test = require('node:test');
const yauzl = require('yauzl');

const extension = path.join(__dirname, '..');

function listZip(file) {
    return new Promise((resolve, reject) => {
        const names = [];
        yauzl.open(file, (error, zip) => {
            if (error) return reject(error);
            zip.on('entry', entry => names.push(entry.fileName));
            zip.on('end', () => resolve(names));
            zip.on('error', reject);
        });
    });
}

test('the package', async t => {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'macroengine-'));
    t.after(() => fs.rmSync(folder, {recursive: true}));
    const file = path.join(folder, 'macroengine.vsix');
    execFileSync(process.execPath, ['package.js', file], {cwd: extension});
    const names = (await listZip(file)).map(name => name.toLowerCase()).sort();
    const licence = fs.existsSync(path.join(extension, '..', '..', 'LICENSE')) ? ['extension/license.txt'] : [];
    assert.deepStrictEqual(names, [
        '[content_types].xml',
        'extension.vsixmanifest',
        'extension/extension.js',
        ...licence,
        'extension/macro.language-configuration.json',
        'extension/package.json',
        'extension/readme.md',
        'extension/registers.language-configuration.json',
        'extension/snippets/macro.json',
        'extension/syntaxes/macro.tmlanguage.json',
        'extension/syntaxes/register-lines.tmlanguage.json',
        'extension/syntaxes/registers.tmlanguage.json',
    ].sort());
});
