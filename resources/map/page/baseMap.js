// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Land and borders, drawn from the data that comes with the application: there with or without a network.
'use strict';

/// [x0, y0, dx, dy, ...] in units of 1/perDegree as [[longitude, latitude], ...].
marvo.decodedLine = function (steps, perDegree) {
    const line = [];
    let x = 0;
    let y = 0;
    for (let i = 0; i < steps.length; i += 2) {
        x += steps[i];
        y += steps[i + 1];
        line.push([x / perDegree, y / perDegree]);
    }
    return line;
};

marvo.BaseMapLayer = L.GridLayer.extend({
    options: {pane: 'base', maxZoom: 19, updateWhenZooming: true, keepBuffer: 1},

    initialize: function (data, options) {
        L.GridLayer.prototype.initialize.call(this, options);
        const decoded = (steps) => marvo.decodedLine(steps, data.perDegree);
        const feature = (type, coordinates) => ({type: 'Feature', properties: null, geometry: {type, coordinates}});
        const tiled = (features) => geojsonvt({type: 'FeatureCollection', features},
            {maxZoom: 19, indexMaxZoom: 0, tolerance: 3, buffer: 64});
        this._land = tiled(data.land.map((rings) => feature('Polygon', rings.map(decoded))));
        this._borders = tiled(data.borders.map((line) => feature('LineString', decoded(line))));
        const style = getComputedStyle(document.documentElement);
        this._colours = {};
        for (const name of ['land', 'coast', 'border'])
            this._colours[name] = style.getPropertyValue('--' + name).trim();
    },

    createTile: function (coords) {
        const size = this.getTileSize();
        const ratio = window.devicePixelRatio || 1;
        const canvas = document.createElement('canvas');
        canvas.width = Math.round(size.x * ratio);
        canvas.height = Math.round(size.y * ratio);
        canvas.setAttribute('aria-hidden', 'true');
        const context = canvas.getContext('2d');
        context.lineJoin = 'round';
        if (this._trace(context, this._land, coords, canvas.width)) {
            context.fillStyle = this._colours.land;
            context.fill('evenodd');
            context.strokeStyle = this._colours.coast;
            context.lineWidth = ratio;
            context.stroke();
        }
        if (this._trace(context, this._borders, coords, canvas.width)) {
            context.strokeStyle = this._colours.border;
            context.setLineDash([4 * ratio, 3 * ratio]);
            context.stroke();
        }
        return canvas;
    },

    _trace: function (context, index, coords, width) {
        const across = 2 ** coords.z;
        const tile = index.getTile(coords.z, ((coords.x % across) + across) % across, coords.y);
        if (!tile)
            return false;
        const scale = width / 4096;
        context.beginPath();
        for (const feature of tile.features) {
            for (const line of feature.geometry) {
                line.forEach(([x, y], i) => i === 0 ? context.moveTo(x * scale, y * scale)
                                                    : context.lineTo(x * scale, y * scale));
            }
        }
        return true;
    },
});
