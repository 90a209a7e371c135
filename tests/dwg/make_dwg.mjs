// Writes a DXF drawing (UTF-8, version 2007 and later) as DWG of other versions: make_dwg.mjs DRAWING.dxf FOLDER VERSION...
// makes FOLDER/VERSION.dwg, as AC1018.dwg. Needs what tools/setup dwg installs.
import fs from 'node:fs';
import path from 'node:path';
import { webcrypto } from 'node:crypto';

globalThis.crypto ??= webcrypto;
const library = new URL('../../platform/dwg/node_modules/@node-projects/acad-ts/dist/index.js', import.meta.url);
const cad = await import(library.href);
cad.Insert.prototype.applyAttributeTransform = () => {}; // the library would move attributes, which are in place already

const [drawing, folder, ...versions] = process.argv.slice(2);
const text = fs.readFileSync(drawing, 'utf8');
const codePage = /\$DWGCODEPAGE\r?\n\s*3\r?\n(.*)/.exec(text)?.[1].trim() ?? 'ANSI_1252';
for (const version of versions) {
    // The library decodes drawings of every version by their code page.
    const document = cad.DxfReader.readFromStream(new TextEncoder().encode(text.replace(codePage, 'utf-8')));
    for (const [, name, colour] of text.matchAll(/AcDbLayerTableRecord\n {2}2\n(.*)\n 70\n.*\n 62\n-(\d+)\n/g)) {
        const layer = [...document.layers].find(one => one.name === name); // the library takes the layer as on
        layer.isOn = false;
        layer.color = new cad.Color(Number(colour));
    }
    for (const [, handle, width] of text.matchAll(/LWPOLYLINE\n {2}5\n(\w+)\n(?:.*\n){1,14}? 43\n(.*)\n/g)) {
        document.tryGetCadObject(parseInt(handle, 16)).cadObject.constantWidth = Number(width); // which the library does not read
    }
    const said = new Map([...text.matchAll(/(?:ATTRIB|ATTDEF)\n {2}5\n(\w+)\n(?:(?! {2}[02]\n).*\n.*\n)*? {2}2\n(.*)\n 70\n(\d+)\n/g)]
        .map(([, handle, tag, flags]) => [parseInt(handle, 16), { tag, flags: Number(flags) }]));
    for (const entity of [...document.blockRecords].flatMap(block => [...block.entities])) {
        [entity, ...entity.attributes ?? []].forEach(one => Object.assign(one, said.get(one.handle))); // nor these
    }
    document.header.codePage = codePage;
    document.header.version = cad.ACadVersion[version];
    document.header.showModelSpace = true;
    fs.writeFileSync(path.join(folder, `${version}.dwg`), cad.DwgWriter.writeToBuffer(document));
}
