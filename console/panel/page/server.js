// What the page asks the program for.
import {chosen} from './connections.js';

let runs = 0;

// What the program answers at an address. Raises an Error whose message is the program's own words.
export async function get(path) {
  const response = await fetch(path);
  if (!response.ok) throw new Error((await response.text()).trim());
  return response.json();
}

// A name for a run, by which it can be cancelled; another page of the same panel has other names.
export const newRun = () => `${Date.now()}-${++runs}`;

// Sends a request about the chosen archive. Raises an Error whose message is the program's own words.
export async function post(path, body, signal) {
  let response;
  try {
    response = await fetch(path, {
      method: 'POST', headers: {'Content-Type': 'application/json'}, body: JSON.stringify({connection: chosen()?.name, ...body}), signal});
  } catch (error) {
    if (error.name === 'AbortError') throw error;
    throw new Error('O kodrarpt não responde mais: ele terminou, ou foi encerrado. Execute-o de novo.');
  }
  if (!response.ok) throw new Error((await response.text()).trim());
  return response;
}

export const cancel = run => post('/api/cancel', {run});

// Calls `take` with each line of JSON. Waits for each call, so that a page that is busy is not overrun.
export async function eachLine(response, take) {
  const reader = response.body.pipeThrough(new TextDecoderStream()).getReader();
  let rest = '';
  for (;;) {
    const {done, value} = await reader.read();
    if (done) return;
    const lines = (rest + value).split('\n');
    rest = lines.pop();
    for (const line of lines) await take(JSON.parse(line));
  }
}
