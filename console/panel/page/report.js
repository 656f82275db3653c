// The page of one report: its form, its rows, its files and its statements.
import {capitalized, copyButton, counted, countOfRows, element, titleOf} from './dom.js';
import {formOf} from './form.js';
import {cancel, eachLine, newRun, post} from './server.js';
import {statisticsOf} from './statistics.js';
import {Table} from './table.js';

const FORMATS = [
  ['excel', 'CSV para o Excel em português'],
  ['xlsx', 'Planilha (xlsx)'],
  ['pdf', 'PDF para imprimir'],
  ['csv', 'CSV'],
  ['json', 'JSON'],
];

export class ReportPage {
  constructor(report, databases) {
    this.report = report;
    this.form = formOf(report);
    this.run = null;
    this.status = element('p', {role: 'status'});
    this.results = element('div');
    this.runButton = element('button', {class: 'main'}, 'Executar');
    this.cancelButton = element('button', {type: 'button', disabled: true, click: () => this.cancel()}, 'Cancelar');
    this.format = element('select', {id: 'format'}, ...FORMATS.map(([value, words]) => element('option', {value}, words)));
    this.downloadButton = element('button', {type: 'button', click: () => this.download()}, 'Baixar');
    this.element = element('div', {},
      element('h1', {}, titleOf(report)),
      element('p', {class: 'soft'}, report.name),
      element('form', {submit: event => {
        event.preventDefault();
        this.execute();
      }}, this.form.fields, element('div', {class: 'actions'}, this.runButton, this.cancelButton)),
      element('div', {class: 'actions'},
        element('div', {}, element('label', {for: 'format'}, 'Arquivo'), this.format), this.downloadButton),
      this.oddities(),
      this.statements(databases),
      this.status,
      this.results);
  }

  oddities() {
    if (this.report.oddities.length === 0) return null;
    this.explanation = element('details', {}, element('summary', {}, 'O que parece errado, mas é assim mesmo'),
      element('ul', {}, ...this.report.oddities.map(text => element('li', {}, `${text}.`))));
    return this.explanation;
  }

  statements(databases) {
    const shown = element('div');
    const choice = element('select', {id: 'database'},
      ...databases.map(database => element('option', {value: database.name}, database.title)));
    const show = async () => {
      try {
        const response = await post('/api/sql', {
          report: this.report.name, parameters: this.form.values(), database: choice.value});
        const {statements, notes} = await response.json();
        shown.replaceChildren(...notes.map(note => element('p', {class: 'soft'}, `Nota: ${note}.`)),
          ...statements.flatMap(text => [
            element('pre', {tabindex: '0', role: 'region', 'aria-label': 'Instrução SQL'}, text),
            copyButton(text, 'Copiar a instrução')]));
      } catch (error) {
        shown.replaceChildren(element('p', {class: 'bad', role: 'alert'}, error.message));
      }
    };
    return element('details', {}, element('summary', {}, 'As instruções SQL'),
      element('div', {class: 'actions'}, element('div', {}, element('label', {for: 'database'}, 'Banco'), choice),
        element('button', {type: 'button', click: show}, 'Mostrar')),
      shown);
  }

  // Does something that can be cancelled, one thing at a time.
  async busy(work) {
    if (this.run !== null) return;
    this.run = newRun();
    this.abort = new AbortController();
    this.runButton.disabled = this.downloadButton.disabled = true;
    this.cancelButton.disabled = false;
    this.say('');
    try {
      await work(this.run, this.abort.signal);
    } catch (error) {
      if (error.name !== 'AbortError') this.fail(error.message);
    } finally {
      this.run = null;
      this.runButton.disabled = this.downloadButton.disabled = false;
      this.cancelButton.disabled = true;
    }
  }

  cancel() {
    if (this.run === null) return;
    this.say('Cancelando…');
    cancel(this.run).catch(error => this.fail(error.message));
  }

  // Called when another page takes the place of this one.
  leave() {
    this.abort?.abort();
    if (this.file) URL.revokeObjectURL(this.file);
  }

  say(words) {
    this.status.className = '';
    this.status.textContent = words;
  }

  fail(words) {
    this.status.className = 'bad';
    this.status.textContent = words;
  }

  // A failure of the report itself may be one of its oddities.
  explain(words) {
    this.fail(words);
    if (this.explanation) this.explanation.open = true;
  }

  async execute() {
    this.scrolled = scrollY;
    await this.busy(async (run, signal) => {
      this.results.replaceChildren();
      this.say('Esperando o banco…');
      const response = await post('/api/run', {report: this.report.name, parameters: this.form.values(), run}, signal);
      let table = null;
      let drawn = 0;
      let isOver = false;
      await eachLine(response, async line => {
        if (Array.isArray(line)) {
          table.add(line);
        } else if (line.columns) {
          table = new Table(line.columns);
        } else if (line.count) {
          this.say(`${countOfRows(line.count)} até agora…`);
        } else if (line.end) {
          isOver = true;
          this.finish(line.end, table);
        } else {
          isOver = true;
          table?.refresh();
          if (line.stopped) this.say(table?.rows.length ? `${line.stopped} ${countOfRows(table.rows.length)} até ali.` : line.stopped);
          else this.explain(line.error);
        }
        if (!isOver && table?.rows.length > 0 && performance.now() - drawn > 200) {
          const isFirst = drawn === 0;
          if (isFirst) this.results.replaceChildren(table.element);
          drawn = performance.now();
          table.refresh();
          this.say(`${countOfRows(table.rows.length)} até agora…`);
          if (isFirst) this.showResults();
          await new Promise(requestAnimationFrame);
        }
      });
      if (!isOver) this.fail('A resposta terminou antes do fim: o kodrarpt foi encerrado.');
    });
    this.showResults();
  }

  finish(end, table) {
    const shown = table.rows.length;
    const notes = (end.unknownCodes ?? []).map(words => `${capitalized(words)}.`);
    if (end.rows > 0) notes.push(...end.notes.map(note => `${note.caption}: ${note.text}`));
    const parts = [];
    if (end.filter !== '') parts.push(element('p', {}, `Filtros: ${end.filter}`));
    if (shown < end.rows) parts.push(element('div', {class: 'actions'},
      element('button', {type: 'button', click: () => this.download()}, 'Baixar o arquivo com todos os registros')));
    if (notes.length > 0) parts.push(element('div', {class: 'notes'}, ...notes.map(text => element('p', {}, text))));
    if (end.statistics) parts.push(statisticsOf(end.statistics));
    // A table that is shown keeps its place and the focus.
    if (end.rows > 0 && !table.element.isConnected) this.results.append(table.element);
    this.results.prepend(...parts);
    table.refresh();
    const only = shown < end.rows ? ` Aparecem os primeiros ${counted(shown)}.` : '';
    this.say(`${countOfRows(end.rows)}.${only}`);
  }

  // Brings the results into sight, unless the user has scrolled since the report began. The focus stays where it is.
  showResults() {
    if (scrollY !== this.scrolled) return;
    this.status.scrollIntoView();
    this.scrolled = scrollY;
  }

  download() {
    return this.busy(async (run, signal) => {
      this.say('Preparando o arquivo…');
      const response = await post('/api/download', {
        report: this.report.name, parameters: this.form.values(), run, format: this.format.value}, signal);
      const name = /filename="(.+)"/.exec(response.headers.get('Content-Disposition'))[1];
      const address = URL.createObjectURL(await response.blob());
      const link = element('a', {href: address, download: name}, name);
      this.say('O arquivo está entre os downloads do navegador: ');
      // For a browser that does not save files by itself.
      this.status.append(link);
      link.click();
      if (this.file) URL.revokeObjectURL(this.file);
      this.file = address;
    });
  }
}
