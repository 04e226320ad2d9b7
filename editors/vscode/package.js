// Packs the extension: node package.js [FILE.vsix]
'use strict';

const fs = require('fs');
const path = require('path');
const {createVSIX} = require('@vscode/vsce');

const packagePath = path.resolve(process.argv[2] || path.join(__dirname, 'macroengine.vsix'));

// The licence is the project's, and a package holds files of its own folder only.
const licence = path.join(__dirname, '..', '..', 'LICENSE');
const copy = path.join(__dirname, 'LICENSE');
if (fs.existsSync(licence)) fs.copyFileSync(licence, copy);
createVSIX({cwd: __dirname, packagePath, allowMissingRepository: true, dependencies: false, skipLicense: true})
    .catch(error => {
        console.error(error.message);
        process.exitCode = 1;
    })
    .finally(() => fs.rmSync(copy, {force: true}));
