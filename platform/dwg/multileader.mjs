// Writes the groups of a multileader. The library's writer leaves out its text and the ends of its lines.

function handleOf(object) {
    return object?.handle ?? 0;
}

/** A colour as these groups have it: its kind in the highest byte. */
function packed(color) {
    const [kind, value] = color.isByLayer ? [0xc0, 0] : color.isByBlock ? [0xc1, 0]
        : color.isTrueColor ? [0xc2, (color.r << 16) | (color.g << 8) | color.b] : [0xc3, color.index];
    return (kind << 24) | value;
}

function textGroups(context) {
    return [
        [304, context.textLabel], [11, context.textNormal], [340, handleOf(context.textStyle)], [12, context.textLocation],
        [13, context.direction], [42, context.textRotation], [43, context.boundaryWidth], [44, context.boundaryHeight],
        [45, context.lineSpacingFactor], [170, context.lineSpacing], [90, packed(context.textColor)],
        [171, context.textAttachmentPoint], [172, context.flowDirection], [91, packed(context.backgroundFillColor)],
        [141, context.backgroundScaleFactor], [92, context.backgroundTransparency], [291, context.backgroundFillEnabled],
        [292, context.backgroundMaskFillOn], [173, context.columnType], [293, context.textHeightAutomatic],
        [142, context.columnWidth], [143, context.columnGutter], [294, context.columnFlowReversed],
        ...context.columnSizes.map(size => [144, size]), [295, context.wordBreak],
    ];
}

function blockGroups(context) {
    const places = [0, 1, 2, 3];
    return [
        [341, handleOf(context.blockContent)], [14, context.blockContentNormal], [15, context.blockContentLocation],
        [16, context.blockContentScale], [46, context.blockContentRotation], [93, packed(context.blockContentColor)],
        ...places.flatMap(row => places.map(column => [47, context.transformationMatrix[`m${row}${column}`]])),
    ];
}

function leaderGroups(leader) {
    const lines = leader.lines.flatMap(line => [
        [304, 'LEADER_LINE{'], ...line.points.map(point => [10, point]), [91, line.index], [305, '}'],
    ]);
    return [
        [302, 'LEADER{'], [290, leader.contentValid], [291, leader.unknown], [10, leader.connectionPoint], [11, leader.direction],
        [90, leader.leaderIndex], [40, leader.landingDistance], ...lines, [271, leader.textAttachmentDirection], [303, '}'],
    ];
}

function contextGroups(context) {
    return [
        [300, 'CONTEXT_DATA{'], [40, context.scaleFactor], [10, context.contentBasePoint], [41, context.textHeight],
        [140, context.arrowheadSize], [145, context.landingGap], [174, context.textLeftAttachment],
        [175, context.textRightAttachment], [176, context.textAlignment], [177, context.blockContentConnection],
        [290, context.hasTextContents], ...(context.hasTextContents ? textGroups(context) : []),
        [296, context.hasContentsBlock], ...(context.hasContentsBlock ? blockGroups(context) : []),
        [110, context.basePoint], [111, context.baseDirection], [112, context.baseVertical], [297, context.normalReversed],
        ...context.leaderRoots.flatMap(leaderGroups), [272, context.textBottomAttachment], [273, context.textTopAttachment],
        [301, '}'],
    ];
}

function groupsOf(leader) {
    const optional = (code, object) => (object ? [[code, handleOf(object)]] : []);
    const attributes = leader.blockAttributes.flatMap(one => [
        [330, handleOf(one.attributeDefinition)], [177, one.index], [44, one.width], [302, one.text],
    ]);
    return [
        [100, 'AcDbMLeader'], [270, 2], ...contextGroups(leader.contextData), [340, handleOf(leader.style)],
        [90, leader.propertyOverrideFlags], [170, leader.pathType], [91, packed(leader.lineColor)],
        [341, handleOf(leader.leaderLineType)], [171, leader.leaderLineWeight], [290, leader.enableLanding],
        [291, leader.enableDogleg], [41, leader.landingDistance], ...optional(342, leader.arrowhead), [42, leader.arrowheadSize],
        [172, leader.contentType], [343, handleOf(leader.textStyle)], [173, leader.textLeftAttachment],
        [95, leader.textRightAttachment], [174, leader.textAngle], [175, leader.textAlignment], [92, packed(leader.textColor)],
        [292, leader.textFrame], ...optional(344, leader.blockContentId), [93, packed(leader.blockContentColor)],
        [10, leader.blockContentScale], [43, leader.blockContentRotation], [176, leader.blockContentConnection],
        [293, leader.enableAnnotationScale], ...attributes, [294, leader.textDirectionNegative], [178, leader.textAligninIPE],
        [179, leader.textAttachmentPoint], [45, leader.scaleFactor], [271, leader.textAttachmentDirection],
        [272, leader.textBottomAttachment], [273, leader.textTopAttachment], [295, leader.extendedToText],
    ];
}

export function writeMultiLeader(writer, leader) {
    for (const [code, value] of groupsOf(leader)) {
        writer.write(code, value);
    }
}
