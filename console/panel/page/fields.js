// Fields of forms that are not made from a report's entry.
import {element} from './dom.js';

// A control with its label above it and a hint below. The control has an id and a name.
export function labelled(control, label, hint = '') {
  if (hint === '') return element('div', {}, element('label', {for: control.id}, label), control);
  control.setAttribute('aria-describedby', `${control.id}-hint`);
  return element('div', {}, element('label', {for: control.id}, label), control,
    element('p', {class: 'hint', id: `${control.id}-hint`}, hint));
}

export const textField = (name, attributes = {}) =>
  element('input', {id: `field-${name}`, name, type: 'text', autocomplete: 'off', spellcheck: 'false', ...attributes});

export const listField = (name, attributes = {}) =>
  element('textarea', {id: `field-${name}`, name, rows: 4, autocomplete: 'off', spellcheck: 'false', ...attributes});

// The choices are [value, words].
export const choiceField = (name, choices, attributes = {}) =>
  element('select', {id: `field-${name}`, name, ...attributes},
    ...choices.map(([value, words]) => element('option', {value}, words)));

// A switch with its label beside it.
export function switchField(name, label, hint = '') {
  const id = `field-${name}`;
  return element('div', {class: 'switch'},
    element('input', {id, name, type: 'checkbox', role: 'switch', 'aria-describedby': hint === '' ? null : `${id}-hint`}),
    element('div', {}, element('label', {for: id}, label),
      hint === '' ? null : element('p', {class: 'hint', id: `${id}-hint`}, hint)));
}

// Restores what was filled into a form in this session, and keeps what is filled in from now on.
export function keepValues(form, key) {
  const controls = () => [...form.querySelectorAll('input, select, textarea')]
    .filter(control => control.name !== '' && control.type !== 'file' && control.type !== 'radio');
  const kept = JSON.parse(sessionStorage.getItem(key) ?? '{}');
  for (const control of controls()) {
    if (!(control.name in kept)) continue;
    if (control.type === 'checkbox') control.checked = kept[control.name];
    else control.value = kept[control.name];
  }
  const keep = () => sessionStorage.setItem(key, JSON.stringify(Object.fromEntries(
    controls().map(control => [control.name, control.type === 'checkbox' ? control.checked : control.value]))));
  form.addEventListener('input', keep);
  form.addEventListener('change', keep);
}
