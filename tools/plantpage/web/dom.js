/** An element with properties and children; text is never read as HTML. */
export function make(tag, properties = {}, ...children) {
    const element = Object.assign(document.createElement(tag), properties);
    element.append(...children.filter(child => child !== null && child !== undefined));
    return element;
}

export function byId(id) {
    return document.getElementById(id);
}

/**
 * Fills a table: columns are { title, number, cell(row) }, where cell gives a text, an element or
 * null. Each cell knows its title, which stands beside it where the page is narrow. Rows stay while
 * their content does, so that what has the focus or is selected stays as well.
 */
export function fill(table, columns, rows, keyOf) {
    if (!table.tHead) {
        table.append(make('thead', {}, make('tr')), make('tbody'));
        table.known = new Map();
    }
    const titles = columns.map(column => column.title);
    if (table.titles !== titles.join('|')) {
        table.titles = titles.join('|');
        table.known.clear();
        table.tHead.rows[0].replaceChildren(...columns.map(column => make('th',
            { textContent: column.title, scope: 'col', className: column.number ? 'number' : '' })));
    }
    const known = new Map();
    const lines = rows.map(row => {
        const key = keyOf(row);
        const content = JSON.stringify(row);
        const before = table.known.get(key);
        const line = before?.content === content ? before.line : lineOf(columns, row);
        known.set(key, { content, line });
        return line;
    });
    table.known = known;
    const body = table.tBodies[0];
    if (lines.length !== body.rows.length || lines.some((line, i) => line !== body.rows[i]))
        replaceKeepingFocus(body, lines);
    table.hidden = rows.length === 0;
}

function lineOf(columns, row) {
    return make('tr', {}, ...columns.map(column => {
        const cell = make('td', { className: column.number ? 'number' : '' });
        cell.dataset.title = column.title;
        cell.append(column.cell(row) ?? '');
        return cell;
    }));
}

function replaceKeepingFocus(body, lines) {
    const focused = body.contains(document.activeElement) ? document.activeElement : null;
    body.replaceChildren(...lines);
    if (focused)
        [...body.querySelectorAll('a')].find(link => link.href === focused.href)?.focus();
}
