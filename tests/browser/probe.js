// Reads from the open page what a reader sees: the heading, and the rows of every column of every
// page. Boxes are in page coordinates.
const box = element => {
    const r = element.getBoundingClientRect();
    return {left: r.left + scrollX, right: r.right + scrollX,
            top: r.top + scrollY, bottom: r.bottom + scrollY};
};
const hex = color => '#' + color.match(/\d+/g).slice(0, 3)
    .map(n => Number(n).toString(16).padStart(2, '0')).join('');

// How the text of a cell looks: that of its outermost font element, and lines drawn from outside.
const look = cell => {
    const font = cell.querySelector('font');
    if (!font) return null;
    const style = getComputedStyle(font);
    let underlined = false;
    for (let e = font; e !== cell; e = e.parentElement)
        underlined ||= getComputedStyle(e).textDecorationLine.includes('underline');
    return {color: hex(style.color), pixels: parseFloat(style.fontSize),
            bold: Number(style.fontWeight) >= 600, italic: style.fontStyle === 'italic',
            underlined};
};

// Where the text after the last overlay in a cell starts.
const textAfterOverlay = cell => {
    const layers = [...cell.querySelectorAll('div > img[style]')];
    if (!layers.length) return null;
    const spacer = layers.at(-1).parentElement.nextElementSibling;
    const range = document.createRange();
    range.setStartAfter(spacer);
    range.setEndAfter(cell.lastChild);
    const found = [...range.getClientRects()].filter(r => r.width > 0);
    return found.length ? Math.min(...found.map(r => r.top)) + scrollY : null;
};

const picture = image => ({
    source: decodeURI(image.getAttribute('src')), address: image.src,
    natural: [image.naturalWidth, image.naturalHeight], box: box(image),
    layer: getComputedStyle(image).position === 'absolute',
    depth: getComputedStyle(image).zIndex, opacity: Number(getComputedStyle(image).opacity)});

const cell = td => ({
    text: td.textContent, box: box(td), span: td.colSpan, look: look(td),
    room: td.clientWidth - parseFloat(getComputedStyle(td).paddingLeft)
        - parseFloat(getComputedStyle(td).paddingRight),
    pictures: [...td.querySelectorAll('img')].map(picture), after: textAfterOverlay(td)});

const heading = document.querySelector('h3');
const pages = [...document.body.children].filter(e => e.tagName === 'TABLE');
const rows = [], columns = [];
pages.forEach((page, pageNumber) => [...page.rows[0].cells].forEach((column, columnNumber) => {
    columns.push({page: pageNumber, column: columnNumber, box: box(column)});
    const layout = [...column.children].find(e => e.tagName === 'TABLE');
    for (const row of layout.rows) {
        // The first column opens with a row that no node made.
        if (row.cells[0].vAlign === 'top') continue;
        rows.push({page: pageNumber, column: columnNumber, box: box(row),
                   cells: [...row.cells].map(cell)});
    }
}));

// The sizes that font elements may have, from 1 to 7, as this browser draws them.
const keywords = ['x-small', 'small', 'medium', 'large', 'x-large', 'xx-large', 'xxx-large'];
const sizes = keywords.map(name => {
    const sample = document.body.appendChild(document.createElement('span'));
    sample.style.fontSize = name;
    const pixels = parseFloat(getComputedStyle(sample).fontSize);
    sample.remove();
    return pixels;
});

return {heading: heading && {text: heading.textContent, box: box(heading)},
        headings: document.querySelectorAll('h3').length, rows, columns, sizes,
        pages: pages.map(box), width: document.documentElement.clientWidth};
