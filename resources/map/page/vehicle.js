// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The car with its heading, the way driven so far and the whole route of the recording.
'use strict';

marvo.Vehicle = class {
    constructor(map) {
        this.map = map;
        const style = getComputedStyle(document.documentElement);
        const line = (pane, colour, weight) => L.polyline([], {
            pane, renderer: L.canvas({pane, padding: 0.3}), color: style.getPropertyValue(colour).trim(),
            weight, lineCap: 'round', lineJoin: 'round', smoothFactor: 1, interactive: false,
        }).addTo(map);
        this.way = line('way', '--way', 4);
        this.driven = line('driven', '--driven', 4);
        this.marker = L.marker([0, 0], {
            icon: L.divIcon({className: 'car', iconSize: [34, 34], html: marvo.Vehicle.drawing()}),
            interactive: false, keyboard: false,
        });
        this.clear();
    }

    /// A dot that becomes an arrowhead once the car's heading is known.
    static drawing() {
        const create = (name, attributes, parent) => {
            const element = document.createElementNS('http://www.w3.org/2000/svg', name);
            for (const key of Object.keys(attributes))
                element.setAttribute(key, attributes[key]);
            if (parent)
                parent.appendChild(element);
            return element;
        };
        const svg = create('svg', {viewBox: '-17 -17 34 34', width: 34, height: 34});
        create('circle', {r: 16, class: 'car-halo'}, svg);
        create('circle', {r: 7, class: 'car-dot'}, svg);
        create('path', {d: 'M0 -11.5 L8.5 9.5 L0 5 L-8.5 9.5 Z', class: 'car-arrow'}, svg);
        return svg;
    }

    get position() {
        return this.map.hasLayer(this.marker) ? this.marker.getLatLng() : null;
    }

    /// Forgets the recording: no car, no way.
    clear() {
        this.marker.remove();
        this.way.setLatLngs([]);
        this.driven.setLatLngs([]);
        this.segments = [];
        this.heading = null;
        this.headingFrom = null;
        this.last = null;
        this.points = 0;
    }

    moveTo(position) {
        if (this.extendDriven(position))
            this.driven.setLatLngs(this.segments);
        this.turnTo(position);
        this.marker.setLatLng(position);
        if (!this.map.hasLayer(this.marker))
            this.marker.addTo(this.map);
        const element = this.marker.getElement();
        element.classList.toggle('has-heading', this.heading !== null);
        element.classList.remove('lost');
        element.firstElementChild.style.transform = `rotate(${this.heading || 0}deg)`;
    }

    /// The position is no longer known: the car stays where it was last seen, faded.
    lose() {
        if (this.position)
            this.marker.getElement().classList.add('lost');
    }

    /// False when the car has not moved.
    extendDriven(position) {
        if (this.last && this.last.equals(position, 1e-9))
            return false;
        const gap = !this.last || marvo.geo.distance(this.last, position) > marvo.Vehicle.gapMetres;
        this.last = position;
        if (gap)
            this.segments.push([]);
        this.segments[this.segments.length - 1].push(position);
        // Hours of going back and forth must not grow without end: the oldest stretch goes.
        if (++this.points > marvo.Vehicle.mostPoints) {
            this.segments[0].shift();
            --this.points;
            if (this.segments[0].length === 0)
                this.segments.shift();
        }
        return true;
    }

    breakDriven() {
        this.last = null;
        this.headingFrom = null;
    }

    /// All at once what moveTo would have done one by one, but for showing the car.
    restoreDriven(positions) {
        for (const position of positions) {
            if (!position) {
                this.breakDriven();
                continue;
            }
            this.extendDriven(position);
            this.turnTo(position);
        }
        this.driven.setLatLngs(this.segments);
    }

    turnTo(position) {
        const from = this.headingFrom;
        const metres = from ? marvo.geo.distance(from, position) : Infinity;
        if (metres > marvo.Vehicle.gapMetres)
            this.heading = null;
        else if (metres >= marvo.Vehicle.headingMetres)
            this.heading = marvo.geo.bearing(from, position);
        else
            return; // standing still: a fix wanders by some metres
        this.headingFrom = position;
    }

    setWay(points) {
        const segments = [];
        let last = null;
        for (const [lng, lat] of points) {
            const position = marvo.parsedPosition(lng, lat);
            if (!position || marvo.isNoFix(position))
                continue;
            if (!last || marvo.geo.distance(last, position) > marvo.Vehicle.gapMetres)
                segments.push([]);
            segments[segments.length - 1].push(position);
            last = position;
        }
        this.way.setLatLngs(segments);
    }
};
marvo.Vehicle.gapMetres = 1000;
marvo.Vehicle.headingMetres = 4;
marvo.Vehicle.mostPoints = 20000;

/// What a receiver without a fix writes: out in the ocean, so no car has driven there from anywhere.
marvo.isNoFix = (position) => position.lat === 0 && position.lng === 0;

/// A L.LatLng of two numbers or decimal texts; null where they are not a place on the map.
marvo.parsedPosition = function (longitude, latitude) {
    const decimal = /^\s*[-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?\s*$/;
    if (!decimal.test(String(longitude)) || !decimal.test(String(latitude)))
        return null;
    const lng = Number(longitude);
    const lat = Number(latitude);
    return Math.abs(lng) <= 180 && Math.abs(lat) <= 90 ? L.latLng(lat, lng) : null;
};
