// Which archive the page speaks of: the connections that the program has, and the one that is chosen in this tab.

let list = [];
let current = null;

const KEY = 'connection';

export const connections = () => list;

// The chosen connection; null while none is.
export const chosen = () => current;

// As the page names a connection: by its profile.
export const labelOf = connection => connection.profile === '' ? 'a conexão deste comando' : connection.profile;

export function choose(connection) {
  current = connection;
  sessionStorage.setItem(KEY, connection.name);
}

// Without a choice in this tab, the connection of the command line is chosen, if there is one.
export function setConnections(all) {
  list = all;
  const name = sessionStorage.getItem(KEY) ?? '';
  const usable = list.filter(connection => connection.problem === '');
  current = usable.find(connection => connection.name === name) ?? usable.find(connection => connection.name === '') ?? null;
}
