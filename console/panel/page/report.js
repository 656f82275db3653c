// The page of one report: its form, its rows, its files and its statements.
import {capitalized, copyButton, counted, countOfRows, element, titleOf} from './dom.js';
import {saved} from './download.js';
import {formOf} from './form.js';
import {eachLine, post} from './server.js';
import {statisticsOf} from './statistics.js';
import {Table} from './table.js';
import {Task} from './task.js';

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
    this.results = element('div');
    this.runButton = element('button', {class: 'main'}, 'Executar');
    this.format = element('select', {id: 'format'}, ...FORMATS.map(([value, words]) => element('option', {value}, words)));
    this.downloadButton = element('button', {type: 'button', click: () => this.download()}, 'Baixar');
    this.task = new Task(this.runButton, this.downloadButton);
    this.element = element('div', {},
      element('h1', {}, titleOf(report)),
      element('p', {class: 'soft'}, report.name),
      element('form', {submit: event => {
        event.preventDefault();
        this.execute();
      }}, this.form.fields, element('div', {class: 'actions'}, this.runButton, this.task.cancelButton)),
      element('div', {class: 'actions'},
        element('div', {}, element('label', {for: 'format'}, 'Arquivo'), this.format), this.downloadButton),
      this.oddities(),
      this.statements(databases),
      this.task.status,
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

  // Called when another page takes the place of this one.
  leave() {
    this.task.leave();
    if (this.file) URL.revokeObjectURL(this.file.href);
  }

  // A failure of the report itself may be one of its oddities.
  explain(words) {
    this.task.fail(words);
    if (this.explanation) this.explanation.open = true;
  }

  async execute() {
    this.scrolled = scrollY;
    await this.task.do(async (run, signal) => {
      this.results.replaceChildren();
      this.task.say('Esperando o banco…');
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
          this.task.say(`${countOfRows(line.count)} até agora…`);
        } else if (line.end) {
          isOver = true;
          this.finish(line.end, table);
        } else {
          isOver = true;
          table?.refresh();
          if (line.stopped) this.task.say(table?.rows.length ? `${line.stopped} ${countOfRows(table.rows.length)} até ali.` : line.stopped);
          else this.explain(line.error);
        }
        if (!isOver && table?.rows.length > 0 && performance.now() - drawn > 200) {
          const isFirst = drawn === 0;
          if (isFirst) this.results.replaceChildren(table.element);
          drawn = performance.now();
          table.refresh();
          this.task.say(`${countOfRows(table.rows.length)} até agora…`);
          if (isFirst) this.showResults();
          await new Promise(requestAnimationFrame);
        }
      });
      if (!isOver) this.task.fail('A resposta terminou antes do fim: o kodrarpt foi encerrado.');
    });
    this.showResults();
  }

  finish(end, table) {
    const shown = table.rows.length;
    const notes = (end.warnings ?? []).map(words => `${capitalized(words)}.`);
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
    this.task.say(`${countOfRows(end.rows)}.${only}`);
  }

  // Brings the results into sight, unless the user has scrolled since the report began. The focus stays where it is.
  showResults() {
    if (scrollY !== this.scrolled) return;
    this.task.status.scrollIntoView();
    this.scrolled = scrollY;
  }

  download() {
    return this.task.do(async (run, signal) => {
      this.task.say('Preparando o arquivo…');
      const response = await post('/api/download', {
        report: this.report.name, parameters: this.form.values(), run, format: this.format.value}, signal);
      const link = await saved(response);
      this.task.say('O arquivo está entre os downloads do navegador: ');
      this.task.status.append(link);
      if (this.file) URL.revokeObjectURL(this.file.href);
      this.file = link;
    });
  }
}
