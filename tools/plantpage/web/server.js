/** Nobody is signed in. */
export class SignedOut extends Error {}
/** The server was not reached, or could not answer. */
export class Lost extends Error {}

const patienceMs = 8000;

async function send(path, options = {}) {
    let response;
    try {
        response = await fetch(path, { ...options, signal: AbortSignal.timeout(patienceMs) });
    } catch {
        throw new Lost('');
    }
    const content = await response.json().catch(() => ({}));
    if (response.status === 401)
        throw new SignedOut(content.error ?? '');
    if (!response.ok && response.status !== 404)
        throw new Lost(content.error ?? `HTTP ${response.status}`);
    return content;
}

/** The answer to a question, such as ask('seams', { from, until, cell }). */
export function ask(what, values = {}) {
    const query = new URLSearchParams(Object.entries(values).filter(([, value]) => value));
    return send(`api/${what}?${query}`);
}

export function signIn(user, password) {
    return send('session', { method: 'POST', body: JSON.stringify({ user, password }) });
}

export function signOut() {
    return send('session', { method: 'DELETE' });
}
