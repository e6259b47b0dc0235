import { currentLanguage } from './words.js';

const locale = () => currentLanguage() === 'zh' ? 'zh-CN' : 'en-GB';

export function clock(ms) {
    return new Date(ms).toLocaleTimeString(locale(), { hour12: false });
}

/** A number with its unit; a dash if it is not known. */
export function quantity(value, decimals, unit) {
    if (typeof value !== 'number')
        return '–';
    const text = value.toLocaleString(locale(),
        { minimumFractionDigits: decimals, maximumFractionDigits: decimals });
    return `${text}\u202f${unit}`;
}

export function count(value) {
    return (value ?? 0).toLocaleString(locale());
}

/** Seconds as h:mm:ss or m:ss. */
export function span(seconds) {
    const whole = Math.round(seconds ?? 0);
    const two = number => String(number).padStart(2, '0');
    const hours = Math.floor(whole / 3600);
    const minutes = Math.floor(whole / 60) % 60;
    return hours ? `${hours}:${two(minutes)}:${two(whole % 60)}` : `${minutes}:${two(whole % 60)}`;
}
