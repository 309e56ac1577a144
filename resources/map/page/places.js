// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The place names of the base map, found by area and by nearness.
'use strict';
var marvo = window.marvo || {};

/// Distances in metres and bearings in degrees from north, on a sphere.
marvo.geo = {
    distance(a, b) {
        return L.CRS.Earth.distance(a, b);
    },
    bearing(from, to) {
        const radians = Math.PI / 180;
        const eastward = (to.lng - from.lng) * radians;
        const y = Math.sin(eastward) * Math.cos(to.lat * radians);
        const x = Math.cos(from.lat * radians) * Math.sin(to.lat * radians)
            - Math.sin(from.lat * radians) * Math.cos(to.lat * radians) * Math.cos(eastward);
        return (Math.atan2(y, x) / radians + 360) % 360;
    },
};

/// Of a place: index, lat, lng, rank (0 the largest, 8 the smallest).
marvo.Places = class {
    constructor(data, language) {
        this.data = data;
        this.language = language;
        this.names = data.names.split('\n');
        this.cells = new Map(); // "south,west" -> {south, west, first, end}
        this.large = [];        // few enough to be looked at one by one on a map of continents
        let first = 0;
        for (let i = 0; i < data.cells.length; i += 3) {
            const [south, west, count] = data.cells.slice(i, i + 3);
            const cell = {south, west, first, end: first + count};
            this.cells.set(south + ',' + west, cell);
            // The largest of a cell come first.
            for (let place = first; place < cell.end && this.rank(place) <= 2; ++place)
                this.large.push(this.place(place, cell));
            first = cell.end;
        }
        this.large.sort((a, b) => a.rank - b.rank);
    }

    rank(index) {
        return this.data.ranks.charCodeAt(index) - 48;
    }

    place(index, cell) {
        return {
            index,
            lng: cell.west + this.data.at[2 * index] / 1000,
            lat: cell.south + this.data.at[2 * index + 1] / 1000,
            rank: this.rank(index),
        };
    }

    name(index) {
        const [name, korean] = this.names[index].split('\t');
        return this.language === 'ko' && korean ? korean : name;
    }

    cellAt(south, west) {
        return this.cells.get(south + ',' + (((west + 180) % 360 + 360) % 360 - 180));
    }

    /// The places of a L.LatLngBounds up to a rank, the largest first.
    within(bounds, highestRank) {
        const inside = (place) => bounds.contains([place.lat, place.lng]);
        if (highestRank <= 2)
            return this.large.filter((place) => place.rank <= highestRank && inside(place));
        const found = [];
        for (let south = Math.floor(bounds.getSouth()); south <= bounds.getNorth(); ++south) {
            for (let west = Math.floor(bounds.getWest()); west <= bounds.getEast(); ++west) {
                const cell = this.cellAt(south, west);
                for (let i = cell ? cell.first : 0; cell && i < cell.end && this.rank(i) <= highestRank; ++i) {
                    const place = this.place(i, cell);
                    if (inside(place))
                        found.push(place);
                }
            }
        }
        return found.sort((a, b) => a.rank - b.rank);
    }

    /// The place nearest to a L.LatLng with its distance, among its cell's neighbours; null far from anywhere.
    nearest(position) {
        let best = null;
        const degreesEast = Math.min(8, Math.ceil(1 / Math.max(0.05, Math.cos(position.lat * Math.PI / 180))));
        for (let south = Math.floor(position.lat) - 1; south <= Math.floor(position.lat) + 1; ++south) {
            const middle = Math.floor(position.lng);
            for (let west = middle - degreesEast; west <= middle + degreesEast; ++west) {
                const cell = this.cellAt(south, west);
                for (let i = cell ? cell.first : 0; cell && i < cell.end; ++i) {
                    const place = this.place(i, cell);
                    const distance = marvo.geo.distance(position, place);
                    if (!best || distance < best.distance)
                        best = {place, distance};
                }
            }
        }
        return best;
    }
};
window.marvo = marvo;
