// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRect>
#include <QWidget>

#include <memory>

namespace marvo {

class MapView;

/// The map window that the driving-log views open: one position of a log entry on the map, in a window of its
/// own.
class MRVMapWindowController : public QObject
{
    Q_OBJECT

public:
    /// Makes the window, hidden, and chooses its page by the language that the product is built for.
    explicit MRVMapWindowController(QObject* parent = nullptr);
    ~MRVMapWindowController() override;

    QWidget* window() const { return m_window.get(); }
    MapView* mapWebView() const { return m_mapWebView; }

    /// Stands the window against the right edge of a rectangle (screen co-ordinates, frame included) with
    /// their top edges level; its size stays.
    void moveWindowRightBy(const QRect& rect);

    /// Shows a position, in signed decimal degrees: runs "setLatLag('%lf','%lf')", the longitude first.
    void updateMapLat(double latitude, double longitude);

    /// Shows the window and brings it to the front. The sender's window, when there is one, stays below it.
    void showWindow(QWidget* sender = nullptr);

private:
    void windowDidLoad();

    quint8 m_bKorean = 0; ///< 1: the page is "map2"; 0: "map2_eng".
    std::unique_ptr<QWidget> m_window;
    MapView* m_mapWebView;
};

} // namespace marvo
