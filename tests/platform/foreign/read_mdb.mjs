// Reads a table of an Access file by npm's mdb-reader and holds it against the rows that went into
// it: node read_mdb.mjs MODULES FILE TABLE ROWS. ROWS has an array of JSON a line, dates as days
// since 1899-12-30. Prints the tables, the columns, what differs and the number of rows.
import {readFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {pathToFileURL} from 'node:url';

const [modules, file, table, expected] = process.argv.slice(2);
const entry = createRequire(pathToFileURL(modules + '/')).resolve('mdb-reader');
const {default: MDBReader} = await import(pathToFileURL(entry));

const firstDay = Date.UTC(1899, 11, 30);
const asExpected = {
  boolean: (value) => (value ? -1 : 0),
  currency: (value) => Number(value),
  datetime: (value) => (value.getTime() - firstDay) / 86400000,
};

const reader = new MDBReader(readFileSync(file));
console.log('tables', reader.getTableNames().join('|'));
const read = reader.getTable(table);
const columns = read.getColumns();
console.log('columns', columns.map(({name, type, size}) => `${name} ${type} ${size}`).join('|'));
const rows = read.getData();
const wanted = readFileSync(expected, 'utf8').split('\n').slice(0, -1).map((line) => JSON.parse(line));
rows.forEach((row, r) => columns.forEach(({name, type}, c) => {
  const value = row[name] === null ? null : (asExpected[type] ?? ((v) => v))(row[name]);
  if (value !== wanted[r]?.[c]) console.log('differs', r, name, value, wanted[r]?.[c]);
}));
console.log('rows', rows.length, wanted.length);
