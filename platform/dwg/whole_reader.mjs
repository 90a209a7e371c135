// Reads a DWG drawing whole: every object that its map lists, after checking the checksum of each.

const SEED = 0xc0c1;
const SECTION_COUNT = 0x15, MOST_SECTIONS = 64; // the place of the number of sections, and far more sections than there are
const PAGE_MAP = 0x41630e3b, SECTION_MAP = 0x4163003b; // types of pages
const ATTRIBUTE = 2, REFERENCE = 7, ARRAY = 8; // types of objects

/** The name under which objects of a type are counted; other types are not. */
const COUNTED = new Map([[REFERENCE, 'references'], [ARRAY, 'references'], [ATTRIBUTE, 'attributes']]);

export class Damaged extends Error {}

/** From 2004 on the maps of pages and sections are pages themselves: 20 bytes, the last four the checksum of these (with
 *  zeros there) and of the packed bytes behind them. With a wrong map the library may never end. */
function checkMaps(cad) {
    const { DwgLZ77AC18Decompressor: unpacker, DwgCheckSumCalculator: sums } = cad;
    const unpack = unpacker.decompress;
    unpacker.decompress = (bytes, at, ...more) => {
        const head = bytes.slice(at - 20, at);
        const values = new DataView(head.buffer);
        const type = values.getUint32(0, true), size = values.getUint32(8, true), told = values.getUint32(16, true);
        if (type === PAGE_MAP || type === SECTION_MAP) {
            values.setUint32(16, 0, true);
            const sum = sums.calculate(0, head, 0, head.length);
            if (at + size > bytes.length || sums.calculate(sum, bytes, at, size) !== told) {
                throw new Damaged('the checksum of its map of sections is wrong');
            }
        }
        return unpack.call(unpacker, bytes, at, ...more);
    };
}

/** The library names the block of a dimension anew, by the dimension's handle, when that joins its block late. The name may be
 *  another block's, which would be lost. */
function keepDimensionBlocks(cad) {
    const dimension = cad.Dimension.prototype;
    const assign = dimension.assignDocument;
    dimension.assignDocument = function (document) {
        const block = this._block;
        this._block = null;
        assign.call(this, document);
        this._block = this.updateTableEntry(block, other => (this._block = other), document.blockRecords);
    };
}

/** A reader class over the library `cad`; its `found` holds what the file lists, `unread` what could not be read. */
export function wholeReader(cad) {
    checkMaps(cad);
    keepDimensionBlocks(cad);
    cad.Insert.prototype.applyAttributeTransform = () => {}; // attributes stand in the reference's space already
    return class WholeReader extends cad.DwgReader {
        found = { references: 0, attributes: 0 };
        counted = new Map(); // by handle
        unread = new Map(); // the kind of object: how many
        damaged = 0;

        constructor(bytes) {
            super(bytes, (_, event) => this.note(event.message));
        }

        read() {
            const document = super.read();
            this.giveBlocksTheirEntities(document);
            return document;
        }

        /** Files of R14 and 2000 begin with a short list of sections. The library would take any number of them. */
        _readFileHeaderAC15(header, stream) {
            const count = new DataView(this._fileStream).getUint32(SECTION_COUNT, true);
            if (count > MOST_SECTIONS) {
                throw new Damaged('its list of sections is wrong');
            }
            super._readFileHeaderAC15(header, stream);
        }

        note(message) {
            const kind = /^Could not read (\S+)/.exec(message)?.[1] ?? /^Unlisted object with DXF name (\S+) .* UnknownEntity$/.exec(message)?.[1];
            if (kind) {
                const name = cad.ObjectType[kind] ?? kind;
                this.unread.set(name, (this.unread.get(name) ?? 0) + 1);
            }
        }

        /** The library follows references from the header on, and so loses what is behind a broken one. The map of objects
         *  lists all objects. */
        _readObjects() {
            const map = objectMap(cad, this._getSectionStream('AcDb:Handles').stream);
            const version = this._fileHeader.acadVersion;
            const inFile = version <= cad.ACadVersion.AC1015;
            const stream = inFile ? cad.DwgStreamReaderBase.getStreamHandler(version, this._fileBytes, this._encoding)
                : this._getSectionStream('AcDb:AcDbObjects');
            stream.position = 0;
            this.checkObjects(map, stream.stream, version >= cad.ACadVersion.AC1024);
            const first = this._builder.headerHandles.getHandles().filter(handle => handle != null);
            const handles = new Set([...first, ...map.keys()]);
            const reader = new cad.DwgObjectReader(version, this._builder, stream, handles, map, this._document.classes);
            reader.read();
            for (const template of this._builder.blockRecordTemplates) { // the library accepts objects of any kind here
                template.beginBlockHandle = this.handleOf(template.beginBlockHandle, cad.Block);
                template.endBlockHandle = this.handleOf(template.endBlockHandle, cad.BlockEnd);
            }
            for (const [handle, type] of reader._readedObjects) {
                const kind = COUNTED.get(type);
                if (kind) {
                    this.found[kind] += 1;
                    this.counted.set(handle, kind);
                }
            }
        }

        handleOf(handle, kind) {
            return this._builder.templatesMap.get(handle)?.cadObject instanceof kind ? handle : null;
        }

        /** Adds to each block the entities that name it as their owner and are missing in its list or chain. */
        giveBlocksTheirEntities(document) {
            const placed = new Set();
            for (const block of document.blockRecords) {
                for (const entity of block.entities) {
                    placed.add(entity);
                }
            }
            const templates = this._builder.templatesMap;
            const spaces = [undefined, this._builder.headerHandles.paper_space, this._builder.headerHandles.model_space];
            for (const { cadObject: entity, entityMode: mode, ownerHandle } of templates.values()) {
                const owner = templates.get(mode === 0 ? ownerHandle : spaces[mode])?.cadObject;
                const belongs = entity instanceof cad.Entity && !(entity instanceof cad.Block || entity instanceof cad.BlockEnd ||
                    entity instanceof cad.UnknownEntity);
                if (belongs && owner instanceof cad.BlockRecord && !placed.has(entity)) {
                    entity.owner = null;
                    owner.entities.add(entity);
                }
            }
        }

        checkObjects(map, bytes, sizedHandles) {
            for (const offset of map.values()) {
                if (!hasItsChecksum(cad, bytes, offset, sizedHandles)) {
                    this.damaged += 1;
                }
            }
            if (this.damaged > 0) {
                throw new Damaged(`the checksum of ${this.damaged} of its ${map.size} objects is wrong`);
            }
        }
    };
}

/** The place of each object, by handle. The map is in chunks of pairs of differences, each with its checksum; an empty one ends it. */
function objectMap(cad, bytes) {
    const map = new Map();
    for (let at = 0, size = 0; size !== 2;) {
        size = (bytes[at] << 8) | bytes[at + 1];
        const end = at + size;
        if (!(size >= 2 && end + 2 <= bytes.length) || checksum(cad, bytes, at, end) !== ((bytes[end] << 8) | bytes[end + 1])) {
            throw new Damaged('the checksum of its map of objects is wrong');
        }
        let handle = 0, place = 0;
        for (let next = at + 2; next < end;) {
            const step = packed(bytes, next, 7);
            const move = packed(bytes, step.next, 6);
            handle += step.value;
            place += move.negative ? -move.value : move.value;
            map.set(handle, place);
            next = move.next;
        }
        at = end + 2;
    }
    return map;
}

/** A number in groups of seven bits. The last byte gives `lastBits` of them; where that is six, its seventh bit is the sign. */
function packed(bytes, at, lastBits) {
    let value = 0, factor = 1;
    while ((bytes[at] & 0x80) !== 0) {
        value += (bytes[at] & 0x7f) * factor;
        factor *= 128;
        at += 1;
    }
    const last = bytes[at] ?? 0;
    return { value: value + (last & ((1 << lastBits) - 1)) * factor, negative: (last & 0x40) !== 0, next: at + 1 };
}

/** Whether an object's checksum is right. An object is its size in words of 15 bits, from version 2010 on the size of its handles,
 *  its bytes, and the checksum. */
function hasItsChecksum(cad, bytes, offset, sizedHandles) {
    let at = offset, size = 0;
    for (let shift = 0, more = true; more; shift += 15, at += 2) {
        size += (bytes[at] | ((bytes[at + 1] & 0x7f) << 8)) * 2 ** shift;
        more = (bytes[at + 1] & 0x80) !== 0;
    }
    for (let more = sizedHandles; more; at += 1) {
        more = (bytes[at] & 0x80) !== 0;
    }
    const end = at + size;
    if (!(offset >= 0 && size > 0 && end + 2 <= bytes.length)) {
        return false;
    }
    return checksum(cad, bytes, offset, end) === (bytes[end] | (bytes[end + 1] << 8));
}

export function checksum(cad, bytes, begin, end) {
    const table = cad.CRC.crcTable;
    let sum = SEED;
    for (let at = begin; at < end; at += 1) {
        sum = (sum >>> 8) ^ table[(sum ^ bytes[at]) & 0xff];
    }
    return sum;
}
