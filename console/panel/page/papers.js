// The papers of the archive's counter and shelves.
import {element} from './dom.js';
import {choiceField, keepValues, labelled} from './fields.js';
import {formOf} from './form.js';
import {issuerFields} from './issuer.js';
import {Preview} from './preview.js';
import {post} from './server.js';
import {Task} from './task.js';

export class PapersPage {
  // `papers` is what the catalogue has about papers.
  constructor(papers) {
    this.papers = papers;
    this.preview = new Preview('papel.pdf');
    this.issuer = issuerFields('Acima do título; pode ficar em branco.');
    this.choice = choiceField('paper', papers.map(paper => [paper.name, paper.purpose]), {change: () => this.choose()});
    this.parameters = element('div');
    this.button = element('button', {class: 'main'}, 'Preparar o PDF');
    this.task = new Task(this.button);
    const issuer = element('div', {class: 'fields'}, ...this.issuer.fields);
    const form = element('form', {submit: event => {
      event.preventDefault();
      this.print();
    }}, labelled(this.choice, 'Papel'), this.parameters, issuer,
    element('div', {class: 'actions'}, this.button, this.task.cancelButton), this.task.status);
    this.element = element('div', {},
      element('h1', {}, 'Papéis'),
      element('p', {class: 'soft'}, 'Do balcão e das estantes, em páginas A4. Confira o PDF antes de imprimir.'),
      element('div', {class: 'beside'}, form, this.preview.element));
    keepValues(issuer, 'issuer');
    this.choose();
  }

  // Shows the parameters of the chosen paper.
  choose() {
    const paper = this.papers.find(candidate => candidate.name === this.choice.value);
    this.filled = formOf({name: `papel ${paper.name}`, parameters: paper.parameters});
    this.parameters.replaceChildren(this.filled.fields);
    this.preview.fileName = `${paper.name}.pdf`;
    this.preview.clear();
    this.task.say('');
  }

  print() {
    return this.task.do(async (run, signal) => {
      this.preview.clear();
      this.task.say('Preparando o papel…');
      const response = await post('/api/paper', {
        paper: this.choice.value, parameters: this.filled.values(), ...await this.issuer.values(), run}, signal);
      const {pdf} = await response.json();
      this.task.say('O PDF está pronto.');
      this.preview.show(pdf);
    });
  }

  leave() {
    this.task.leave();
    this.preview.clear();
  }
}
