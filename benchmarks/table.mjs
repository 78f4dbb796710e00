// Prints the table of ratios. Arguments: results of Google Benchmark (.json), whose names are
// "what | who", and of the other benchmarks: a line "what TAB who TAB nanoseconds" for each figure.
import console from 'node:console';
import { readFileSync } from 'node:fs';
import { argv } from 'node:process';

const kOurs = 'marlune';
const kNsPer = { ns: 1, us: 1e3, ms: 1e6, s: 1e9 };

function figuresOf(file) {
  const text = readFileSync(file, 'utf8');
  if (!file.endsWith('.json')) return text.trim().split(/\r?\n/).map((line) => line.split('\t'));
  return JSON.parse(text).benchmarks
    .filter((each) => each.run_type === 'iteration' || each.aggregate_name === 'median')
    .map((each) => [...each.run_name.split(' | '), each.cpu_time * kNsPer[each.time_unit]]);
}

function inWords(ns) {
  const unit = Object.keys(kNsPer).findLast((name) => ns >= kNsPer[name]);
  return `${Number((ns / kNsPer[unit]).toPrecision(3))} ${unit}`;
}

const subjects = new Map();
for (const [what, who, ns] of argv.slice(2).flatMap(figuresOf)) {
  if (!subjects.has(what)) subjects.set(what, new Map());
  subjects.get(what).set(who, Number(ns));
}

const rows = [];
for (const [what, figures] of subjects) {
  const ours = figures.get(kOurs);
  figures.delete(kOurs);
  if (!ours || figures.size === 0) throw new Error(`${what}: one of the two has no figure`);
  const [peer, theirs] = [...figures].sort(([, one], [, other]) => one - other)[0];
  rows.push({ ratio: theirs / ours, what, ours, theirs, peer });
}
rows.sort((one, other) => one.ratio - other.ratio);

console.log('| Ratio | What | Marlune | Peer | Which peer |\n|---|---|---|---|---|');
for (const { ratio, what, ours, theirs, peer } of rows) {
  console.log(`| ${ratio.toFixed(2)} | ${what} | ${inWords(ours)} | ${inWords(theirs)} | ${peer} |`);
}
