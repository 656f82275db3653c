// Who issues the pages that are printed: the organisation's name and its logo.
import {labelled, textField} from './fields.js';
import {element} from './dom.js';

// The program accepts a request of 256 KB, and base64 makes a file a third longer.
const MOST_BYTES = 180 * 1024;

// The fields, and a function that returns what they add to a request. It raises an Error for a picture that is too
// large.
export function issuerFields(hintOfName) {
  const name = textField('organisation');
  const logo = element('input', {id: 'field-logo', type: 'file', accept: 'image/png'});
  const values = async () => {
    const filled = {organisation: name.value.trim()};
    const file = logo.files[0];
    if (file === undefined) return filled;
    if (file.size > MOST_BYTES) throw new Error(`A imagem "${file.name}" passa de 180 KB. Use uma menor.`);
    filled.logo = {name: file.name, png: await base64Of(file)};
    return filled;
  };
  return {
    fields: [labelled(name, 'Nome do órgão', hintOfName), labelled(logo, 'Logotipo', 'Uma imagem PNG de até 180 KB.')],
    values,
  };
}

async function base64Of(file) {
  const bytes = new Uint8Array(await file.arrayBuffer());
  return btoa(Array.from(bytes, byte => String.fromCharCode(byte)).join(''));
}
