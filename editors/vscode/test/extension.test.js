// The tasks that the extension offers, seen by an editor that only keeps what it is given.
'use strict';

const assert = require('assert');
const Module = require('module');
const test = require('node:test');

const settings = {macroctl: '/opt/bin/macroctl', arguments: ['--board']};
const providers = {};
const editor = {
    workspace: {getConfiguration: section => ({get: key => section === 'macroengine' ? settings[key] : undefined})},
    tasks: {
        registerTaskProvider(type, provider) {
            providers[type] = provider;
            return {dispose() {}};
        },
    },
    TaskScope: {Workspace: 2},
    ProcessExecution: class {
        constructor(program, parameters, options) {
            Object.assign(this, {program, parameters, options});
        }
    },
    Task: class {
        constructor(definition, scope, name, source, execution, matcher) {
            Object.assign(this, {definition, scope, name, source, execution, matcher});
        }
    },
};

const load = Module._load;
Module._load = (name, ...rest) => name === 'vscode' ? editor : load(name, ...rest);
const context = {subscriptions: []};
require('../extension.js').activate(context);

const commandLine = task => [task.execution.program, ...task.execution.parameters].join(' ');

test('one provider is registered, and given back at the end', () => {
    assert.deepStrictEqual([Object.keys(providers), context.subscriptions.length], [['macroctl'], 1]);
});

test('the file in the editor can be checked and run', () => {
    const tasks = providers.macroctl.provideTasks();
    assert.deepStrictEqual(tasks.map(commandLine), [
        '/opt/bin/macroctl check --board -- ${file}',
        '/opt/bin/macroctl run --board -- ${file}',
    ]);
    assert.deepStrictEqual(tasks.map(task => task.name), ['check this macro file', 'run this macro file']);
    for (const task of tasks) assert.strictEqual(task.matcher, '$macroctl');
});

test('a task of tasks.json keeps its definition', () => {
    const definition = {
        type: 'macroctl', command: 'check', file: 'a.mac', arguments: ['--registers', 'amplifier.rgi'],
    };
    const task = providers.macroctl.resolveTask({definition, scope: 1});
    assert.strictEqual(commandLine(task), '/opt/bin/macroctl check --registers amplifier.rgi -- a.mac');
    assert.deepStrictEqual([task.definition === definition, task.scope], [true, 1]);
});
