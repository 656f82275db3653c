// Something that the program does for a page: one thing at a time, which can be cancelled.
import {element} from './dom.js';
import {cancel, newRun} from './server.js';

export class Task {
  // The buttons that start it cannot be used meanwhile.
  constructor(...startButtons) {
    this.startButtons = startButtons;
    this.status = element('p', {role: 'status'});
    this.cancelButton = element('button', {type: 'button', disabled: true, click: () => this.cancel()}, 'Cancelar');
    this.run = null;
  }

  // Awaits work(run, signal): the name of the run, and the signal for its requests. Shows the words of an Error. Does
  // nothing while something else is done.
  async do(work) {
    if (this.run !== null) return;
    this.run = newRun();
    this.abort = new AbortController();
    this.setBusy(true);
    this.say('');
    try {
      await work(this.run, this.abort.signal);
    } catch (error) {
      if (error.name !== 'AbortError') this.fail(error.message);
    } finally {
      this.run = null;
      this.setBusy(false);
    }
  }

  cancel() {
    if (this.run === null) return;
    this.say('Cancelando…');
    cancel(this.run).catch(error => this.fail(error.message));
  }

  // Called when another page takes the place of the one that started it.
  leave() {
    this.abort?.abort();
  }

  setBusy(isBusy) {
    for (const button of this.startButtons) button.disabled = isBusy;
    this.cancelButton.disabled = !isBusy;
  }

  say(words) {
    this.status.className = '';
    this.status.textContent = words;
  }

  fail(words) {
    this.status.className = 'bad';
    this.status.textContent = words;
  }
}
