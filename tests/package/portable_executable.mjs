// Reads headers and resources of a 64-bit Windows executable.

const kOptionalHeader = 24;  // from the signature
const kResourceDirectory = kOptionalHeader + 112 + 2 * 8;  // the third of the directories

export const kIconImages = 3;
export const kVersion = 16;
export const kManifest = 24;

export class PortableExecutable {
  constructor(bytes) {
    this.bytes = bytes;
    this.header = bytes.readUInt32LE(0x3c);
  }

  get dllCharacteristics() {
    return this.bytes.readUInt16LE(this.header + kOptionalHeader + 70);
  }

  get timestamp() {
    return this.bytes.readUInt32LE(this.header + 8);
  }

  /** The bytes of all resources of a type. */
  resources(type) {
    const root = this.#fileOffset(this.bytes.readUInt32LE(this.header + kResourceDirectory));
    const found = [];
    // Three floors: types, names, languages. The highest bit tells a table from an entry.
    const walk = (table) => {
      for (const [, offset] of this.#entries(table)) {
        if (offset >>> 31) {
          walk(root + (offset & 0x7fffffff));
        } else {
          const start = this.#fileOffset(this.bytes.readUInt32LE(root + offset));
          found.push(this.bytes.subarray(start, start + this.bytes.readUInt32LE(root + offset + 4)));
        }
      }
    };
    for (const [id, offset] of this.#entries(root)) {
      if (id === type) walk(root + (offset & 0x7fffffff));
    }
    return found;
  }

  #entries(table) {
    const count = this.bytes.readUInt16LE(table + 12) + this.bytes.readUInt16LE(table + 14);
    return Array.from({ length: count }, (_, index) => {
      const at = table + 16 + index * 8;
      return [this.bytes.readUInt32LE(at), this.bytes.readUInt32LE(at + 4)];
    });
  }

  /** Where in the file lies what is loaded at this address. */
  #fileOffset(address) {
    const count = this.bytes.readUInt16LE(this.header + 6);
    const first = this.header + kOptionalHeader + this.bytes.readUInt16LE(this.header + 20);
    for (let section = first; section < first + count * 40; section += 40) {
      const start = this.bytes.readUInt32LE(section + 12);
      const size = this.bytes.readUInt32LE(section + 16);
      if (address >= start && address < start + size) {
        return address - start + this.bytes.readUInt32LE(section + 20);
      }
    }
    throw new Error(`nothing is loaded at ${address}`);
  }
}
