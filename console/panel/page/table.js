// A table of many rows, of which only those in sight are elements.
import {element, counted} from './dom.js';

const MARGIN = 20;  // rows above and below those in sight
const MOST_LETTERS = 60;
const MEASURED = 200;  // rows from which the widths of the columns are taken

// The width of each column in letters, from its caption and its first rows.
function widthsOf(columns, rows) {
  return columns.map((column, index) => {
    let letters = column.caption.length;
    for (const row of rows.slice(0, MEASURED)) letters = Math.max(letters, (row[index] ?? '').length);
    return Math.min(letters, MOST_LETTERS) + 4;
  });
}

export class Table {
  constructor(columns) {
    this.columns = columns;
    this.rows = [];
    this.hidden = new Set();
    this.widths = widthsOf(columns, []);
    this.measured = 0;
    this.widthOfNumber = '5rem';
    this.body = element('tbody');
    this.head = element('thead');
    this.group = element('colgroup');
    this.table = element('table', {class: 'rows', 'aria-label': 'Linhas do relatório'}, this.group, this.head, this.body);
    this.dialog = element('dialog', {'aria-label': 'Linha inteira'});
    this.scroll = element('div', {class: 'scroll', tabindex: '0', role: 'region', 'aria-label': 'Linhas do relatório',
      scroll: () => this.show()}, this.table);
    this.element = element('div', {}, this.chooser(), this.scroll, this.dialog);
    this.drawHead();
  }

  add(row) {
    this.rows.push(row);
  }

  // Draws what has been added.
  refresh() {
    if (this.measured < Math.min(this.rows.length, MEASURED)) {
      this.widths = widthsOf(this.columns, this.rows);
      this.measured = this.rows.length;
      this.drawHead();
    }
    this.show(true);
  }

  chooser() {
    const boxes = this.columns.map((column, index) => element('label', {},
      element('input', {type: 'checkbox', checked: true, change: event => {
        if (event.target.checked) this.hidden.delete(index);
        else this.hidden.add(index);
        this.drawHead();
        this.show(true);
      }}), column.caption));
    return element('details', {}, element('summary', {}, 'Colunas'), element('div', {class: 'checks'}, ...boxes));
  }

  shown() {
    return this.columns.map((column, index) => index).filter(index => !this.hidden.has(index));
  }

  drawHead() {
    const columns = this.shown();
    this.group.replaceChildren(element('col'), ...columns.map(() => element('col')));
    this.group.children[0].style.width = this.widthOfNumber;
    let total = 0;
    columns.forEach((index, place) => {
      this.group.children[place + 1].style.width = `${this.widths[index]}ch`;
      total += this.widths[index];
    });
    this.table.style.width = `calc(${this.widthOfNumber} + ${total}ch)`;
    this.head.replaceChildren(element('tr', {'aria-rowindex': '1'}, element('th', {scope: 'col'}, 'Linha'),
      ...columns.map(index => element('th', {scope: 'col', title: this.columns[index].name,
        class: this.columns[index].isNumber ? 'number' : null}, this.columns[index].caption))));
  }

  // Replaces the rows when others come into sight.
  show(always = false) {
    const height = this.body.querySelector('tr:not(.space)')?.getBoundingClientRect().height || 32;
    const first = Math.max(0, Math.floor(this.scroll.scrollTop / height) - MARGIN);
    const last = Math.min(this.rows.length, first + Math.ceil(this.scroll.clientHeight / height) + 2 * MARGIN);
    if (!always && first === this.first && last === this.last) return;
    [this.first, this.last] = [first, last];
    this.table.setAttribute('aria-rowcount', String(this.rows.length + 1));
    const focused = this.body.contains(document.activeElement) ? document.activeElement.dataset.row : undefined;
    const drawn = [this.space(first * height)];
    for (let row = first; row < last; ++row) drawn.push(this.drawRow(row));
    drawn.push(this.space((this.rows.length - last) * height));
    this.body.replaceChildren(...drawn);
    if (focused !== undefined) this.body.querySelector(`[data-row="${focused}"]`)?.focus({preventScroll: true});
  }

  space(height) {
    const row = element('tr', {class: 'space', 'aria-hidden': 'true'}, element('td', {colspan: this.columns.length + 1}));
    row.firstChild.style.height = `${height}px`;
    return row;
  }

  drawRow(row) {
    const number = counted(row + 1);
    return element('tr', {'aria-rowindex': row + 2},
      element('td', {}, element('button', {type: 'button', 'data-row': row, 'aria-label': `Linha ${number}, inteira`,
        click: () => this.open(row)}, number)),
      ...this.shown().map(index => element('td', {class: this.columns[index].isNumber ? 'number' : null},
        this.rows[row][index] ?? '')));
  }

  // Shows all columns of a row, with their whole texts.
  open(row) {
    const list = element('dl');
    this.columns.forEach((column, index) => list.append(element('dt', {}, column.caption),
      element('dd', {}, this.rows[row][index] ?? '(sem valor)')));
    this.dialog.replaceChildren(element('h2', {}, `Linha ${counted(row + 1)}`), list,
      element('form', {method: 'dialog'}, element('button', {}, 'Fechar')));
    this.dialog.showModal();
  }
}
