// Files that the program answers with.
import {element} from './dom.js';

// Lets the browser save the file, and returns a link to it for a browser that does not save files by itself. The
// link's address must be revoked when it is no longer shown.
export async function saved(response) {
  const name = /filename="(.+)"/.exec(response.headers.get('Content-Disposition'))[1];
  const link = element('a', {href: URL.createObjectURL(await response.blob()), download: name}, name);
  link.click();
  return link;
}
