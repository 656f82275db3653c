// The codes that a scanner reads on the shelves, compared with the archive.
import {element, counted} from './dom.js';
import {saved} from './download.js';
import {choiceField, labelled, listField, textField} from './fields.js';
import {eachLine, post} from './server.js';
import {Table} from './table.js';
import {Task} from './task.js';

const KEY = 'inventory';

const KINDS = [
  ['documents', 'Os documentos de módulos', 'Módulos'],
  ['modules', 'Os módulos de contêineres', 'Contêineres'],
];

const FORMATS = [
  ['excel', 'CSV para o Excel em português'],
  ['csv', 'CSV'],
  ['xlsx', 'Planilha (xlsx)'],
  ['pdf', 'PDF para imprimir'],
];

// What the page says about a code as soon as it is read.
const WORDS = {
  expected: 'esperado',
  lent: 'esperado, embora conste como emprestado',
  other: 'não era esperado aqui',
  place: 'é o próprio lugar, e não conta',
};

// A subordinate module is kept with its main module, whose code begins its own.
const MAIN_MODULE_LETTERS = 5;

const nonEmptyLines = text => text.split(/[\r\n]+/).map(line => line.trim()).filter(line => line !== '');

export class InventoryPage {
  constructor() {
    // What survives a reload of the page.
    this.state = JSON.parse(sessionStorage.getItem(KEY)) ?? {of: 'documents', places: '', codes: [], isOpen: false};
    this.expected = new Map();  // the situation of each expected code
    this.startButton = element('button', {class: 'main'}, 'Começar a leitura');
    this.compareButton = element('button', {class: 'main', type: 'button', click: () => this.compare()}, 'Comparar');
    this.downloadButton = element('button', {type: 'button', click: () => this.download()}, 'Baixar');
    this.task = new Task(this.startButton, this.compareButton, this.downloadButton);
    this.results = element('div');
    this.reading = element('section', {'aria-labelledby': 'reading', hidden: true}, ...this.readingParts());
    this.element = element('div', {},
      element('h1', {}, 'Conferir as estantes'),
      element('p', {class: 'soft'}, 'Compara os códigos lidos com um leitor de código de barras com o que o acervo registra. Nada é gravado no banco.'),
      this.start(), this.reading, this.task.status, this.results);
    this.drawCodes();
    if (this.state.isOpen) this.open();
  }

  start() {
    const places = listField('places', {rows: 2, value: ''});
    places.value = this.state.places;
    const of = choiceField('of', KINDS.map(([value, words]) => [value, words]), {change: () => {
      places.previousSibling.textContent = KINDS.find(([value]) => value === of.value)[2];
    }});
    of.value = this.state.of;
    const form = element('form', {submit: event => {
      event.preventDefault();
      Object.assign(this.state, {of: of.value, places: places.value, isOpen: true});
      this.keep();
      this.open();
    }}, element('div', {class: 'fields'}, labelled(of, 'O que vai ser lido'),
      labelled(places, 'Módulos', 'Um código em cada linha; o leitor pode digitá-lo.')),
    element('div', {class: 'actions'}, this.startButton, this.task.cancelButton));
    of.dispatchEvent(new Event('change'));
    return form;
  }

  readingParts() {
    this.code = textField('code', {inputmode: 'text'});
    this.said = element('p', {class: 'said', role: 'status'});
    this.count = element('p');
    this.list = element('ol', {reversed: true, class: 'codes'});
    this.pasted = listField('pasted');
    this.format = choiceField('format', FORMATS);
    return [
      element('h2', {id: 'reading'}, 'Leitura'),
      element('form', {submit: event => {
        event.preventDefault();
        this.read(nonEmptyLines(this.code.value));
        this.code.value = '';
        this.code.focus();
      }}, labelled(this.code, 'Código lido', 'O leitor digita o código e Enter.')),
      this.said, this.count,
      element('details', {}, element('summary', {}, 'Colar uma lista'),
        labelled(this.pasted, 'Códigos', 'Um em cada linha.'),
        element('div', {class: 'actions'}, element('button', {type: 'button', click: () => {
          this.read(nonEmptyLines(this.pasted.value));
          this.pasted.value = '';
        }}, 'Acrescentar'))),
      element('div', {class: 'scroll codes', tabindex: '0', role: 'region', 'aria-label': 'Códigos lidos'}, this.list),
      element('div', {class: 'actions'}, this.compareButton,
        element('div', {}, labelled(this.format, 'Arquivo')), this.downloadButton,
        element('button', {type: 'button', click: () => this.clear()}, 'Apagar os códigos lidos')),
    ];
  }

  keep() {
    sessionStorage.setItem(KEY, JSON.stringify(this.state));
  }

  request(run, more) {
    return {of: this.state.of, places: this.state.places, run, ...more};
  }

  // Asks the program what is expected, and lets the scanner type.
  open() {
    return this.task.do(async (run, signal) => {
      this.task.say('Esperando o banco…');
      this.results.replaceChildren();
      const expected = new Map();
      const response = await post('/api/inventory', this.request(run), signal);
      const warnings = [];
      await eachLine(response, line => {
        if (Array.isArray(line)) expected.set(line[0], line[1]);
        else if (line.warning) warnings.push(line.warning);
      });
      this.expected = expected;
      this.reading.hidden = false;
      this.drawCodes();
      this.task.say(warnings.map(words => `Aviso: ${words}.`).join('\n'));
      this.code.focus();
    });
  }

  // One of WORDS.
  kindOf(code) {
    if (this.places().includes(code)) return 'place';
    const situation = this.expected.get(code) ??
      (this.state.of === 'modules' ? this.expected.get(code.slice(0, MAIN_MODULE_LETTERS)) : undefined);
    if (situation === undefined) return 'other';
    return situation === 'emprestado' ? 'lent' : 'expected';
  }

  places() {
    return nonEmptyLines(this.state.places);
  }

  read(codes) {
    for (const code of codes) {
      const isNew = !this.state.codes.includes(code);
      if (isNew) this.state.codes.push(code);
      const kind = this.kindOf(code);
      this.said.textContent = `${code}: ${isNew ? WORDS[kind] : 'já foi lido'}.`;
      this.said.className = isNew && kind === 'other' ? 'said bad' : 'said';
    }
    this.keep();
    this.drawCodes();
  }

  drawCodes() {
    const kinds = this.state.codes.map(code => this.kindOf(code));
    const read = kinds.filter(kind => kind !== 'place').length;
    const found = kinds.filter(kind => kind === 'expected' || kind === 'lent').length;
    this.count.textContent =
      `Lidos: ${counted(read)}. Esperados: ${counted(this.expected.size)}. Esperados e lidos: ${counted(found)}.`;
    const items = this.state.codes.map((code, index) => element('li', {class: kinds[index] === 'other' ? 'bad' : null},
      `${code}: ${WORDS[kinds[index]]} `,
      element('button', {type: 'button', 'aria-label': `Tirar ${code}`, click: () => this.remove(code)}, 'Tirar')));
    this.list.replaceChildren(...items.reverse());
  }

  compare() {
    return this.task.do(async (run, signal) => {
      this.task.say('Comparando…');
      this.results.replaceChildren();
      const response = await post('/api/inventory', this.request(run, {codes: this.state.codes.join('\n')}), signal);
      let table = null;
      let end = null;
      const warnings = [];
      await eachLine(response, line => {
        if (Array.isArray(line)) table.add(line);
        else if (line.columns) table = new Table(line.columns);
        else if (line.warning) warnings.push(element('p', {}, `Aviso: ${line.warning}.`));
        else if (line.end) end = line.end;
      });
      this.results.replaceChildren(element('h2', {}, 'Comparação'), element('p', {}, `${end.filter}.`),
        ...warnings, table.element);
      table.refresh();
      this.task.say('Comparado.');
    });
  }

  download() {
    return this.task.do(async (run, signal) => {
      this.task.say('Preparando o arquivo…');
      const response = await post('/api/inventory',
        this.request(run, {codes: this.state.codes.join('\n'), format: this.format.value}), signal);
      const link = await saved(response);
      this.task.say('O arquivo está entre os downloads do navegador: ');
      this.task.status.append(link);
      this.forgetFile();
      this.file = link.href;
    });
  }

  forgetFile() {
    if (this.file) URL.revokeObjectURL(this.file);
  }

  leave() {
    this.task.leave();
    this.forgetFile();
  }

  remove(code) {
    this.state.codes = this.state.codes.filter(other => other !== code);
    this.keep();
    this.drawCodes();
    this.code.focus();
  }

  clear() {
    this.state.codes = [];
    this.said.textContent = '';
    this.results.replaceChildren();
    this.keep();
    this.drawCodes();
    this.code.focus();
  }
}
