// Writes the groups of an attribute or its definition. The library writes them as texts, without their tags, flags and prompts.

function degrees(radians) {
    return radians * 180 / Math.PI;
}

function textGroups(text) {
    return [
        [100, 'AcDbText'], [39, text.thickness], [10, text.insertPoint], [40, text.height], [1, text.value ?? ''],
        [50, degrees(text.rotation)], [41, text.widthFactor], [51, degrees(text.obliqueAngle)], [7, text.style?.name ?? ''],
        [71, text.mirror], [72, text.horizontalAlignment], [11, text.alignmentPoint], [210, text.normal],
    ];
}

export function writeAttribute(writer, attribute, isDefinition) {
    const groups = [
        ...textGroups(attribute), [100, isDefinition ? 'AcDbAttributeDefinition' : 'AcDbAttribute'], [280, 0],
        ...(isDefinition ? [[3, attribute.prompt ?? '']] : []), [2, attribute.tag], [70, attribute.flags],
        [74, attribute.verticalAlignment], [280, attribute.isReallyLocked],
    ];
    for (const [code, value] of groups) {
        writer.write(code, value);
    }
}
