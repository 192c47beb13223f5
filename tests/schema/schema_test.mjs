// charts/chart.schema.json says of charts what the compiler says: no more, and of keys, types
// and names no less. The charts are read by a reader of YAML 1.2 that isn't the compiler's.
//   node schema_test.mjs CHECKOUT TAVREL

import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {existsSync, readdirSync, readFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {join} from 'node:path';
import test from 'node:test';

const [checkout, tavrel] = process.argv.slice(2);
const packages = join(checkout, 'build', 'node', 'node_modules');
assert.ok(existsSync(packages), 'scripts/node-packages installs what is missing here');
const require = createRequire(join(packages, 'x'));
const Ajv = require('ajv').default;
const YAML = require('yaml');

const text = (...path) => readFileSync(join(checkout, ...path), 'utf8');
const schema = JSON.parse(text('charts', 'chart.schema.json'));
const isValid = new Ajv({allErrors: true, strict: true}).compile(schema);

// What is wrong with a chart by the reader and by the schema.
function wrongIn(source) {
  const document = YAML.parseDocument(source, {version: '1.2'});
  const unread = [...document.errors, ...document.warnings].map(String);
  if (unread.length > 0) return unread;
  return isValid(document.toJS()) ? [] : isValid.errors.map(each => JSON.stringify(each));
}

function compile(source) {
  const done = spawnSync(tavrel, ['compile', '-', '-o', '-'], {input: source, encoding: 'utf8'});
  assert.ok(done.status === 0 || done.status === 1, done.stderr);
  return {isFine: done.status === 0, said: done.stderr};
}

test('all charts are as the schema says', () => {
  const charts = readdirSync(join(checkout, 'charts')).filter(name => name.endsWith('.yaml'));
  assert.ok(charts.length >= 3);
  for (const name of charts) assert.deepEqual(wrongIn(text('charts', name)), [], name);
});

test('so are the examples of the document, but for those with mistakes', () => {
  const examples = [...text('docs', 'authoring.md').matchAll(/\n```yaml\n([^]*?)```\n/g)];
  assert.ok(examples.length >= 9);
  for (const [, source] of examples) {
    assert.equal(wrongIn(source).length === 0, compile(source).isFine, source);
  }
});

test('the names are those of the catalogue', () => {
  const list = spawnSync(tavrel, ['list'], {encoding: 'utf8'}).stdout.trimEnd().split('\n').slice(1);
  const names = list.map(line => line.trim().split(/\s+/)[1]);
  assert.deepEqual(schema.definitions.name.enum, names);
});

test('the keys are those that the compiler knows', () => {
  const {said} = compile('chart: Opening\nkey: x\napplies: {key: x}\nstart: a\nboxes:\n' +
    '  a: {text: "A", key: x, no: {key: x, call: [{key: x}], never: {key: x}}}\n');
  const known = [...said.matchAll(/it may have (.*)/g)].map(([, keys]) => keys.split(', ').sort());
  const {box, inlineBox, callWhen, never} = schema.definitions;
  const all = [schema, schema.properties.applies, box, inlineBox, callWhen, never];
  const described = all.map(each => Object.keys(each.properties).sort());
  assert.deepEqual(described, known);
});

const fine = 'chart: Opening\nstart: a\nboxes:\n  a: {text: "A?", yes: b, no: {text: "No", id: c}}\n  b: {text: "B"}\n';
const mistakes = [
  ['chart: Opening', 'chart: Opening bids'],
  ['chart: Opening\n', ''],
  ['start: a\n', ''],
  ['start: a\n', 'start: a\nwidth: 7\n'],
  ['start: a\n', 'start: a\nwidth: 81\n'],
  ['start: a\n', 'start: a\nwidth: wide\n'],
  ['start: a\n', 'start: a\nwidth: "24"\n'],
  ['start: a\n', 'start: a\nwidth: 24.5\n'],
  ['start: a\n', 'start: a\nentry: yes\n'],
  ['start: a\n', 'start: a\nentry: "true"\n'],
  ['start: a\n', 'start: a\nintro: 12\n'],
  ['start: a\n', 'start: a\nintro: 1.5\n'],
  ['start: a\n', 'start: a\nintro: true\n'],
  ['start: a\n', 'start: 0x1F\n'],
  ['start: a\n', 'start: a\nturn: left\n'],
  ['start: a\n', 'start: a\nintro: [one, two]\n'],
  ['start: a\n', 'start: a\nstart: a\n'],
  ['yes: b', 'yes: [b]'],
  ['yes: b', 'yes: "b c"'],
  ['yes: b', 'yes: b, turn: up'],
  ['yes: b', 'yes: b, chart: ""'],
  ['yes: b', 'yes: b, chart: "Open\\ning"'],
  ['yes: b', 'yes: b, chart: 12'],
  ['yes: b', 'yes: 12'],
  ['yes: b', 'yes: b, comment: {a: b}'],
  ['text: "No", ', ''],
  ['text: "No"', 'text: ""'],
  ['id: c', 'id: "c d"'],
  ['b: {text: "B"}', 'b: {text: "B", id: b}'],
  ['b: {text: "B"}', '"b c": {text: "B"}'],
  ['b: {text: "B"}', 'b: Pass'],
  ['start: a\n', 'start: a\napplies: P\n'],
  ['start: a\n', 'start: a\napplies: {}\n'],
  ['start: a\n', 'start: a\napplies: {auction: []}\n'],
  ['start: a\n', 'start: a\napplies: {auction: [12]}\n'],
  ['start: a\n', 'start: a\napplies: {auction: {a: b}}\n'],
  ['start: a\n', 'start: a\napplies: {hand: ""}\n'],
  ['start: a\n', 'start: a\napplies: {hands: "hcp > 1"}\n'],
  ['yes: b', 'yes: b, when: " "'],
  ['yes: b', 'yes: b, when: 1'],
  ['yes: b', 'yes: b, asks: me'],
  ['yes: b', 'yes: b, never: no'],
  ['yes: b', 'yes: b, never: {}'],
  ['yes: b', 'yes: b, never: {no: ""}'],
  ['yes: b', 'yes: b, never: {No: "Why"}'],
  ['"B"', '"B", call: ""'],
  ['"B"', '"B", call: 2'],
  ['"B"', '"B", call: []'],
  ['"B"', '"B", call: [2H]'],
  ['"B"', '"B", call: [{when: "hcp > 1"}]'],
  ['"B"', '"B", call: [{call: 2H, if: "hcp > 1"}]'],
  ['"B"', '"B", shows: [hcp]'],
  ['"B"', '"B", forcing: yes'],
  ['"B"', '"B", forcing: false'],
  ['"B"', '"B", next: self'],
  ['"B"', '"B", chart: RespNT, next: left'],
];

const variants = [
  ['start: a\n', 'start: a\nentry: True\nwidth: 0x18\n'],
  ['start: a\n', 'start: a\nwidth: 24.0\nintro: "12"\n'],
  ['start: a\n', 'start: "a"\nturn: "down"\nwidth: +24\n'],
  ['yes: b', 'yes: b, chart: Nowhere'],
  ['start: a\n', 'start: a\napplies: {auction: "", hand: "hcp > 1"}\n'],
  ['start: a\n', 'start: a\napplies:\n  auction:\n  - (1C|1D) P\n  - ""\n'],
  ['yes: b', 'yes: b, when: "hcp > 1", never: {yes: "Why", no: "Why not"}'],
  ['yes: b', 'yes: b, asks: judgement'],
  ['"B"', '"B", call: P, shows: "hcp > 1", forcing: no, chart: RespNT, next: self'],
  ['"B"', '"B", call: "2H", forcing: "no", chart: RespNT, next: partner'],
  ['"B"', '"B", call: [{when: "hcp > 1", call: 2H}, {call: X}]'],
];

for (const [right, other] of [['', ''], ...variants]) {
  test(`schema and compiler take ${JSON.stringify(other)} for ${JSON.stringify(right)}`, () => {
    const source = fine.replace(right, other);
    assert.deepEqual(wrongIn(source), []);
    assert.ok(compile(source).isFine);
  });
}

for (const [right, wrong] of mistakes) {
  test(`schema and compiler refuse ${JSON.stringify(wrong)} for ${JSON.stringify(right)}`, () => {
    const source = fine.replace(right, wrong);
    assert.notEqual(source, fine);
    assert.notDeepEqual(wrongIn(source), []);
    assert.ok(!compile(source).isFine);
  });
}
