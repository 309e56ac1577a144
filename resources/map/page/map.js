// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The page put together, and what the application may call: setLatLag, MRVDebug and the operations of marvoMap.
'use strict';

marvo.MapPage = class {
    constructor() {
        this.texts = document.body.dataset;
        this.language = document.documentElement.lang;
        this.following = true;
        this.zoomChosen = false; // the person has zoomed: the zoom stays theirs
        this.tiles = null;
        this.streets = true; // until it turns out that none come
        this.places = null;
        this.nearestFrom = null;
        this.nearestText = '';
        this.createMap();
        this.createControls();
        this.vehicle = new marvo.Vehicle(this.map);
        this.showFollowing();
    }

    createMap() {
        const map = L.map('map', {
            zoomControl: false, attributionControl: false, preferCanvas: true, keyboard: false, boxZoom: false,
            fadeAnimation: false, zoomAnimation: false, markerZoomAnimation: false, inertia: false,
            minZoom: 2, maxZoom: 19, worldCopyJump: false, maxBounds: [[-85, -540], [85, 540]],
            maxBoundsViscosity: 1,
        });
        // From the bottom up; Leaflet's own panes: tiles 200, markers 600.
        for (const [name, order] of [['base', 150], ['labels', 160], ['way', 410], ['driven', 420]]) {
            map.createPane(name).style.zIndex = order;
            map.getPane(name).style.pointerEvents = 'none';
        }
        map.setView([28, 60], 2);
        map.on('dragstart', () => this.follow(false));
        // A zoom that the page did not make itself was made by the person.
        map.on('zoomend', () => {
            if (!this.zooming)
                this.zoomChosen = true;
        });
        this.map = map;
    }

    createControls() {
        const {texts, map} = this;
        this.readout = new marvo.ReadoutControl().addTo(map);
        L.control.zoom({position: 'topright', zoomInText: '', zoomOutText: '', zoomInTitle: texts.zoomIn,
                        zoomOutTitle: texts.zoomOut}).addTo(map);
        this.followControl = new marvo.FollowControl({
            text: texts.follow, changed: () => this.follow(!this.following),
        }).addTo(map);
        this.attribution = new marvo.CreditsControl({position: 'bottomright', prefix: false}).addTo(map);
        L.control.scale({position: 'bottomleft', imperial: false, maxWidth: 90}).addTo(map);
        this.notice = new marvo.NoticeControl().addTo(map);
    }

    /// The offline map: land, borders, graticule, names of countries.
    addLand(data) {
        new marvo.BaseMapLayer(data).addTo(this.map);
        this.labels = new marvo.LabelLayer(data, this.language).addTo(this.map);
        this.attribution.addAttribution('Natural Earth');
    }

    addPlaces(data) {
        this.places = new marvo.Places(data, this.language);
        this.labels.setPlaces(this.places);
        this.attribution.addAttribution(
            '<a href="https://www.geonames.org/">GeoNames</a> '
            + '<a href="https://creativecommons.org/licenses/by/4.0/">CC BY 4.0</a>');
        this.showReadout();
    }

    /// Street tiles from an address with {z}, {x} and {y}; an empty one: the base map alone.
    setTiles({address, attribution}) {
        if (this.tiles)
            return;
        this.streets = address !== '';
        if (this.streets) {
            marvo.allowTilesFrom(address);
            this.tiles = new marvo.StreetTiles(address, {});
            // The person's own source has a page of its own, which nobody knows here.
            const isOpenStreetMap = /^https?:\/\/([^/]*\.)?openstreetmap\.org\//.test(address);
            const credit = document.createElement(isOpenStreetMap ? 'a' : 'span');
            if (isOpenStreetMap)
                credit.href = 'https://www.openstreetmap.org/copyright';
            credit.textContent = attribution;
            this.tiles.on('tilesshown tilesmissing', () => {
                this.attribution.removeAttribution(credit.outerHTML);
                if (this.tiles.shown)
                    this.attribution.addAttribution(credit.outerHTML);
                this.streets = this.tiles.shown;
                this.adaptZoom();
            });
            this.tiles.addTo(this.map);
        }
        this.adaptZoom();
    }

    /// The recording's own way fits, wherever on it the car is. Without one: streets can be read closely; without
    /// them a wider view says more.
    get usualZoom() {
        return this.wayZoom || (this.streets ? 15 : 12);
    }

    adaptZoom() {
        if (!this.zoomChosen && this.vehicle.position && this.map.getZoom() !== this.usualZoom)
            this.zoomTo(this.vehicle.position);
    }

    zoomTo(position) {
        this.zooming = true;
        this.map.setView(position, this.usualZoom, {animate: false});
        this.zooming = false;
    }

    setPosition(position) {
        const {vehicle, map} = this;
        if (marvo.isNoFix(position) && vehicle.position
            && marvo.geo.distance(vehicle.position, position) > marvo.Vehicle.gapMetres) {
            vehicle.lose();
            this.notice.show(this.texts.noFix);
            return;
        }
        const first = !this.located;
        this.located = true;
        vehicle.moveTo(position);
        this.notice.show('');
        this.showReadout();
        if (first && !this.zoomChosen)
            this.zoomTo(position);
        else if (this.following)
            map.panTo(position, {animate: false});
    }

    follow(following) {
        this.following = following;
        this.showFollowing();
        if (following && this.vehicle.position)
            this.map.panTo(this.vehicle.position, {animate: false});
    }

    showFollowing() {
        this.followControl.show(this.following);
        // While following, the wheel must not push the car out of the middle.
        for (const option of ['scrollWheelZoom', 'doubleClickZoom', 'touchZoom'])
            this.map.options[option] = this.following ? 'center' : true;
    }

    showReadout() {
        const position = this.vehicle.position;
        this.readout.show(position, position && this.placeText(position));
    }

    /// Such as "2.1 km SW of Suwon"; looked up again after 100 m.
    placeText(position) {
        if (!this.places)
            return '';
        if (this.nearestFrom && marvo.geo.distance(this.nearestFrom, position) < 100)
            return this.nearestText;
        this.nearestFrom = position;
        const found = this.places.nearest(position);
        if (!found)
            return this.nearestText = '';
        const directions = this.texts.directions.split(' ');
        const bearing = marvo.geo.bearing(L.latLng(found.place.lat, found.place.lng), position);
        const kilometres = found.distance / 1000;
        const name = this.places.name(found.place.index);
        this.nearestText = kilometres < 0.3 ? name : this.texts.place
            .replace('{distance}', `${kilometres.toFixed(kilometres < 10 ? 1 : 0)} km`)
            .replace('{direction}', directions[Math.round(bearing / 45) % 8])
            .replace('{name}', () => name);
        return this.nearestText;
    }

    setWay(points) {
        this.vehicle.setWay(points);
        const bounds = this.vehicle.way.getBounds();
        this.wayZoom = bounds.isValid()
            ? Math.max(3, Math.min(marvo.MapPage.closestZoom, this.map.getBoundsZoom(bounds.pad(0.5)))) : null;
        if (this.following)
            this.adaptZoom();
        if (!this.vehicle.position && bounds.isValid() && this.following && !this.zoomChosen) {
            this.zooming = true;
            this.map.fitBounds(bounds, {animate: false, maxZoom: this.usualZoom, padding: [30, 30]});
            this.zooming = false;
        }
    }

    newRecording() {
        this.vehicle.clear();
        this.wayZoom = null;
        this.located = false;
        this.follow(true);
        this.notice.show('');
        this.showReadout();
    }
};

marvo.MapPage.closestZoom = 16;

marvo.page = new marvo.MapPage();

/// Shows a position: two decimal texts in signed degrees. Texts that are no position are ignored.
function setLatLag(longitude, latitude)
{
    const position = marvo.parsedPosition(longitude, latitude);
    if (position)
        marvo.page.setPosition(position);
}

/// Diagnostics of the application. One of them the person should know about too.
function MRVDebug(message)
{
    console.log('MRVDebug: ' + message);
    if (message === 'GPS Data Count=Zero')
        marvo.page.notice.show(marvo.page.texts.noGps);
}

/// What the application can ask for beyond these two.
var marvoMap = {
    /// {address, attribution}: where street tiles come from.
    setTiles(tiles) { marvo.page.setTiles(tiles); },
    /// [[longitude, latitude], ...]: the whole route of the recording, drawn faintly.
    setWay(points) { marvo.page.setWay(points); },
    /// Another recording begins: its way starts anew.
    newRecording() { marvo.page.newRecording(); },
    /// The car goes on elsewhere: no line leads there.
    breakDriven() { marvo.page.vehicle.breakDriven(); },
    /// Back to the car, wherever the person has dragged the map.
    follow() { marvo.page.follow(true); },
    /// [[longitude, latitude], ...]: the way driven before the page had to be loaded again; null where it breaks.
    restoreDriven(points) {
        marvo.page.vehicle.restoreDriven(points
            .map((point) => point && marvo.parsedPosition(...point))
            .filter((position) => position === null || !marvo.isNoFix(position)));
    },
};

// The base map is large and the page can answer without it, so it comes after the first paint, land before names.
window.addEventListener('load', () => {
    const load = (name, then) => {
        const script = document.createElement('script');
        script.src = 'data/' + name;
        script.onload = then;
        document.head.appendChild(script);
    };
    load('baseMapLand.js', () => {
        marvo.page.addLand(marvoLand);
        window.marvoLand = null;
        load('baseMapPlaces.js', () => {
            marvo.page.addPlaces(marvoPlaces);
            window.marvoPlaces = null;
        });
    });
});
