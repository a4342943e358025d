// Parses files with the parsers that read them elsewhere. On standard input: a list of {parser, path} as JSON; on standard
// output: for each what the parser found, {tables: [{name, columns}], references}, or {error}.
import { readFileSync } from 'node:fs';
import Ajv2020 from 'ajv/dist/2020.js';
import * as dbml10 from 'dbml10';
import * as dbml3 from 'dbml3';
import { JSDOM } from 'jsdom';
import * as sql from '@guanmingchiu/sqlparser-ts';

const { window } = new JSDOM('');
Object.assign(globalThis, { window, document: window.document });
const { default: mermaid } = await import('mermaid');
await sql.init();

function readDbml({ Parser }, text) {
  const { schemas } = new Parser().parse(text, 'dbmlv2');
  const tables = schemas.flatMap((schema) => schema.tables).sort((a, b) => a.token.start.offset - b.token.start.offset);
  return {
    tables: tables.map((table) => ({
      schema: table.schema.name, name: table.name, note: table.note ?? '',
      columns: table.fields.map((field) => ({ name: field.name, type: field.type.type_name, note: field.note ?? '' })),
      indexes: table.indexes.length,
    })),
    references: schemas.flatMap((schema) => schema.refs).length,
  };
}

async function readMermaid(text) {
  await mermaid.parse(text);
  const { db } = await mermaid.mermaidAPI.getDiagramFromText(text);
  return {
    tables: [...db.getEntities().values()].map((entity) => ({
      name: entity.alias || entity.label,
      columns: entity.attributes.map(({ name, type, comment }) => ({ name, type, note: comment ?? '' })),
    })),
    references: db.getRelationships().length,
  };
}

// The last part of a name that may be qualified.
const lastPart = (name) => name.at(-1).Identifier.value;

function readSql(dialect, text) {
  const batches = dialect === 'mssql' ? text.split(/^GO[ \t]*$/im) : [text]; // as its clients do, whatever is around the line
  const statements = batches.flatMap((batch) => sql.parse(batch, dialect));
  const ofKind = (kind) => statements.filter((statement) => kind in statement).map((statement) => statement[kind]);
  const constraints = [...ofKind('CreateTable').flatMap((table) => table.constraints),
    ...ofKind('AlterTable').flatMap((table) => table.operations.map((operation) => operation.AddConstraint?.constraint ?? {}))];
  return {
    tables: ofKind('CreateTable').map((table) => ({
      name: lastPart(table.name), columns: table.columns.map((column) => ({ name: column.name.value })) })),
    references: constraints.filter((constraint) => 'ForeignKey' in constraint).length,
    views: ofKind('CreateView').map((view) => lastPart(view.name)),
    indexes: ofKind('CreateIndex').length,
  };
}

const imported = (dialect) => (text) => readDbml(dbml10, dbml10.importer.import(text, dialect));

const schemaPath = process.argv[2];
const validate = new Ajv2020.default({ allErrors: true, allowUnionTypes: true }).compile(JSON.parse(readFileSync(schemaPath, 'utf8')));
function readJson(text) {
  if (!validate(JSON.parse(text))) throw new Error(JSON.stringify(validate.errors.slice(0, 3)));
  return {};
}

const parsers = {
  json: readJson,
  dbml10: (text) => readDbml(dbml10, text),
  dbml3: (text) => readDbml(dbml3, text),
  mermaid: readMermaid,
  ...Object.fromEntries(['mysql', 'mssql', 'oracle', 'postgresql', 'sqlite', 'ansi'].map((dialect) => [dialect, (text) => readSql(dialect, text)])),
  ...Object.fromEntries(['mysql', 'mssql', 'oracle', 'postgres'].map((dialect) => [`import-${dialect}`, imported(dialect)])),
};

const results = [];
for (const { parser, path } of JSON.parse(readFileSync(0, 'utf8'))) {
  try {
    results.push(await parsers[parser](readFileSync(path, 'utf8')));
  } catch (problem) {
    results.push({ error: JSON.stringify(problem.diags?.slice(0, 5) ?? String(problem.message ?? problem)) });
  }
}
process.stdout.write(JSON.stringify(results));
