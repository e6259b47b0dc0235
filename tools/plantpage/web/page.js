import { ask, Lost, SignedOut, signIn, signOut } from './server.js';
import { forgetCharts } from './charts.js';
import { byId } from './dom.js';
import { clock } from './format.js';
import { known, readList, readSeam, readSeams, showCell, showOverview } from './views.js';
import { currentLanguage, languages, setLanguage, word } from './words.js';

const liveMs = 1000;
const recordsMs = 10000;
const themes = ['auto', 'light', 'dark'];
const pages = ['sign-in', 'overview', 'cell', 'list'];

let lostSince = 0;
let recordsDue = 0;
let timer = 0;
let round = 0; // an answer to an earlier question than the newest counts no more

/** The page that the address names: { page, cell, seam, list }. */
function way() {
    const [page, cell, seam] = location.hash.slice(1).split('/').map(decodeURIComponent);
    if (page === 'cell')
        return { page, cell, seam };
    return page === 'alarms' || page === 'changes' ? { page: 'list', list: page } : { page: 'overview' };
}

function showPage(name) {
    for (const page of pages)
        byId(page).hidden = page !== name;
    const isIn = name !== 'sign-in';
    for (const id of ['ways', 'day-label', 'sign-out'])
        byId(id).hidden = !isIn;
    for (const link of byId('ways').children) {
        const isHere = link.getAttribute('href') === (location.hash || '#');
        link.toggleAttribute('aria-current', isHere);
    }
}

function takeDay() {
    const from = new Date(`${byId('day').value}T00:00`);
    if (Number.isNaN(from.getTime()))
        return;
    const until = new Date(from);
    until.setDate(from.getDate() + 1); // a day with a change of the clock has 23 or 25 hours
    known.from = from.getTime();
    known.until = until.getTime();
}

function sayLost(problem) {
    const line = byId('lost');
    let text = problem ? word('brokerLost', problem) : '';
    if (lostSince)
        text = word('lost', clock(lostSince));
    line.hidden = !text;
    if (line.textContent !== text)
        line.textContent = text;
    document.body.classList.toggle('stale', Boolean(lostSince));
}

async function readLive(here) {
    const plant = await ask('plant');
    known.cells = plant.cells;
    byId('sign-out').textContent = `${word('signOut')} (${plant.user})`;
    lostSince = 0;
    sayLost(plant.problem);
    showHere(here);
}

function showHere(here) {
    showPage(here.page);
    if (here.page === 'overview')
        showOverview();
    else if (here.page === 'cell')
        showCell(here.cell);
}

async function readRecords(here) {
    if (!Object.keys(known.reasons).length)
        known.reasons = await ask('reasons');
    if (here.page === 'overview')
        known.sums = await ask('sums', { from: known.from, until: known.until });
    else if (here.page === 'cell')
        await Promise.all([readSeams(here.cell), readSeam(here.seam)]);
    else
        await readList(here.list);
}

/** Reads what is due, again and again; with everything at once after a change of the page. */
async function read(everything = false) {
    clearTimeout(timer);
    const mine = ++round;
    const here = way();
    try {
        if (everything || Date.now() >= recordsDue) {
            await readRecords(here);
            recordsDue = Date.now() + recordsMs;
        }
        await readLive(here);
    } catch (error) {
        if (error instanceof SignedOut)
            return askWho(lostSince || known.cells.length ? word('ended') : '');
        if (!(error instanceof Lost))
            throw error;
        lostSince ||= Date.now();
        recordsDue = 0;
        sayLost();
    }
    if (mine === round)
        timer = setTimeout(read, liveMs);
}

function askWho(reason) {
    round++;
    clearTimeout(timer);
    lostSince = 0;
    sayLost();
    known.cells = [];
    known.sums = { hours: {}, cells: {} };
    showPage('sign-in');
    byId('refused').textContent = reason;
    document.querySelector('#sign-in input').focus();
}

async function enter(event) {
    event.preventDefault();
    const form = event.target;
    const button = form.querySelector('button');
    button.disabled = true;
    byId('refused').textContent = word('asking');
    try {
        await signIn(form.user.value, form.password.value);
        form.reset();
        byId('refused').textContent = '';
        read(true);
    } catch (error) {
        byId('refused').textContent = error instanceof SignedOut
            ? `${word('refused')} (${error.message})` : word('lost', clock(Date.now()));
    }
    button.disabled = false;
}

function translate() {
    document.documentElement.lang = currentLanguage();
    document.title = word('plant');
    for (const element of document.querySelectorAll('[data-word]'))
        element.textContent = word(element.dataset.word);
    for (const element of document.querySelectorAll('[data-hint]'))
        element.placeholder = element.ariaLabel = word(element.dataset.hint);
    byId('language').textContent = languages[currentLanguage() === 'zh' ? 'en' : 'zh'];
    byId('theme').textContent = word('theme', word(theme()));
    byId('sign-out').textContent = word('signOut');
}

function theme() {
    return themes.find(name => name === localStorage.getItem('theme')) ?? 'auto';
}

function applyTheme() {
    const isDark = matchMedia('(prefers-color-scheme: dark)').matches;
    document.documentElement.dataset.theme = theme() === 'auto' ? (isDark ? 'dark' : 'light') : theme();
}

function refresh() {
    applyTheme();
    forgetCharts();
    translate();
    if (byId('sign-in').hidden)
        read(true);
}

function begin() {
    setLanguage(localStorage.getItem('language') ?? (navigator.language.startsWith('zh') ? 'zh' : 'en'));
    applyTheme();
    translate();
    const now = new Date();
    byId('day').value = new Date(now - now.getTimezoneOffset() * 60000).toISOString().slice(0, 10);
    takeDay();

    document.querySelector('#sign-in form').addEventListener('submit', enter);
    byId('sign-out').addEventListener('click', async () => {
        await signOut().catch(() => {});
        askWho('');
    });
    byId('language').addEventListener('click', () => {
        setLanguage(currentLanguage() === 'zh' ? 'en' : 'zh');
        localStorage.setItem('language', currentLanguage());
        refresh();
    });
    byId('theme').addEventListener('click', () => {
        localStorage.setItem('theme', themes[(themes.indexOf(theme()) + 1) % themes.length]);
        refresh();
    });
    byId('day').addEventListener('change', () => {
        takeDay();
        read(true);
    });
    byId('search').addEventListener('input', showOverview);
    byId('with-alarm').addEventListener('change', showOverview);
    matchMedia('(prefers-color-scheme: dark)').addEventListener('change', refresh);
    addEventListener('hashchange', () => {
        read(true);
        scrollTo(0, 0);
    });
    read(true);
}

begin();
