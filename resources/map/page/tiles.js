// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Street tiles over the base map. A tile that does not come leaves the base map in sight and is asked for again.
'use strict';

/// The page may load pictures from the host of this address alone from now on.
marvo.allowTilesFrom = function (address) {
    const policy = document.createElement('meta');
    policy.httpEquiv = 'Content-Security-Policy';
    policy.content = "img-src 'self' data: " + new URL(address.replace(/[{}]/g, '')).origin;
    document.head.appendChild(policy);
};

/// Fires `tilesshown` with the first tile that came and `tilesmissing` when the first ones failed.
marvo.StreetTiles = L.TileLayer.extend({
    options: {maxZoom: 19, retryMs: 30000, className: 'street-tiles'},

    initialize: function (address, options) {
        L.TileLayer.prototype.initialize.call(this, address, options);
        this.shown = null; // not known yet
        this.on('tileload', () => this._tell(true));
        this.on('tileerror', ({tile, coords}) => {
            if (this.shown === null)
                this._tell(false);
            tile.style.visibility = 'hidden';
            setTimeout(() => {
                if (!tile.isConnected)
                    return;
                tile.onload = () => {
                    tile.style.visibility = '';
                    this._tell(true);
                };
                tile.src = this.getTileUrl(coords);
            }, this.options.retryMs);
        });
    },

    _tell: function (shown) {
        if (this.shown === shown)
            return;
        this.shown = shown;
        this.fire(shown ? 'tilesshown' : 'tilesmissing');
    },
});
