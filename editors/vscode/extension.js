// The tasks that check and run macro files with macroctl.
'use strict';

const vscode = require('vscode');

const TYPE = 'macroctl';

// The task of a definition, `{type, command, file, arguments}`, of which only the command has to be there.
function makeTask(definition, scope) {
    const settings = vscode.workspace.getConfiguration('macroengine');
    const options = definition.arguments || settings.get('arguments');
    const file = definition.file || '${file}';
    const program = new vscode.ProcessExecution(
        settings.get('macroctl'), [definition.command, ...options, '--', file], {cwd: '${workspaceFolder}'});
    const name = definition.command + ' ' + (definition.file || 'this macro file');
    return new vscode.Task(definition, scope, name, TYPE, program, '$macroctl');
}

function provideTasks() {
    return ['check', 'run'].map(command => makeTask({type: TYPE, command}, vscode.TaskScope.Workspace));
}

function resolveTask(task) {
    return makeTask(task.definition, task.scope === undefined ? vscode.TaskScope.Workspace : task.scope);
}

function activate(context) {
    context.subscriptions.push(vscode.tasks.registerTaskProvider(TYPE, {provideTasks, resolveTask}));
}

module.exports = {activate};
