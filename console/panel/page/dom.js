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

// A button that copies a text to the clipboard.
export function copyButton(text, words) {
  const button = element('button', {type: 'button', click: async () => {
    try {
      await navigator.clipboard.writeText(text);
      said.textContent = 'Copiada.';
    } catch {
      said.textContent = 'O navegador não permite copiar; selecione o texto.';
    }
  }}, words);
  const said = element('span', {'aria-live': 'polite'});
  return element('div', {class: 'actions'}, button, said);
}

// "os suportes" becomes "Os suportes".
export const capitalized = text => text.charAt(0).toUpperCase() + text.slice(1);

// What a report is for, as a title: "Os suportes dos documentos" becomes "Suportes dos documentos".
export const titleOf = report => capitalized(report.purpose.replace(/^(A|As|O|Os) /, ''));

// "1.234".
export const counted = number => number.toLocaleString('pt-BR');

// "Nenhum registro", "1 registro", "1.234 registros".
export const countOfRows = rows =>
  rows === 0 ? 'Nenhum registro' : rows === 1 ? '1 registro' : `${counted(rows)} registros`;
