// A PDF file beside the form that it was made from.
import {element} from './dom.js';

export class Preview {
  constructor(fileName) {
    this.fileName = fileName;
    this.address = null;
    this.element = element('div', {class: 'preview'});
  }

  // Shows the file, which is in base64.
  show(pdf) {
    this.clear();
    const bytes = Uint8Array.from(atob(pdf), digit => digit.charCodeAt(0));
    this.address = URL.createObjectURL(new Blob([bytes], {type: 'application/pdf'}));
    this.element.append(
      element('div', {class: 'actions'},
        element('a', {href: this.address, target: '_blank'}, 'Abrir em outra aba'),
        element('a', {href: this.address, download: this.fileName}, 'Baixar')),
      navigator.pdfViewerEnabled
        ? element('iframe', {src: `${this.address}#navpanes=0&view=FitH`, title: 'O PDF'})
        : element('p', {class: 'soft'}, 'Este navegador não mostra PDF dentro de uma página: abra ou baixe o arquivo.'));
  }

  // Called, too, when another page takes the place of this one.
  clear() {
    this.element.replaceChildren();
    if (this.address !== null) URL.revokeObjectURL(this.address);
    this.address = null;
  }
}
