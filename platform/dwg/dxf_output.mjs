// Writes a drawing as text DXF in UTF-8. The library decides which groups are written; this unit writes them.
import fs from 'node:fs';
import { writeAttribute } from './attribute.mjs';
import { writeMultiLeader } from './multileader.mjs';

const ENOUGH = 1 << 20; // characters that are collected before they are written to the file

/** A value must be one line: each control character becomes a caret and a letter. */
function inOneLine(text) {
    return text.replace(/[\x00-\x1f]/g, character => '^' + String.fromCharCode(character.charCodeAt(0) + 0x40));
}

function real(value) {
    const text = Number.isFinite(value) ? String(value) : '0.0';
    return /[.e]/.test(text) ? text : text + '.0';
}

/** Also for flags, which the library may hold as true and false. */
function integer(value) {
    return typeof value === 'bigint' ? String(value) : String(Math.trunc(Number(value)) || 0);
}

function hexadecimal(value) {
    return value.toString(16).toUpperCase();
}

/** What writes a value, by the library's name for its type; without an entry it is written as text. */
const FORMS = {
    Point3D: real, Double: real, ExtendedDataDouble: real,
    Byte: integer, Int16: integer, Int32: integer, Int64: integer, ExtendedDataInt16: integer, ExtendedDataInt32: integer,
    Handle: hexadecimal, ObjectId: hexadecimal, ExtendedDataHandle: hexadecimal,
    Bool: value => (value ? '1' : '0'),
};

/** The library's writer of groups, over a file that receives only whole records. */
function groupWriter(cad, file) {
    const kinds = cad.GroupCodeValueType;
    return new class extends cad.DxfAsciiWriter {
        kept = [];
        length = 0;

        write(code, value, map) {
            if (value?.dimension) { // a point, which the library passes where a number belongs
                this.writeVector(code, value, map);
            } else {
                super.write(code, value, map);
            }
        }

        writeDxfCode(code) {
            this.keep(String(code).padStart(3) + '\n');
        }

        writeValue(code, value) {
            const kind = kinds[cad.GroupCodeValue.transformValue(code)];
            if (kind === 'Chunk' || kind === 'ExtendedDataChunk') {
                this.writeChunks(code, Buffer.from(value));
            } else {
                this.keep((FORMS[kind] ? FORMS[kind](value) : inOneLine(String(value))) + '\n');
            }
        }

        writeChunks(code, bytes) {
            const longest = 127;
            for (let at = 0; at === 0 || at < bytes.length; at += longest) {
                if (at > 0) {
                    this.writeDxfCode(code);
                }
                this.keep(bytes.subarray(at, at + longest).toString('hex').toUpperCase() + '\n');
            }
        }

        keep(text) {
            this.kept.push(text);
            this.length += text.length;
        }

        /** Returns a mark: takeBack(mark) removes what was written after it. */
        mark() {
            if (this.length > ENOUGH) {
                this.flush();
            }
            return this.kept.length;
        }

        takeBack(mark) {
            this.kept.length = mark;
        }

        flush() {
            fs.writeFileSync(file, this.kept.join(''), 'utf8');
            this.kept.length = 0;
            this.length = 0;
        }

        close() {}
    }();
}

/** A SEQEND for an entity that came without one. */
function newEnd(cad, document, entity) {
    const end = new cad.Seqend();
    end.handle = document.header.handleSeed;
    document.header.handleSeed += 1;
    end.owner = entity;
    end.layer = entity.layer;
    return end;
}

/** A polyline of one width has it at its vertices too: the library writes theirs in any case, and they win. */
function spreadWidth(polyline) {
    const { constantWidth: width, vertices } = polyline;
    if (width && vertices.every(vertex => !vertex.startWidth && !vertex.endWidth)) {
        vertices.forEach(vertex => { vertex.startWidth = vertex.endWidth = width; });
    }
}

/** Mends how the library's sections write entities: one that cannot be written is left out whole and passed to `unwritten`, the
 *  end of attributes is written once, and a mesh is written with its faces. Returns a function that undoes this. */
function mendSections(cad, unwritten) {
    const sections = cad.DxfSectionWriterBase.prototype;
    const { writeEntity: write, _writePolyline: writePolyline, _writeMultiLeader, _writeTextEntity: writeText } = sections;
    let depth = 0, last = null;
    sections.writeEntity = function (entity) {
        const isEnd = entity instanceof cad.Seqend;
        if (isEnd && last instanceof cad.Seqend) {
            return; // the attributes hold one already, and the library writes another behind them
        }
        last = entity;
        if (entity.attributes?.length > 0) {
            entity.attributes.seqend ??= newEnd(cad, this._document, entity);
        }
        if (entity instanceof cad.LwPolyline) {
            spreadWidth(entity);
        }
        const mark = depth === 0 ? this._writer.mark() : this._writer.kept.length;
        depth += 1;
        try {
            isEnd ? this._writeSeqend(entity) : write.call(this, entity);
        } catch {
            this._writer.takeBack(mark);
            unwritten(entity.objectName);
        } finally {
            depth -= 1;
        }
    };
    sections._writePolyline = function (polyline, map) {
        const end = polyline.vertices.seqend ?? newEnd(cad, this._document, polyline);
        polyline.vertices.seqend = null;
        writePolyline.call(this, polyline, map);
        for (const face of polyline.faces ?? []) {
            this._writeVertex(face);
        }
        this._writeSeqend(end);
    };
    sections._writeMultiLeader = function (leader) {
        writeMultiLeader(this._writer, leader);
    };
    sections._writeTextEntity = function (text, map) {
        const isDefinition = text instanceof cad.AttributeDefinition;
        if (isDefinition || text instanceof cad.AttributeEntity) {
            writeAttribute(this._writer, text, isDefinition);
        } else {
            writeText.call(this, text, map);
        }
    };
    return () => Object.assign(sections, { writeEntity: write, _writePolyline: writePolyline, _writeMultiLeader, _writeTextEntity: writeText });
}

/** The entities of a space in order. The library takes them from the front one by one, which is slow with an array. */
class Queue {
    entities = [];
    taken = 0;

    get length() {
        return this.entities.length - this.taken;
    }

    push(entity) {
        this.entities.push(entity);
    }

    shift() {
        this.taken += 1;
        return this.entities[this.taken - 1];
    }
}

/** Writes `document` to a new file of that path; returns how many entities of which kinds could not be written. */
export function writeDxf(cad, document, path) {
    const unwritten = new Map();
    const file = fs.openSync(path, 'wx');
    const restore = mendSections(cad, kind => unwritten.set(kind, (unwritten.get(kind) ?? 0) + 1));
    try {
        // Before version 2007 texts would be in the drawing's code page.
        document.header.version = Math.max(document.header.version, cad.ACadVersion.AC1021);
        const writer = new class extends cad.DxfWriter {
            _createStreamWriter() {
                this._writer = groupWriter(cad, file);
                this._writer.writeOptional = true;
                this._objectHolder.entities = new Queue();
            }
        }(null, document);
        writer.configuration.writeAllHeaderVariables = true;
        writer.write();
    } finally {
        restore();
        fs.closeSync(file);
    }
    return unwritten;
}
