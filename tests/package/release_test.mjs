// The archive that ./package made, as whoever downloads it gets it.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { readFileSync } from 'node:fs';
import { homedir } from 'node:os';
import { test } from 'node:test';
import { fileURLToPath, URL } from 'node:url';
import { kIconImages, kManifest, kVersion, PortableExecutable } from './portable_executable.mjs';

const root = fileURLToPath(new URL('../..', import.meta.url));
const [, version] = /^project\(marlune VERSION (\S+)/m.exec(readFileSync(`${root}CMakeLists.txt`, 'utf8'));
const archive = `${root}dist/marlune-${version}-win64.zip`;
const unzip = (...options) => execFileSync('unzip', options, { maxBuffer: 1 << 26 });
const unpacked = (name) => unzip('-p', archive, name);
const program = new PortableExecutable(unpacked('marlune.exe'));

/** Its only resource of this type. */
function only(type) {
  const found = program.resources(type);
  assert.equal(found.length, 1);
  return found[0];
}

test('the archive holds the program, its documents and licenses', () => {
  assert.deepEqual(unzip('-Z1', archive).toString().trim().split('\n'), ['LICENSE', 'README.md',
    'README.zh-CN.md', 'SHA256SUMS', 'THIRD-PARTY-NOTICES.md', 'marlune.exe']);
});

test('the documents are those of the tree', () => {
  for (const name of ['LICENSE', 'README.md', 'README.zh-CN.md', 'THIRD-PARTY-NOTICES.md']) {
    assert.deepEqual(unpacked(name), readFileSync(root + name), name);
  }
});

test('the sums are those of all other files', () => {
  const sums = unpacked('SHA256SUMS').toString().trim().split('\n').map((line) => line.split('  '));
  assert.deepEqual(sums.map(([, name]) => name).sort(), ['LICENSE', 'README.md', 'README.zh-CN.md',
    'THIRD-PARTY-NOTICES.md', 'marlune.exe']);
  for (const [sum, name] of sums) {
    assert.equal(createHash('sha256').update(unpacked(name)).digest('hex'), sum, name);
  }
});

test('the version block names the version', () => {
  const block = only(kVersion);
  const numbers = block.indexOf(Uint8Array.of(0xbd, 0x04, 0xef, 0xfe));
  const words = [10, 8, 14, 12].map((offset) => block.readUInt16LE(numbers + offset));
  assert.equal(words.join('.'), `${version}.0`);
  const text = block.toString('utf16le');
  for (const name of ['FileVersion', 'ProductVersion']) {
    assert.match(text, new RegExp(`${name}\0+${version.replaceAll('.', '\\.')}\0`));
  }
});

test('the manifest asks for the rights of an administrator and knows the scale of each monitor', () => {
  const manifest = only(kManifest).toString();
  assert.match(manifest, /<requestedExecutionLevel level="requireAdministrator" uiAccess="false"\/>/);
  assert.match(manifest, />PerMonitorV2<\/dpiAwareness>/);
  assert.ok(manifest.includes(`name="Marlune.Native" version="${version}.0"`));
});

test('the icon has nine images', () => {
  assert.equal(program.resources(kIconImages).length, 9);
});

test('addresses are random in 64 bits, and data is not executable', () => {
  assert.equal(program.dllCharacteristics & 0x0020, 0x0020, 'high entropy');
  assert.equal(program.dllCharacteristics & 0x0040, 0x0040, 'dynamic base');
  assert.equal(program.dllCharacteristics & 0x0100, 0x0100, 'no execution of data');
});

test('the program does not tell when and where it was built', () => {
  assert.equal(program.timestamp, 0);
  for (const encoding of ['latin1', 'utf16le']) {
    const text = program.bytes.toString(encoding);
    for (const path of [root, `${homedir()}/`, '/home/', '/tmp/', '/usr/', '../']) {
      assert.ok(!text.includes(path), `${path} as ${encoding}`);
    }
  }
});

test('the program has two million bytes at most', () => {
  assert.ok(program.bytes.length <= 2_000_000, String(program.bytes.length));
});
