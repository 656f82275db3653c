// A statistic: its groups with their sums, and its chart.
import {element} from './dom.js';

const sumCells = sums => sums.map(sum => element('td', {class: 'number'}, sum));

function rowsOf(block, columns) {
  const lines = block.lines.map(line => element('tr', {}, element('th', {scope: 'row'}, line.name), ...sumCells(line.sums)));
  if (block.name === '') return lines;
  return [element('tr', {}, element('th', {colspan: columns, scope: 'rowgroup'}, block.name)), ...lines,
    element('tr', {class: 'total'}, element('th', {scope: 'row'}, `Total de ${block.name}`), ...sumCells(block.sums))];
}

function chartOf(chart) {
  const largest = Math.max(...chart.bars.map(bar => bar.value), 0);
  const rows = chart.bars.map(bar => {
    const drawn = element('div', {class: 'bar'});
    drawn.style.width = largest > 0 ? `${Math.max(0, bar.value) / largest * 100}%` : '0';
    return element('tr', {}, element('th', {scope: 'row'}, bar.name), element('td', {class: 'number'}, bar.text),
      element('td', {'aria-hidden': 'true'}, drawn));
  });
  return element('table', {class: 'chart'}, element('caption', {}, chart.caption), element('tbody', {}, ...rows));
}

export function statisticsOf(statistics) {
  const columns = statistics.measures.length + 1;
  return element('section', {'aria-label': 'Totais'},
    element('h2', {}, statistics.title),
    statistics.subtitle === '' ? null : element('p', {}, statistics.subtitle),
    ...statistics.facts.map(fact => element('p', {class: 'soft'}, `${fact.caption}: ${fact.text}`)),
    element('div', {class: 'scroll', tabindex: '0', role: 'region', 'aria-label': 'Totais, por grupo'},
      element('table', {class: 'sums'},
        element('thead', {}, element('tr', {}, element('th', {scope: 'col'}, statistics.groupCaption),
          ...statistics.measures.map(measure => element('th', {scope: 'col', class: 'number'}, measure)))),
        element('tbody', {}, ...statistics.blocks.flatMap(block => rowsOf(block, columns)),
          element('tr', {class: 'total'}, element('th', {scope: 'row'}, 'Total geral'), ...sumCells(statistics.sums))))),
    element('div', {class: 'scroll', tabindex: '0', role: 'region', 'aria-label': 'Gráfico'}, chartOf(statistics.chart)));
}
