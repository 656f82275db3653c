// A drawing of a sheet of labels, on which the first free label is chosen.
import {element} from './dom.js';

// More labels would be too small to be told apart.
const MOST_LABELS = 500;

export class Sheet {
  constructor() {
    this.first = 1;
    this.page = element('div', {class: 'sheet'});
    this.element = element('fieldset', {}, element('legend', {}, 'A primeira etiqueta livre'), this.page,
      element('p', {class: 'hint'}, 'As anteriores já foram usadas e ficam em branco.'));
    this.page.addEventListener('keydown', event => this.moveByRow(event));
  }

  // Draws stock; its measures are in millimetres. A roll, or measures that make no sheet, have no drawing.
  draw(stock) {
    this.stock = stock;
    this.first = 1;
    const count = stock === null ? 0 : stock.columns * stock.rows;
    this.element.hidden = !(count > 1 && count <= MOST_LABELS);
    this.page.replaceChildren();
    if (this.element.hidden) return;
    this.page.style.aspectRatio = `${stock.page[0]} / ${stock.page[1]}`;
    for (let label = 1; label <= count; ++label) this.page.append(this.cell(label));
    this.mark();
  }

  cell(label) {
    const {page, columns, label: size, margin, gap} = this.stock;
    const column = (label - 1) % columns;
    const row = Math.floor((label - 1) / columns);
    const cell = element('label', {},
      element('input', {type: 'radio', name: 'firstLabel', value: label, checked: label === 1,
        'aria-label': `Linha ${row + 1}, coluna ${column + 1}`, change: () => {
          this.first = label;
          this.mark();
        }}),
      element('span', {'aria-hidden': 'true'}, String(label)));
    const percent = (part, whole) => `${part / whole * 100}%`;
    cell.style.left = percent(margin[0] + column * (size[0] + gap[0]), page[0]);
    cell.style.top = percent(margin[1] + row * (size[1] + gap[1]), page[1]);
    cell.style.width = percent(size[0], page[0]);
    cell.style.height = percent(size[1], page[1]);
    return cell;
  }

  mark() {
    [...this.page.children].forEach((cell, index) => {
      cell.className = index + 1 < this.first ? 'used' : index + 1 === this.first ? 'first' : '';
    });
  }

  // The arrows up and down move by a row; the browser itself moves by a label.
  moveByRow(event) {
    const rows = {ArrowUp: -1, ArrowDown: 1}[event.key];
    if (rows === undefined) return;
    event.preventDefault();
    const cell = this.page.children[this.first - 1 + rows * this.stock.columns];
    if (cell === undefined) return;
    cell.firstChild.focus();
    cell.firstChild.click();
  }
}
