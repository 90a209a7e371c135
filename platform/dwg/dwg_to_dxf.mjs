// Converts DWG drawings to DXF. For each, it reads a line of JSON from standard input and writes one to standard output:
//   {"dwg": FILE, "dxf": FILE that does not exist yet}
//   {"references": ..., ...} (inventory.mjs), {"error": what is wrong with the drawing}, or {"output": with the files}
import fs from 'node:fs';
import readline from 'node:readline';
import { webcrypto } from 'node:crypto';
import { inventoryOf } from './inventory.mjs';
import { writeDxf } from './dxf_output.mjs';
import { Damaged, wholeReader } from './whole_reader.mjs';

globalThis.crypto ??= webcrypto; // Node 18 lacks the global, which the library uses while it is loaded
const cad = await import('@node-projects/acad-ts');
const WholeReader = wholeReader(cad);

function convert({ dwg, dxf }) {
    const bytes = fs.readFileSync(dwg);
    const reader = new WholeReader(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length));
    reader.configuration = new cad.DwgReaderConfiguration();
    const document = reader.read();
    const inventory = inventoryOf(cad, document, reader);
    const unwritten = writeDxf(cad, document, dxf);
    return { ...inventory, unwritten: Object.fromEntries(unwritten) };
}

function answerTo(line) {
    try {
        return convert(JSON.parse(line));
    } catch (error) {
        if (error.syscall === 'write' || error.syscall === 'open') { // a fault of the files, not of the drawing
            return { output: error.message };
        }
        // The library's own messages would not help a person.
        return { error: error instanceof Damaged ? `it is damaged (${error.message})` : 'it is damaged, cut short or of an unknown kind' };
    }
}

for await (const line of readline.createInterface({ input: process.stdin })) {
    const answer = JSON.stringify(answerTo(line)) + '\n';
    fs.writeSync(process.stdout.fd, answer);
}
