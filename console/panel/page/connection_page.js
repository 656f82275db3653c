// The choice of the archive, and whether its database answers.
import {chosen, connections, labelOf} from './connections.js';
import {element} from './dom.js';
import {cancel, newRun, post} from './server.js';

export class ConnectionPage {
  // `choose` is called with the connection that the user chooses. `problem` is why the profiles cannot be read.
  constructor(choose, problem) {
    this.choose = choose;
    this.runs = new Set();
    this.element = element('div', {},
      element('h1', {}, 'Escolher o acervo'),
      element('p', {}, 'A página mostra os relatórios de um acervo de cada vez. O teste conecta e diz que banco respondeu.'),
      problem === '' ? null : element('p', {class: 'bad'}, `Os perfis não podem ser lidos: ${problem}`),
      element('ul', {class: 'choices'}, ...connections().map(connection => this.choice(connection))));
  }

  choice(connection) {
    const {name, profile, problem} = connection;
    const title = element('h2', {}, profile === '' ? 'A conexão deste comando' : `Perfil ${profile}`);
    if (problem !== '') return element('li', {}, title, element('p', {}, `Este perfil ${problem}.`));
    const label = labelOf(connection);
    const answer = element('pre', {role: 'status', hidden: true});
    const test = element('button', {type: 'button', 'aria-label': `Testar ${label}`, click: () => this.test(name, test, answer)}, 'Testar');
    return element('li', {}, title,
      element('div', {class: 'actions'},
        element('button', {class: 'main', type: 'button', 'aria-label': `Usar ${label}`, click: () => this.choose(connection)}, 'Usar'),
        test, chosen()?.name === name ? element('span', {}, 'Em uso') : null),
      answer);
  }

  async test(name, button, answer) {
    const run = newRun();
    this.runs.add(run);
    button.disabled = true;
    answer.hidden = false;
    answer.className = '';
    answer.textContent = 'Conectando…';
    try {
      answer.textContent = (await (await post('/api/test', {connection: name, run})).json()).answer;
    } catch (error) {
      answer.className = 'bad';
      answer.textContent = error.message;
    } finally {
      this.runs.delete(run);
      button.disabled = false;
    }
  }

  leave() {
    for (const run of this.runs) cancel(run).catch(() => {});
  }
}
