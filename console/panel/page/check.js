// What `kodrarpt verifica` says, as a page.
import {copyButton, counted, element} from './dom.js';
import {cancel, newRun, post} from './server.js';

const listOf = texts => element('ul', {}, ...texts.map(text => element('li', {}, text)));

function section(title, ...children) {
  return element('section', {}, element('h2', {}, title), ...children);
}

function reportsOf(findings, state) {
  return findings.relatorios.filter(report => report.situacao === state);
}

function details(report) {
  return element('li', {}, report.nome,
    listOf([...report.problemas.map(problem => `${problem.defeito}: ${problem.item}`), ...report.recusas, ...report.ressalvas]));
}

function statesOf(findings) {
  const states = [
    ['com problemas', 'Relatórios com problemas'],
    ['não funciona neste banco', 'Relatórios que não funcionam neste banco'],
    ['pronto, com ressalva', 'Relatórios prontos, com ressalvas'],
  ];
  const parts = [];
  for (const [state, title] of states) {
    const reports = reportsOf(findings, state);
    if (reports.length > 0) parts.push(section(`${title} (${reports.length})`, element('ul', {}, ...reports.map(details))));
  }
  return parts;
}

function indexesOf(findings) {
  if (findings.indices.length === 0) return null;
  return section('Índices que faltam', ...findings.indices.map(index => element('div', {},
    element('p', {}, `${index.indice}: a tabela tem ${counted(index.linhas)} linhas; ajuda ${index.relatorios.join(', ')}.`),
    element('pre', {tabindex: '0', role: 'region', 'aria-label': 'Instrução do índice'}, index.instrucao),
    copyButton(index.instrucao, 'Copiar a instrução'))));
}

function listSection(title, texts) {
  return texts.length === 0 ? null : section(title, listOf(texts));
}

function shown(findings) {
  const ready = reportsOf(findings, 'pronto').length;
  return [
    element('p', {class: findings.pronto ? null : 'bad'}, findings.pronto
      ? `O banco tem tudo de que os relatórios precisam (${findings.banco}).`
      : `Falta alguma coisa aos relatórios (${findings.banco || 'banco desconhecido'}).`),
    element('p', {}, `Prontos, sem ressalvas: ${ready} de ${findings.relatorios.length} relatórios.`),
    ...statesOf(findings),
    listSection('O que o banco respondeu', Object.entries(findings.respostas).map(([what, answer]) => `${what}: ${answer}`)),
    listSection('Textos longos', findings.textos_longos.map(column =>
      `${column.coluna} aceita ${column.aceita} caracteres, e um relatório falha com mais de ${column.limite}.`)),
    indexesOf(findings),
    listSection('O que não foi conferido', findings.nao_conferido),
  ].filter(part => part !== null);
}

export class CheckPage {
  constructor() {
    this.status = element('p', {role: 'status'});
    this.results = element('div');
    this.button = element('button', {class: 'main', type: 'button', click: () => this.check()}, 'Verificar');
    this.element = element('div', {},
      element('h1', {}, 'Verificar o banco'),
      element('p', {}, 'Confere se o banco tem as tabelas, as colunas e os índices de que os relatórios precisam. Nada é gravado.'),
      element('div', {class: 'actions'}, this.button),
      this.status, this.results);
  }

  async check() {
    this.run = newRun();
    this.button.disabled = true;
    this.status.className = '';
    this.status.textContent = 'Verificando…';
    this.results.replaceChildren();
    try {
      const findings = await (await post('/api/check', {run: this.run})).json();
      this.results.replaceChildren(...shown(findings));
      this.status.textContent = 'Verificado.';
    } catch (error) {
      this.status.className = 'bad';
      this.status.textContent = error.message;
    } finally {
      this.run = null;
      this.button.disabled = false;
    }
  }

  leave() {
    if (this.run) cancel(this.run).catch(() => {});
  }
}
