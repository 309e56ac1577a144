// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

namespace marvo {

/// Where the map's street tiles come from: an address with the places {z}, {x} and {y}, the "slippy map"
/// scheme.
struct MapTileSource
{
    QString address; ///< empty: no tiles, the base map alone
    QString attribution;

    /// The person's choice, from the settings "map/tileAddress" and "map/tileAttribution"; OpenStreetMap's
    /// own tiles where nothing is set. An address that is no http or https address with all three places
    /// gives no tiles.
    static MapTileSource fromSettings();

    /// The same rules for one address: {s} becomes the server "a", {r} nothing. Empty when it is not usable.
    static QString usableAddress(const QString& text);

    /// Whether a request is for this source: same scheme, host and port.
    bool serves(const QUrl& url) const;
};

} // namespace marvo
