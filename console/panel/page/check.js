// What `kodrarpt verifica` says, as a page.
import {copyButton, counted, element} from './dom.js';
import {post} from './server.js';
import {Task} from './task.js';

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
      : `O banco não tem tudo de que os relatórios precisam (${findings.banco || 'banco desconhecido'}).`),
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
    this.results = element('div');
    this.button = element('button', {class: 'main', type: 'button', click: () => this.check()}, 'Verificar');
    this.task = new Task(this.button);
    this.element = element('div', {},
      element('h1', {}, 'Verificar o banco'),
      element('p', {}, 'Confere se o banco tem as tabelas, as colunas e os índices de que os relatórios precisam. Nada é gravado.'),
      element('div', {class: 'actions'}, this.button, this.task.cancelButton),
      this.task.status, this.results);
  }

  check() {
    return this.task.do(async (run, signal) => {
      this.task.say('Verificando…');
      this.results.replaceChildren();
      const response = await post('/api/check', {run}, signal);
      this.results.replaceChildren(...shown(await response.json()));
      this.task.say('Verificado.');
    });
  }

  leave() {
    this.task.leave();
  }
}
