// The labels of modules and containers.
import {capitalized, element} from './dom.js';
import {choiceField, keepValues, labelled, listField, switchField, textField} from './fields.js';
import {issuerFields} from './issuer.js';
import {Preview} from './preview.js';
import {post} from './server.js';
import {Sheet} from './sheet.js';
import {Task} from './task.js';

const ROLL = 'rolo';
const OWN = 'outra';

// "38,1" and "38.1"; NaN for another text.
const number = text => Number(text.trim().replace(',', '.') || NaN);

const sentence = words => `${capitalized(words)}.`;

export class LabelsPage {
  // `choices` is what the catalogue has about labels.
  constructor(choices) {
    this.choices = choices;
    this.preview = new Preview('etiquetas.pdf');
    this.sheet = new Sheet();
    this.remarks = element('ul', {class: 'remarks'});
    this.button = element('button', {class: 'main'}, 'Preparar o PDF');
    this.task = new Task(this.button);
    this.form = element('form', {submit: event => {
      event.preventDefault();
      this.print();
    }, input: () => this.adapt(), change: () => this.adapt()}, this.codes(), this.stock(), this.looks(),
    element('div', {class: 'actions'}, this.button, this.task.cancelButton), this.task.status,
    element('div', {'aria-live': 'polite'}, this.remarks));
    this.element = element('div', {},
      element('h1', {}, 'Etiquetas'),
      element('p', {class: 'soft'}, 'De módulos e de contêineres, em folhas ou rolos. Confira o PDF antes de imprimir, e imprima sem ajustar à página.'),
      element('div', {class: 'beside'}, this.form, this.preview.element));
    keepValues(this.form, 'labels');
    this.adapt();
  }

  codes() {
    const list = listField('list');
    const file = element('input', {id: 'field-file', type: 'file', accept: '.txt,.csv,text/plain', change: async () => {
      if (file.files.length === 0) return;
      list.value = [list.value.trimEnd(), await file.files[0].text()].filter(text => text !== '').join('\n');
      file.value = '';
      list.dispatchEvent(new Event('input', {bubbles: true}));
    }});
    return element('fieldset', {}, element('legend', {}, 'Quais etiquetas'),
      element('div', {class: 'fields'},
        labelled(choiceField('kind', this.choices.kinds.map(kind => [kind.name, kind.title])), 'Tipo'),
        labelled(list, 'Códigos', 'Um em cada linha, na ordem em que saem; também colados de uma lista.'),
        labelled(file, 'Acrescentar os códigos de um arquivo')),
      element('fieldset', {}, element('legend', {}, 'E os de um intervalo'),
        element('div', {class: 'fields small'}, labelled(textField('first'), 'De'), labelled(textField('last'), 'Até'),
          labelled(textField('department'), 'Só do departamento')),
        element('p', {class: 'hint'}, 'Só entram os códigos que existem. Com só o departamento, vêm todos os seus módulos.')));
  }

  stock() {
    const stocks = [...this.choices.stocks.map(stock => [stock.name, stock.description]),
      [ROLL, 'Um rolo, com uma etiqueta por página'], [OWN, 'Outra folha, com as medidas abaixo']];
    const measure = (name, label, value = '') => labelled(textField(name, {inputmode: 'decimal', value}), label);
    this.labelSize = element('div', {class: 'fields small'},
      measure('labelWidth', 'Largura da etiqueta, em mm'), measure('labelHeight', 'Altura da etiqueta, em mm'));
    this.pageMeasures = element('div', {class: 'fields small'},
      measure('pageWidth', 'Largura da página, em mm', '210'), measure('pageHeight', 'Altura da página, em mm', '297'),
      measure('columns', 'Colunas', '1'), measure('rows', 'Linhas', '1'),
      measure('left', 'Margem esquerda, em mm', '0'), measure('top', 'Margem superior, em mm', '0'),
      measure('gapAcross', 'Vão entre colunas, em mm', '0'), measure('gapDown', 'Vão entre linhas, em mm', '0'));
    return element('fieldset', {}, element('legend', {}, 'A folha'),
      labelled(choiceField('stock', stocks), 'Folha'),
      this.labelSize, this.pageMeasures, this.sheet.element);
  }

  looks() {
    this.issuer = issuerFields('Sem ele, o nome que está no banco.');
    const shift = {inputmode: 'decimal', value: '0'};
    return element('fieldset', {}, element('legend', {}, 'A impressão'),
      element('div', {class: 'fields'},
        labelled(choiceField('code', this.choices.codes.map(code => [code.name, code.title])), 'Código'),
        labelled(element('input', {id: 'field-copies', name: 'copies', type: 'number', min: 1,
          max: this.choices.mostCopies, value: 1}), 'Cópias de cada etiqueta'),
        switchField('withPlace', 'Com o lugar do módulo', 'Fileira, estante, prateleira e depósito.'),
        switchField('outline', 'Com as bordas das etiquetas', 'Para um teste em papel comum.'),
        labelled(textField('shiftX', shift), 'Deslocar para a direita, em mm', 'Um valor negativo desloca para a esquerda.'),
        labelled(textField('shiftY', shift), 'Deslocar para baixo, em mm', 'Um valor negativo desloca para cima.'),
        ...this.issuer.fields));
  }

  field(name) {
    return this.form.elements[name];
  }

  text(name) {
    return this.field(name).value.trim();
  }

  // Shows the fields that the choices need.
  adapt() {
    const stock = this.text('stock');
    this.labelSize.hidden = stock !== ROLL && stock !== OWN;
    this.pageMeasures.hidden = stock !== OWN;
    const ofModules = this.choices.kinds.find(kind => kind.name === this.text('kind')).isOfModules;
    this.field('department').disabled = this.field('withPlace').disabled = !ofModules;
    const drawn = JSON.stringify(this.measures());
    if (drawn !== this.drawn) this.sheet.draw(this.measures());
    this.drawn = drawn;
  }

  // The measures of the sheet in millimetres; null for a roll, and for measures that make no sheet.
  measures() {
    const stock = this.text('stock');
    if (stock === ROLL) return null;
    if (stock !== OWN) return this.choices.stocks.find(candidate => candidate.name === stock);
    const pair = (one, other) => [number(this.text(one)), number(this.text(other))];
    const own = {page: pair('pageWidth', 'pageHeight'), columns: number(this.text('columns')),
      rows: number(this.text('rows')), label: pair('labelWidth', 'labelHeight'), margin: pair('left', 'top'),
      gap: pair('gapAcross', 'gapDown')};
    return Object.values(own).flat().every(Number.isFinite) ? own : null;
  }

  // What the request has of the stock.
  stockRequest() {
    const stock = this.text('stock');
    const size = (one, other) => `${this.text(one)}x${this.text(other)}`;
    if (stock === ROLL) return {stock: `${size('labelWidth', 'labelHeight')}mm`};
    if (stock !== OWN) return {stock};
    return {ownStock: `pagina=${size('pageWidth', 'pageHeight')} colunas=${this.text('columns')} ` +
      `linhas=${this.text('rows')} etiqueta=${size('labelWidth', 'labelHeight')} margem=${size('left', 'top')} ` +
      `vao=${size('gapAcross', 'gapDown')}`};
  }

  shift() {
    const [x, y] = [this.text('shiftX') || '0', this.text('shiftY') || '0'];
    return x === '0' && y === '0' ? '' : `${x};${y}`;
  }

  async request(run) {
    const ofModules = !this.field('department').disabled;
    return {
      kind: this.text('kind'), list: this.field('list').value, first: this.text('first'), last: this.text('last'),
      department: ofModules ? this.text('department') : '', ...this.stockRequest(), firstLabel: this.sheet.first,
      copies: Number(this.text('copies')), code: this.text('code'), shift: this.shift(),
      outline: this.field('outline').checked, withPlace: ofModules && this.field('withPlace').checked,
      ...await this.issuer.values(), run,
    };
  }

  print() {
    return this.task.do(async (run, signal) => {
      this.preview.clear();
      this.remarks.replaceChildren();
      this.task.say('Preparando as etiquetas…');
      const response = await post('/api/labels', await this.request(run), signal);
      const {pdf, warnings, problems} = await response.json();
      this.remarks.append(...problems.map(words => element('li', {class: 'bad'}, sentence(words))),
        ...warnings.map(words => element('li', {}, sentence(`aviso: ${words}`))));
      this.task.say(pdf === null ? 'Não há o que imprimir.' : 'O PDF está pronto.');
      if (pdf !== null) this.preview.show(pdf);
    });
  }

  leave() {
    this.task.leave();
    this.preview.clear();
  }
}
