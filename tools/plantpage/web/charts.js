import { word } from './words.js';

/* global Chart */

const charts = new Map();

function colour(name) {
    return getComputedStyle(document.documentElement).getPropertyValue(`--${name}`).trim();
}

/** Shows the chart on that canvas; one that is there already gets the new values. */
function show(canvas, type, data, options) {
    const before = charts.get(canvas);
    if (before) {
        before.data.labels = data.labels;
        data.datasets.forEach((set, i) => Object.assign(before.data.datasets[i], set));
        before.options = options;
        before.update('none');
        return;
    }
    charts.set(canvas, new Chart(canvas, { type, data, options }));
}

/** Before the colours change: what a chart has painted keeps the ones that it had. */
export function forgetCharts() {
    for (const chart of charts.values())
        chart.destroy();
    charts.clear();
}

function axis(title, more = {}) {
    return {
        title: { display: Boolean(title), text: title, color: colour('text') },
        ticks: { color: colour('dim'), maxRotation: 0 },
        grid: { color: colour('line') },
        ...more,
    };
}

function common(scales) {
    return {
        animation: false,
        maintainAspectRatio: false,
        interaction: { mode: 'index', intersect: false },
        plugins: { legend: { labels: { color: colour('text') } } },
        scales,
    };
}

export const verdicts = ['green', 'amber', 'red', 'none'];

/** Bars of the seams of a day by verdict: counts by hour, from the day's first hour on. */
export function showHours(canvas, hours, from, until) {
    const times = [];
    for (let time = Math.floor(from / 3600000) * 3600000; time < until; time += 3600000)
        times.push(time);
    const data = {
        labels: times.map(time => new Date(time).getHours()),
        datasets: verdicts.map(verdict => ({
            label: word(verdict),
            data: times.map(time => hours[time]?.[verdict] ?? 0),
            backgroundColor: colour(verdict),
        })),
    };
    show(canvas, 'bar', data, common({
        x: axis('', { stacked: true }),
        y: axis(word('seams'), { stacked: true, beginAtZero: true,
            ticks: { color: colour('dim'), precision: 0 } }),
    }));
}

/** The course of a seam: current and voltage over seconds. */
export function showCourse(canvas, seam) {
    const line = (label, values, name, side) => ({
        label, yAxisID: side, borderColor: colour(name), backgroundColor: colour(name),
        borderWidth: 1.5, pointRadius: 0,
        data: values.map((value, i) => ({ x: i / seam.rate, y: value })),
    });
    const data = {
        datasets: [line(`${word('current')}, A`, seam.currents, 'current', 'y'),
            line(`${word('voltage')}, V`, seam.voltages, 'voltage', 'right')],
    };
    show(canvas, 'line', data, common({
        x: axis('s', { type: 'linear' }),
        y: axis('A', { beginAtZero: true }),
        right: axis('V', { beginAtZero: true, position: 'right',
            grid: { drawOnChartArea: false } }),
    }));
}
