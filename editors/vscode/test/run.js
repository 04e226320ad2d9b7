// Tests the extension: its grammars, what the editor makes of the examples, its tasks, and its package.
'use strict';

const {execFileSync} = require('child_process');
const path = require('path');

const folder = path.join(__dirname, '..');
const node = (...command) => execFileSync(process.execPath, command, {cwd: folder, stdio: ['ignore', 'inherit', 'inherit']});

node('node_modules/vscode-tmgrammar-test/dist/unit.js', 'test/grammar/*');
node('--test', 'test/examples.test.js', 'test/extension.test.js', 'test/package.test.js');
