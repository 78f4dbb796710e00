// Prints the table of ratios. Arguments: results of Google Benchmark (.json), whose names are
// "what | who", and of the other benchmarks: a line "what TAB who TAB nanoseconds" for each figure.
import {readFileSync} from 'node:fs';

const kOurs = 'marlune';
const kNsPer = {ns: 1, us: 1e3, ms: 1e6, s: 1e9};

function figuresOf(file) {
  const text = readFileSync(file, 'utf8');
  if (file.endsWith('.json')) {
    return JSON.parse(text).benchmarks
        .filter(({run_type, aggregate_name}) => run_type === 'iteration' || aggregate_name === 'median')
        .map(({run_name, cpu_time, time_unit}) => [...run_name.split(' | '), cpu_time * kNsPer[time_unit]]);
  }
  return text.trim().split(/\r?\n/).map((line) => line.split('\t'));
}

function inWords(ns) {
  const unit = Object.keys(kNsPer).findLast((name) => ns >= kNsPer[name]) ?? 'ns';
  return `${(ns / kNsPer[unit]).toPrecision(3)} ${unit}`;
}

const subjects = new Map();
for (const [what, who, ns] of process.argv.slice(2).flatMap(figuresOf)) {
  if (!subjects.has(what)) subjects.set(what, new Map());
  subjects.get(what).set(who, Number(ns));
}

const rows = [];
for (const [what, figures] of subjects) {
  const ours = figures.get(kOurs);
  figures.delete(kOurs);
  const [peer, theirs] = [...figures].reduce((best, each) => (each[1] < best[1] ? each : best));
  rows.push([theirs / ours, what, ours, theirs, peer]);
}
rows.sort(([one], [other]) => one - other);
console.log('| Ratio | What | Marlune | Peer | |\n|---|---|---|---|---|');
for (const [ratio, what, ours, theirs, peer] of rows) {
  console.log(`| ${ratio.toFixed(2)} | ${what} | ${inWords(ours)} | ${inWords(theirs)} | ${peer} |`);
}
