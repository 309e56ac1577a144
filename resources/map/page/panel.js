// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// What lies on the map: the position's figures, a quiet notice, the follow button.
'use strict';

marvo.ReadoutControl = L.Control.extend({
    options: {position: 'topleft'},

    onAdd: function () {
        this._box = L.DomUtil.create('div', 'readout');
        L.DomEvent.disableClickPropagation(this._box); // its text can be selected
        this._position = L.DomUtil.create('div', 'readout-position', this._box);
        this._place = L.DomUtil.create('div', 'readout-place', this._box);
        this._box.hidden = true;
        return this._box;
    },

    /// Both null: nothing to show.
    show: function (position, placeText) {
        this._box.hidden = !position;
        if (!position)
            return;
        const part = (degrees, positive, negative) => Math.abs(degrees).toFixed(5) + '° '
            + (degrees < 0 ? negative : positive);
        this._position.textContent = part(position.lat, 'N', 'S') + '\u2002' + part(position.lng, 'E', 'W');
        this._place.textContent = placeText || '';
        this._place.hidden = !placeText;
    },
});

/// Leaflet's own, with the credits side by side in a line that a narrow panel has room for.
marvo.CreditsControl = L.Control.Attribution.extend({
    _update: function () {
        L.Control.Attribution.prototype._update.call(this);
        this._container.innerHTML = Object.keys(this._attributions)
            .filter((credit) => this._attributions[credit]).join(' · ');
    },
});

marvo.NoticeControl = L.Control.extend({
    options: {position: 'bottomleft'},

    onAdd: function () {
        this._box = L.DomUtil.create('div', 'notice');
        this._box.setAttribute('role', 'status');
        this._box.hidden = true;
        return this._box;
    },

    show: function (text) {
        if (this._box.textContent === text && this._box.hidden === !text)
            return;
        this._box.textContent = text;
        this._box.hidden = !text;
    },
});

marvo.FollowControl = L.Control.extend({
    options: {position: 'topright', text: '', changed: function () {}},

    onAdd: function () {
        this._button = L.DomUtil.create('button', 'follow');
        this._button.type = 'button';
        this._button.title = this.options.text;
        this._button.setAttribute('aria-label', this.options.text);
        const name = (tag) => document.createElementNS('http://www.w3.org/2000/svg', tag);
        const svg = name('svg');
        svg.setAttribute('viewBox', '0 0 24 24');
        const path = name('path');
        path.setAttribute('d', 'M12 2v4M12 18v4M2 12h4M18 12h4M12 6a6 6 0 1 0 0 12a6 6 0 1 0 0-12');
        const dot = name('circle');
        for (const [key, value] of [['cx', 12], ['cy', 12], ['r', 2.5]])
            dot.setAttribute(key, value);
        svg.append(path, dot);
        this._button.append(svg);
        L.DomEvent.disableClickPropagation(this._button);
        L.DomEvent.on(this._button, 'click', () => this.options.changed());
        return this._button;
    },

    show: function (following) {
        this._button.setAttribute('aria-pressed', String(following));
    },
});
