// Builds elements. Every text becomes a text node, so that what a database contains is never taken for markup.

// element('p', {class: 'soft'}, 'texto', otherElement): attributes that are functions are listeners of that event.
export function element(name, attributes = {}, ...children) {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    if (typeof value === 'function') made.addEventListener(key, value);
    else if (value === true) made.setAttribute(key, '');
    else if (value !== false && value !== null && value !== undefined) made.setAttribute(key, value);
  }
  made.append(...children.filter(child => child !== null && child !== undefined));
  return made;
}

// "1.234".
export const counted = number => number.toLocaleString('pt-BR');

// "Nenhum registro", "1 registro", "1.234 registros".
export const countOfRows = rows =>
  rows === 0 ? 'Nenhum registro' : rows === 1 ? '1 registro' : `${counted(rows)} registros`;
