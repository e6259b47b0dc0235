import { ask } from './server.js';
import { showCourse, showHours, verdicts } from './charts.js';
import { byId, fill, make } from './dom.js';
import { clock, count, quantity, span } from './format.js';
import { currentLanguage, filled, word } from './words.js';

/** What the page knows now. */
export const known = { cells: [], sums: { hours: {}, cells: {} }, reasons: {}, from: 0, until: 0 };

function pill(kind, text) {
    return make('span', { className: `pill ${kind}`, textContent: text });
}

function statePill(cell) {
    if (!cell.there)
        return pill('off', word('off'));
    return pill(cell.state ?? 'off', word(cell.state ?? 'unknown'));
}

function tile(title, content, kind = '') {
    return make('div', { className: `tile ${kind}` }, make('span', { textContent: title }),
        make('strong', {}, content));
}

function verdictCounts(counts = {}) {
    const shown = verdicts.filter(verdict => counts[verdict]);
    return make('span', { className: 'verdicts' }, ...shown.map(verdict => {
        const part = pill(verdict, count(counts[verdict]));
        part.title = word(verdict);
        part.append(make('span', { className: 'unseen', textContent: ` ${word(verdict)}` }));
        return part;
    }));
}

function alarmText(alarm) {
    const text = known.reasons[alarm.code]?.[currentLanguage()] ?? alarm.code;
    return filled(text, alarm.arguments ?? []);
}

function programText(row) {
    if (!row.program)
        return '';
    return row.line ? word('line', row.program, row.line) : row.program;
}

function cellLink(name) {
    return make('a', { href: `#cell/${encodeURIComponent(name)}`, textContent: name });
}

/** Marks the empty list beside the table, and fills the table. */
function fillList(table, columns, rows, keyOf, none) {
    fill(table, columns, rows, keyOf);
    const hint = table.parentElement.querySelector('.empty');
    hint.textContent = none;
    hint.hidden = rows.length > 0;
}

const live = [
    ['state', cell => statePill(cell)],
    ['mode', cell => cell.there && cell.mode ? word(cell.mode) : ''],
    ['program', cell => cell.there ? programText(cell) : ''],
    ['current', cell => cell.there ? quantity(cell.current, 0, 'A') : '', true],
    ['voltage', cell => cell.there ? quantity(cell.voltage, 1, 'V') : '', true],
];

export function showOverview() {
    const cells = known.cells;
    const all = Object.values(known.sums.cells);
    const total = key => all.reduce((sum, counts) => sum + (counts[key] ?? 0), 0);
    const alarmed = cells.filter(cell => cell.alarm).length;
    byId('tiles').replaceChildren(
        tile(word('online'), `${count(cells.filter(cell => cell.there).length)} / ${count(cells.length)}`),
        tile(word('welding'), count(cells.filter(cell => cell.there && cell.state === 'welding').length)),
        tile(word('openAlarms'), count(alarmed), alarmed ? 'bad' : ''),
        tile(word('seams'), count(total('seams'))),
        ...verdicts.map(verdict => tile(word(verdict), count(total(verdict)), `of-${verdict}`)),
        tile(word('arcTime'), span(total('arcTime'))),
        tile(word('wire'), quantity(total('wire'), 0, 'm')));
    const wanted = byId('search').value.trim().toLowerCase();
    const shown = cells.filter(cell => cell.name.toLowerCase().includes(wanted)
        && (cell.alarm || !byId('with-alarm').checked))
        .map(cell => ({ ...cell, counts: known.sums.cells[cell.name] }));
    const columns = [
        { title: word('cell'), cell: cell => cellLink(cell.name) },
        ...live.map(([name, content, number]) => ({ title: word(name), cell: content, number })),
        { title: word('seams'), cell: cell => verdictCounts(cell.counts) },
        { title: word('alarm'), cell: cell => cell.alarm ? alarmText(cell.alarm) : '' },
    ];
    fillList(byId('cells'), columns, shown, cell => cell.name, word('noCells'));
    showHours(byId('hours'), known.sums.hours, known.from, known.until);
}

export function showCell(name) {
    const cell = known.cells.find(one => one.name === name) ?? { name, there: false };
    byId('cell-tiles').replaceChildren(tile(word('cell'), name),
        ...live.map(([title, content]) => tile(word(title), content(cell) || '–',
            title === 'program' ? 'wide' : '')),
        ...(cell.alarm ? [tile(word('alarm'), alarmText(cell.alarm), 'bad wide')] : []));
}

function seamReason(seam) {
    if (!seam.alarm)
        return word(seam.ended === 'alarm' ? 'byAlarm' : seam.ended);
    let values = [];
    try {
        values = JSON.parse(seam.alarm_arguments || '[]');
    } catch { /* an alarm of another kind of controller is a text without arguments */ }
    return alarmText({ code: seam.alarm, arguments: values });
}

const seamColumns = [
    ['start', (seam, cell) => make('a', {
        href: `#cell/${encodeURIComponent(cell)}/${seam.id}`, textContent: clock(seam.started),
    })],
    ['program', seam => programText(seam)],
    ['verdict', seam => pill(seam.verdict, word(seam.verdict))],
    ['duration', seam => span(seam.duration / 1000), true],
    ['length', seam => quantity(seam.length, 0, 'mm'), true],
    ['current', seam => quantity(seam.current_mean, 0, 'A'), true],
    ['voltage', seam => quantity(seam.voltage_mean, 1, 'V'), true],
    ['heatInput', seam => quantity(seam.heat_input, 2, 'kJ/mm'), true],
    ['result', seam => seamReason(seam)],
];

export async function readSeams(cell) {
    const { seams } = await ask('seams', { cell, from: known.from, until: known.until });
    const columns = seamColumns.map(([name, content, number]) => (
        { title: word(name), cell: seam => content(seam, cell), number }));
    fillList(byId('seams'), columns, seams, seam => seam.id, word('noSeams'));
}

export async function readSeam(id) {
    const seam = id ? await ask('seam', { id }) : {};
    byId('seam').hidden = !seam.id;
    if (!seam.id)
        return;
    byId('seam-title').textContent = word('seamOf', clock(seam.started));
    const values = [
        ['program', programText(seam)], ['verdict', word(seam.verdict)], ['result', seamReason(seam)],
        ['file', [seam.arcon_file, seam.weld_file, seam.arcoff_file].filter(Boolean).join(', ')],
        ['mode', word(seam.mode ?? 'unknown')], ['user', seam.user],
        ['arcTime', quantity(seam.arc_time, 1, 's')], ['wire', quantity(seam.wire, 2, 'm')],
        ['heatInput', quantity(seam.heat_input, 3, 'kJ/mm')],
    ];
    byId('seam-values').replaceChildren(...values.filter(([, text]) => text).map(([name, text]) => (
        make('div', {}, make('dt', { textContent: word(name) }), make('dd', { textContent: text })))));
    showCourse(byId('course'), seam);
}

function changeText(change) {
    const text = value => typeof value === 'object' ? JSON.stringify(value) : String(value);
    const one = ({ at, old, new: value }) => {
        if (value === undefined)
            return `${at} ${word('removed')}`;
        return old === undefined ? `${at} ${word('added', text(value))}`
            : `${at}: ${text(old)} → ${text(value)}`;
    };
    return (change.changes ?? []).map(part => one(part).trim()).join(', ');
}

const lists = {
    alarms: {
        none: 'noAlarms',
        columns: [['alarm', alarmText], ['program', programText], ['file', alarm => alarm.file]],
    },
    changes: {
        none: 'noChanges',
        columns: [['user', change => change.user], ['file', change => change.entry || change.path],
            ['what', changeText]],
    },
};

export async function readList(name) {
    const content = await ask(name, { from: known.from, until: known.until });
    const columns = [['time', row => clock(row.time)], ['cell', row => cellLink(row.cell)],
        ...lists[name].columns].map(([title, cell]) => ({ title: word(title), cell }));
    byId('list-title').textContent = word(name);
    fillList(byId('rows'), columns, content[name], row => `${row.cell} ${row.time} ${JSON.stringify(row)}`,
        word(lists[name].none));
}
