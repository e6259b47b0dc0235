import RFB from './core/rfb.js';
import { releaseCapture } from './core/util/events.js';

const RECONNECT_MS = 1000;
const BEAT_MS = 250; // relay.py lets go after one second without a beat
const PROBE_MS = 2000;

const screen = document.getElementById('screen');
const notice = document.getElementById('notice');

let rfb = null;
let connected = false;
let press = null; // the one pointer that presses: its id and button
let at = { clientX: 0, clientY: 0 };
const keys = new Set();

// -- connection ---------------------------------------------------------------

function connect() {
    const scheme = location.protocol === 'https:' ? 'wss:' : 'ws:';
    rfb = new RFB(screen, `${scheme}//${location.host}/screen`);
    rfb.scaleViewport = true;
    rfb.qualityLevel = 9;
    rfb.background = 'transparent';
    rfb.addEventListener('connect', () => {
        connected = true;
        notice.hidden = true;
        rfb.focus();
    });
    rfb.addEventListener('disconnect', () => {
        showLost();
        setTimeout(connect, RECONNECT_MS);
    });
}

function showLost() {
    connected = false;
    press = null;
    releaseCapture();
    notice.textContent = 'Connection lost, reconnecting…';
    notice.hidden = false;
}

// A dead network closes no socket: without this the last picture would stay and look alive.
async function probe() {
    if (connected && !document.hidden) {
        try {
            await fetch('.', { method: 'HEAD', cache: 'no-store', signal: AbortSignal.timeout(PROBE_MS) });
        } catch {
            showLost();
            rfb.disconnect(); // takes its time over a dead connection
        }
    }
    setTimeout(probe, PROBE_MS);
}

// -- pointer ------------------------------------------------------------------
// noVNC turns a long touch into a right click, so that it gets mouse events only, made here.

function send(type) {
    const button = press ? press.button : 0;
    const canvas = screen.querySelector('canvas');
    if (canvas)
        canvas.dispatchEvent(new MouseEvent(type, { ...at, button, cancelable: true }));
}

function moveTo(event) {
    at = { clientX: event.clientX, clientY: event.clientY };
}

function onDown(event) {
    event.preventDefault(); // no mouse events of the browser's own beside ours
    if (press || !connected)
        return;
    screen.setPointerCapture(event.pointerId);
    press = { id: event.pointerId, button: event.button };
    moveTo(event);
    send('mousedown');
}

function onMove(event) {
    const hovers = !press && event.pointerType === 'mouse';
    if (!hovers && press?.id !== event.pointerId)
        return;
    moveTo(event);
    send('mousemove');
}

function onUp(event) {
    if (press?.id !== event.pointerId)
        return;
    moveTo(event);
    release();
}

function release() {
    if (!press)
        return;
    send('mouseup');
    releaseCapture(); // noVNC's own, which waits for a mouse event of the browser
    press = null;
}

screen.addEventListener('pointerdown', onDown);
screen.addEventListener('pointermove', onMove);
screen.addEventListener('pointerup', onUp);
for (const type of ['pointercancel', 'lostpointercapture'])
    screen.addEventListener(type, (event) => press?.id === event.pointerId && release());

const browserMade = ['mousedown', 'mousemove', 'mouseup', 'click',
                     'touchstart', 'touchmove', 'touchend', 'touchcancel'];
for (const type of browserMade)
    screen.addEventListener(type, (event) => event.isTrusted && event.stopPropagation(), true);
window.addEventListener('contextmenu', (event) => event.preventDefault(), true);

// -- nothing stays held -------------------------------------------------------

window.addEventListener('keydown', (event) => keys.add(event.code), true);
window.addEventListener('keyup', (event) => keys.delete(event.code), true);

function letGo() {
    keys.clear(); // noVNC releases its keys itself
    release();
}

window.addEventListener('blur', letGo);
window.addEventListener('pagehide', letGo);
document.addEventListener('visibilitychange', () => document.hidden && letGo());

setInterval(() => (press || keys.size) && send('mousemove'), BEAT_MS);

connect();
probe();
