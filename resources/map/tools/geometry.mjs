// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Plane geometry on longitude/latitude lists: thinning lines, unwrapping rings, area and label points.

/** Squared distance of p from the segment a-b. */
function squaredDistanceToSegment(p, a, b)
{
    let [x, y] = a;
    let dx = b[0] - x;
    let dy = b[1] - y;
    if (dx !== 0 || dy !== 0) {
        const t = Math.min(1, Math.max(0, ((p[0] - x) * dx + (p[1] - y) * dy) / (dx * dx + dy * dy)));
        x += dx * t;
        y += dy * t;
    }
    dx = p[0] - x;
    dy = p[1] - y;
    return dx * dx + dy * dy;
}

/**
 * Douglas-Peucker thinning of a line; its ends stay, so lines that meet still meet. A closed line keeps at least four
 * points (a triangle), so that no island disappears. Longitudes are weighted as at 45 degrees of latitude.
 */
export function thinned(line, toleranceDegrees)
{
    const last = line.length - 1;
    if (last < 2)
        return line;
    const plane = line.map(([lon, lat]) => [lon * 0.7, lat]);
    const keep = new Uint8Array(line.length);
    keep[0] = keep[last] = 1;
    const farthest = (from, to) => {
        let best = -1;
        let bestDistance = -1;
        for (let i = from + 1; i < to; ++i) {
            const distance = squaredDistanceToSegment(plane[i], plane[from], plane[to]);
            if (distance > bestDistance) {
                best = i;
                bestDistance = distance;
            }
        }
        return [best, bestDistance];
    };
    const stack = [[0, last]];
    if (line[0][0] === line[last][0] && line[0][1] === line[last][1]) {
        const [opposite] = farthest(0, last);
        keep[opposite] = 1;
        const halves = [[0, opposite], [opposite, last]];
        const third = halves.map(([from, to]) => farthest(from, to)).sort((a, b) => b[1] - a[1])[0][0];
        if (third > 0)
            keep[third] = 1;
        const corners = [0, opposite, third, last].filter((i) => i >= 0).sort((a, b) => a - b);
        stack.length = 0;
        for (let i = 1; i < corners.length; ++i)
            stack.push([corners[i - 1], corners[i]]);
    }
    while (stack.length > 0) {
        const [from, to] = stack.pop();
        const [index, distance] = farthest(from, to);
        if (index > 0 && distance > toleranceDegrees * toleranceDegrees) {
            keep[index] = 1;
            stack.push([from, index], [index, to]);
        }
    }
    return line.filter((_, i) => keep[i]);
}

/** Makes a line continuous across the antimeridian: its longitudes may then leave -180..180. */
export function unwrapped(line)
{
    let turn = 0;
    return line.map(([lon, lat], i) => {
        if (i > 0) {
            const step = lon - line[i - 1][0];
            if (step > 180)
                turn -= 360;
            else if (step < -180)
                turn += 360;
        }
        return [lon + turn, lat];
    });
}

/** The same for a closed ring. One that goes round a pole is closed along that pole. */
export function unwrappedRing(ring)
{
    const line = unwrapped(ring);
    const first = line[0];
    const last = line[line.length - 1];
    if (Math.abs(last[0] - first[0]) > 180) {
        const pole = first[1] < 0 ? -90 : 90;
        line.push([last[0], pole], [first[0], pole], first);
    }
    return line;
}

/** Moves a ring by whole turns so that its middle is nearest to a longitude. */
export function movedNear(ring, longitude)
{
    const longitudes = ring.map(([lon]) => lon);
    const middle = (Math.min(...longitudes) + Math.max(...longitudes)) / 2;
    const shift = Math.round((longitude - middle) / 360) * 360;
    return shift === 0 ? ring : ring.map(([lon, lat]) => [lon + shift, lat]);
}

/** Area in square degrees of the equator. */
export function ringArea(ring)
{
    const height = (lat) => Math.sin(lat * Math.PI / 180) * 180 / Math.PI; // equal-area cylinder
    let sum = 0;
    for (let i = 1; i < ring.length; ++i)
        sum += (ring[i][0] - ring[i - 1][0]) * (height(ring[i][1]) + height(ring[i - 1][1])) / 2;
    return Math.abs(sum);
}

/** A point well inside a ring: on the scan line with the longest run inside, out of a few. */
export function pointInside(ring)
{
    const latitudes = ring.map(([, lat]) => lat);
    const south = Math.min(...latitudes);
    const north = Math.max(...latitudes);
    let best = {score: -1, lon: ring[0][0], lat: ring[0][1]};
    const rows = 24;
    for (let row = 1; row < rows; ++row) {
        const lat = south + (north - south) * row / rows;
        const crossings = [];
        for (let i = 1; i < ring.length; ++i) {
            const [x1, y1] = ring[i - 1];
            const [x2, y2] = ring[i];
            if ((y1 > lat) !== (y2 > lat))
                crossings.push(x1 + (lat - y1) / (y2 - y1) * (x2 - x1));
        }
        crossings.sort((a, b) => a - b);
        const middleness = 1 - 0.6 * Math.abs(row / rows - 0.5);
        for (let i = 1; i < crossings.length; i += 2) {
            const score = (crossings[i] - crossings[i - 1]) * Math.cos(lat * Math.PI / 180) * middleness;
            if (score > best.score)
                best = {score, lon: (crossings[i] + crossings[i - 1]) / 2, lat};
        }
    }
    return [best.lon, best.lat];
}

/** A line as whole-number steps: [x0, y0, dx, dy, ...] in units of 1/perDegree; repeated points are left out. */
export function encoded(line, perDegree)
{
    const steps = [];
    let x = 0;
    let y = 0;
    line.forEach(([lon, lat], i) => {
        const nextX = Math.round(lon * perDegree);
        const nextY = Math.round(lat * perDegree);
        if (i > 0 && nextX === x && nextY === y)
            return;
        steps.push(nextX - x, nextY - y);
        x = nextX;
        y = nextY;
    });
    return steps;
}
