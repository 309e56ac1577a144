// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Graticule and names over the base map: one canvas somewhat larger than the view, which moves with the map and is
// drawn again only when the view leaves it.
'use strict';

marvo.LabelLayer = L.Layer.extend({
    options: {pane: 'labels', margin: 0.4},

    initialize: function (data, language, options) {
        L.setOptions(this, options);
        this._countries = data.countries.map(([x, y, zoom, english, korean]) => ({
            lng: x / data.perDegree, lat: y / data.perDegree, zoom, name: language === 'ko' ? korean : english,
        }));
        this._places = null;
        const style = getComputedStyle(document.documentElement);
        this._colour = (name) => style.getPropertyValue('--' + name).trim();
        this._font = getComputedStyle(document.body).fontFamily;
    },

    setPlaces: function (places) {
        this._places = places;
        this._draw();
    },

    onAdd: function (map) {
        this._canvas = L.DomUtil.create('canvas', 'leaflet-layer', this.getPane());
        this._canvas.setAttribute('aria-hidden', 'true');
        map.on('viewreset zoomend resize', this._draw, this);
        map.on('moveend', this._drawWhenOutside, this);
        this._draw();
    },

    onRemove: function (map) {
        this._canvas.remove();
        map.off('viewreset zoomend resize', this._draw, this);
        map.off('moveend', this._drawWhenOutside, this);
    },

    _drawWhenOutside: function () {
        const view = this._map.getPixelBounds();
        if (!this._drawn || this._zoom !== this._map.getZoom() || !this._drawn.contains(view))
            this._draw();
    },

    _draw: function () {
        const map = this._map;
        const size = map.getSize();
        const margin = size.multiplyBy(this.options.margin).round();
        const ratio = window.devicePixelRatio || 1;
        const full = size.add(margin.multiplyBy(2));
        this._zoom = map.getZoom();
        const view = map.getPixelBounds();
        this._drawn = L.bounds(view.min.subtract(margin), view.max.add(margin));
        this._canvas.width = Math.round(full.x * ratio);
        this._canvas.height = Math.round(full.y * ratio);
        this._canvas.style.width = full.x + 'px';
        this._canvas.style.height = full.y + 'px';
        L.DomUtil.setPosition(this._canvas, map.containerPointToLayerPoint(L.point(0, 0)).subtract(margin));

        const context = this._canvas.getContext('2d');
        context.scale(ratio, ratio);
        const bounds = L.latLngBounds(map.unproject(this._drawn.getBottomLeft()),
                                      map.unproject(this._drawn.getTopRight()));
        const at = (lat, lng) => map.project([lat, lng]).subtract(this._drawn.min);
        this._drawGraticule(context, bounds, full, at);
        this._drawNames(context, bounds, at);
    },

    _drawGraticule: function (context, bounds, size, at) {
        const steps = [30, 15, 10, 5, 2, 1, 0.5, 0.2, 0.1, 0.05, 0.02, 0.01, 0.005, 0.002, 0.001];
        const pixelsPerDegree = 256 * 2 ** this._zoom / 360;
        const step = steps.filter((degrees) => degrees * pixelsPerDegree >= 130).pop() || steps[0];
        const decimals = step >= 1 ? 0 : Math.ceil(-Math.log10(step) - 1e-9);
        const text = (degrees, positive, negative) => Math.abs(degrees).toFixed(decimals) + '°'
            + (Math.abs(degrees) < step / 2 ? '' : degrees > 0 ? positive : negative);
        const lines = (from, to, least, most) => {
            const values = [];
            for (let i = Math.ceil(Math.max(from, least) / step); i * step <= Math.min(to, most); ++i)
                values.push(i * step);
            return values;
        };
        const longitudes = lines(bounds.getWest(), bounds.getEast(), -540, 540);
        const latitudes = lines(bounds.getSouth(), bounds.getNorth(), -85, 85);
        const columns = longitudes.map((lng) => Math.round(at(0, lng).x) + 0.5);
        const rows = latitudes.map((lat) => Math.round(at(lat, 0).y) + 0.5);
        context.strokeStyle = this._colour('graticule');
        context.lineWidth = 1;
        context.beginPath();
        columns.forEach((x) => { context.moveTo(x, 0); context.lineTo(x, size.y); });
        rows.forEach((y) => { context.moveTo(0, y); context.lineTo(size.x, y); });
        context.stroke();

        context.fillStyle = this._colour('graticule-text');
        context.font = '10px ' + this._font;
        context.textAlign = 'center';
        const middles = (values) => values.slice(1).map((value, i) => (value + values[i]) / 2);
        rows.forEach((y, i) => middles(columns).forEach((x) =>
            context.fillText(text(latitudes[i], 'N', 'S'), x, y - 3)));
        columns.forEach((x, i) => middles(rows).forEach((y) => {
            const wrapped = ((longitudes[i] + 540) % 360 + 360) % 360 - 180;
            context.save();
            context.translate(x - 3, y);
            context.rotate(-Math.PI / 2);
            context.fillText(text(wrapped, 'E', 'W'), 0, 0);
            context.restore();
        }));
    },

    _drawNames: function (context, bounds, at) {
        const taken = [];
        const fits = (box) => taken.every((other) => box.left > other.right || box.right < other.left
                                              || box.top > other.bottom || box.bottom < other.top);
        const write = (text, x, y, align, font, colour) => {
            context.font = font + ' ' + this._font;
            const width = context.measureText(text).width;
            const left = align === 'center' ? x - width / 2 : x;
            const box = {left: left - 4, right: left + width + 4, top: y - 9, bottom: y + 9};
            if (!fits(box))
                return false;
            taken.push(box);
            context.textAlign = 'left';
            context.textBaseline = 'middle';
            context.strokeStyle = this._colour('halo');
            context.lineWidth = 3;
            context.lineJoin = 'round';
            context.strokeText(text, left, y);
            context.fillStyle = colour;
            context.fillText(text, left, y);
            return true;
        };
        if (this._zoom <= 7) {
            for (const country of this._countries) {
                if (country.zoom > this._zoom || !bounds.contains([country.lat, country.lng]))
                    continue;
                const {x, y} = at(country.lat, country.lng);
                write(country.name, x, y, 'center', '600 12px', this._colour('country-text'));
            }
        }
        if (this._zoom < 4 || !this._places)
            return;
        const highestRank = Math.min(8, this._zoom - 4);
        for (const place of this._places.within(bounds, highestRank).slice(0, 400)) {
            const {x, y} = at(place.lat, place.lng);
            const font = place.rank <= 1 ? '600 13px' : place.rank <= 4 ? '12px' : '11px';
            if (!write(this._places.name(place.index), x + 7, y, 'left', font, this._colour('place-text')))
                continue;
            context.fillStyle = this._colour('place-dot');
            context.beginPath();
            context.arc(x, y, place.rank <= 1 ? 3 : 2.2, 0, 2 * Math.PI);
            context.fill();
        }
    },
});
