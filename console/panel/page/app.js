// The page as a whole: the list of reports, and what is shown beside it.
import {CheckPage} from './check.js';
import {ConnectionPage} from './connection_page.js';
import {choose, chosen, labelOf, setConnections} from './connections.js';
import {element, titleOf} from './dom.js';
import {InventoryPage} from './inventory.js';
import {LabelsPage} from './labels.js';
import {PapersPage} from './papers.js';
import {ReportPage} from './report.js';
import {get} from './server.js';

const main = document.querySelector('#main');
const search = document.querySelector('#search');

// Without accents and in lower case.
const folded = text => text.normalize('NFD').replace(/\p{M}/gu, '').toLowerCase();

function linkTo(report) {
  return element('li', {}, element('a', {href: `#${report.name}`, title: report.name}, titleOf(report)));
}

function drawList(families) {
  const words = folded(search.value).split(/\s+/).filter(word => word !== '');
  const fits = (family, report) => {
    const text = folded(`${family.title} ${report.name} ${report.purpose}`);
    return words.every(word => text.includes(word));
  };
  let found = 0;
  const parts = families.map(family => {
    const reports = family.reports.filter(report => fits(family, report));
    found += reports.length;
    return reports.length === 0 ? null
      : element('section', {}, element('h2', {}, family.title), element('ul', {}, ...reports.map(linkTo)));
  });
  document.querySelector('#families').replaceChildren(...parts.filter(part => part !== null));
  document.querySelector('#found').textContent =
    words.length === 0 ? '' : found === 0 ? 'Nenhum relatório.' : found === 1 ? '1 relatório.' : `${found} relatórios.`;
  markCurrent();
}

// Whether there is a page at this address that is not about reports.
const isPage = address => [...document.querySelectorAll('header a')].some(link => link.getAttribute('href') === address);

function markCurrent() {
  const current = location.hash || '#reports';
  // Beside another page, the list of reports would only take room.
  document.querySelector('.columns').classList.toggle('alone', current !== '#reports' && isPage(current));
  for (const link of document.querySelectorAll('header a, nav a')) {
    const isReports = link.getAttribute('href') === '#reports' && !isPage(current);
    if (link.getAttribute('href') === current || isReports) link.setAttribute('aria-current', 'page');
    else link.removeAttribute('aria-current');
  }
}

function welcome(families) {
  const count = families.reduce((sum, family) => sum + family.reports.length, 0);
  return {leave() {}, element: element('div', {}, element('h1', {}, 'Relatórios do arquivo'),
    element('p', {}, `Escolha um dos ${count} relatórios da lista, ou procure por uma palavra.`))};
}

function start(catalogue, problem) {
  const {families, databases} = catalogue;
  const reports = families.flatMap(family => family.reports);
  const pages = {
    labels: () => new LabelsPage(catalogue.labels),
    papers: () => new PapersPage(catalogue.papers),
    inventory: () => new InventoryPage(),
    check: () => new CheckPage(),
  };
  let page = null;
  const go = () => {
    const name = decodeURIComponent(location.hash.slice(1));
    if (name === 'main') return;
    const report = reports.find(candidate => candidate.name === name);
    page?.leave();
    const isFirst = page === null;
    if (name === 'connections' || chosen() === null) page = new ConnectionPage(use, problem);
    else if (Object.hasOwn(pages, name)) page = pages[name]();
    else page = report ? new ReportPage(report, databases) : welcome(families);
    main.replaceChildren(page.element);
    const archive = chosen() === null ? 'nenhum' : labelOf(chosen());
    document.querySelector('#archive').textContent = archive;
    document.title = `${main.querySelector('h1').textContent} – acervo: ${archive} – kodrarpt`;
    markCurrent();
    if (!isFirst) main.focus();
    scrollTo(0, 0);
  };
  const use = connection => {
    choose(connection);
    if (location.hash === '#connections') location.hash = '#reports';
    else go();
  };
  search.addEventListener('input', () => drawList(families));
  addEventListener('hashchange', go);
  drawList(families);
  go();
}

try {
  const {connections, problem} = await get('/api/connections');
  setConnections(connections);
  start(await get('/api/catalogue'), problem);
} catch (error) {
  main.replaceChildren(element('p', {class: 'bad', role: 'alert'}, error.message));
}
