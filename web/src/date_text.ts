// An action's date and time written the reader's way, as the window writes it the desktop's:
// the short date and the time with seconds, at exactly midnight the date alone.
const dateFormat = new Intl.DateTimeFormat(undefined, { dateStyle: "short", timeZone: "UTC" });
const timeFormat = new Intl.DateTimeFormat(undefined, { timeStyle: "medium", timeZone: "UTC" });

// [year, month, day, hour, minute, second] as the core gives them.
export function dateTimeText(parts: number[]): string {
  const [year, month, day, hour, minute, second] = parts;
  const moment = new Date(Date.UTC(2000, month - 1, day, hour, minute, second));
  moment.setUTCFullYear(year);
  const date = dateFormat.format(moment);
  return hour === 0 && minute === 0 && second === 0 ? date : `${date} ${timeFormat.format(moment)}`;
}
