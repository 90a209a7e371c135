// Counts what a bill depends on in a drawing that was read: references of blocks, and their attributes.

function add(counts, name, number) {
    counts[name] = (counts[name] ?? 0) + number;
}

/**
 * {references, attributes: how many of each block's name, in the spaces and in the blocks,
 *  lost: {references, attributes}: how many the file lists beyond those,
 *  unread: {kind of object: how many could not be read}}
 */
export function inventoryOf(cad, document, reader) {
    const references = {}, attributes = {};
    const placed = new Set();
    for (const block of document.blockRecords) {
        for (const entity of block.entities) {
            if (entity instanceof cad.Insert && !(entity instanceof cad.TableEntity)) {
                const name = entity.block?.name ?? '';
                add(references, name, 1);
                placed.add(entity.handle);
                for (const attribute of [...entity.attributes].filter(one => one instanceof cad.AttributeEntity)) {
                    add(attributes, name, 1);
                    placed.add(attribute.handle);
                }
            }
        }
    }
    const lost = { references: 0, attributes: 0 };
    for (const [handle, kind] of reader.counted) {
        lost[kind] += placed.has(handle) ? 0 : 1;
    }
    return { references, attributes, lost, unread: Object.fromEntries(reader.unread) };
}
