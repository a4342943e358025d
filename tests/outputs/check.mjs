// Parses files with the parsers that read them elsewhere. On standard input: a list of {parser, path} as JSON; on standard
// output: for each what the parser found, {tables: [{schema, name, columns}], references}, or {error}.
import { readFileSync } from 'node:fs';
import * as sql from '@guanmingchiu/sqlparser-ts';
import Ajv2020 from 'ajv/dist/2020.js';
import * as dbml10 from 'dbml10';
import * as dbml3 from 'dbml3';
import { JSDOM } from 'jsdom';
import { marked } from 'marked';

const { window } = new JSDOM('');
Object.assign(globalThis, { window, document: window.document });
const { default: mermaid } = await import('mermaid');
await sql.init();

const ajv = new Ajv2020.default({ allErrors: true, allowUnionTypes: true });
const validate = ajv.compile(JSON.parse(readFileSync(process.argv[2], 'utf8')));

function readJson(text) {
  if (!validate(JSON.parse(text))) throw new Error(JSON.stringify(validate.errors.slice(0, 3)));
  return {};
}

function readDbml({ Parser }, text) {
  const { schemas } = new Parser().parse(text, 'dbmlv2');
  const tables = schemas.flatMap((schema) => schema.tables).sort((a, b) => a.token.start.offset - b.token.start.offset);
  return {
    tables: tables.map((table) => ({ schema: table.schema.name, name: table.name, columns: table.fields.map(({ name }) => name) })),
    references: schemas.flatMap((schema) => schema.refs).length,
  };
}

// Mermaid keeps "#35;" in this form until it draws.
const decode = (text) => text.replace(/ﬂ°°(\d+)¶ß/g, (_, number) => String.fromCodePoint(number));

async function readMermaid(text) {
  await mermaid.parse(text);
  const { db } = await mermaid.mermaidAPI.getDiagramFromText(text);
  return {
    tables: [...db.getEntities().values()].map((entity) => (
      { schema: '', name: decode(entity.alias || entity.label), columns: entity.attributes.map(({ name }) => name) })),
    references: db.getRelationships().length,
  };
}

// As a browser shows it: a heading, and in the first table behind it a row for each column. `strange` is what no dictionary
// has but from a text that was taken for markup, or from a reader that makes links of addresses.
function readMarkdown(text) {
  const { document } = new JSDOM(marked.parse(text)).window;
  const tables = [];
  let hasOtherNames = false;
  for (const element of document.querySelectorAll('h2, h3, table')) {
    if (element.tagName === 'H3') tables.push({ schema: '', name: element.textContent, columns: [] });
    if (element.tagName === 'TABLE' && tables.length > 0) {
      hasOtherNames = element.rows[0].cells[1].textContent === 'Logical name';
      tables.at(-1).columns.push(...[...element.tBodies[0].rows].map(({ cells }) => (
        [cells[0].textContent, (hasOtherNames && cells[1].textContent) || cells[0].textContent])));
    }
  }
  const strange = document.querySelectorAll('body :not(h1, h2, h3, p, br, ul, li, pre, code, strong, table, thead, tbody, tr, th, td,'
    + ' a[id^="table-"]:empty, a[id^="view-"]:empty, a[href^="#table-"], a[href^="#view-"])');
  return { tables, strange: [...strange].map((element) => element.outerHTML) };
}

// What the parser does not know: commands of clients and sessions, synonyms, intervals.
const UNKNOWN = /^(SET DEFINE OFF|ALTER SESSION .*|CREATE SYNONYM .*)$|(?<=INTERVAL) (DAY|YEAR)(\(\d+\))? TO (SECOND|MONTH)(\(\d+\))?/gm;

function readSql(dialect, text) {
  // Clients of SQL Server cut a script at such lines, whatever is around them.
  const batches = dialect === 'mssql' ? text.split(/^[ \t]*GO[ \t]*$/im) : [text];
  const statements = batches.flatMap((batch) => sql.parse(batch.replace(UNKNOWN, ''), dialect));
  const ofKind = (kind) => statements.filter((statement) => kind in statement).map((statement) => statement[kind]);
  const added = ofKind('AlterTable').flatMap((table) => table.operations.map((operation) => operation.AddConstraint?.constraint ?? {}));
  return {
    tables: ofKind('CreateTable').map((table) => {
      const [name, schema] = table.name.map((part) => part.Identifier.value).reverse();
      return { schema: schema ?? '', name, columns: table.columns.map((column) => column.name.value) };
    }),
    references: added.filter((constraint) => 'ForeignKey' in constraint).length,
  };
}

const parsers = {
  json: readJson,
  dbml10: (text) => readDbml(dbml10, text),
  dbml3: (text) => readDbml(dbml3, text),
  mermaid: readMermaid,
  marked: readMarkdown,
  ...Object.fromEntries(['mysql', 'mssql', 'oracle'].map((dialect) => [dialect, (text) => readSql(dialect, text)])),
};

const results = [];
for (const { parser, path } of JSON.parse(readFileSync(0, 'utf8'))) {
  try {
    results.push(await parsers[parser](readFileSync(path, 'utf8')));
  } catch (problem) {
    const reasons = problem.diags?.slice(0, 3).map((reason) => (reason instanceof Error ? reason.stack : reason));
    results.push({ error: JSON.stringify(reasons ?? String(problem.message ?? problem)).slice(0, 2000) });
  }
}
process.stdout.write(JSON.stringify(results));
