// The form of a report, made from its entry.
import {capitalized, element} from './dom.js';

// "Primeiro dia do período; só vale se …" is a label and a hint.
function labelAndHint(effect) {
  const end = effect.indexOf('; ');
  if (end < 0) return [effect, ''];
  return [effect.slice(0, end), `${capitalized(effect.slice(end + 2))}.`];
}

const keyOf = report => `values ${report.name}`;

function keptValues(report) {
  return JSON.parse(sessionStorage.getItem(keyOf(report)) ?? '{}');
}

function control(parameter, id, value) {
  const common = {id, name: parameter.name, 'aria-describedby': `${id}-hint`};
  if (parameter.type === 'flag')
    return element('input', {...common, type: 'checkbox', role: 'switch', checked: value === 'sim'});
  if (parameter.choices.length > 0) {
    return element('select', common, ...parameter.choices.map(choice =>
      element('option', {value: choice.value, selected: choice.value === value}, choice.meaning)));
  }
  if (parameter.type === 'date') return element('input', {...common, type: 'date', value, min: '0100-01-01', max: '9999-12-31'});
  return element('input', {...common, type: 'text', value, autocomplete: 'off', spellcheck: 'false'});
}

function field(parameter, kept) {
  const id = `field-${parameter.name}`;
  const value = kept[parameter.name] ?? parameter.initial;
  const [label, hint] = parameter.label !== '' ? [parameter.label, ''] : labelAndHint(parameter.effect);
  const example = parameter.type === 'text' && parameter.choices.length === 0 ? ` Exemplo: ${parameter.sample}.` : '';
  const hintText = element('p', {class: 'hint', id: `${id}-hint`}, `${hint}${example} (${parameter.name})`.trim());
  const input = control(parameter, id, value);
  const labelText = element('label', {for: id}, label);
  if (parameter.type === 'flag')
    return element('div', {class: 'switch'}, input, element('div', {}, labelText, hintText));
  return element('div', {}, labelText, input, hintText);
}

// The fields, and a function that returns what was filled in, name by name, and keeps it for the session.
export function formOf(report) {
  const kept = keptValues(report);
  const fields = element('div', {class: 'fields'}, ...report.parameters.map(parameter => field(parameter, kept)));
  const values = () => {
    const filled = {};
    for (const input of fields.querySelectorAll('input, select')) {
      const value = input.type === 'checkbox' ? (input.checked ? 'sim' : '') : input.value;
      if (value !== '') filled[input.name] = value;
    }
    sessionStorage.setItem(keyOf(report), JSON.stringify(filled));
    return filled;
  };
  return {fields, values};
}
