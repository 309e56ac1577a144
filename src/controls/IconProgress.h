// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

#include <chrono>
#include <optional>
#include <vector>

namespace marvo {

/// The icon's drawing is 128 units wide and high, whatever it is drawn at.
inline constexpr double iconUnits = 128;
/// From one bar to the next, upwards from the icon's lower edge.
inline constexpr double iconRowHeight = 16;

/// One bar on the application's icon.
struct IconBar
{
    std::optional<double> fraction; ///< done, 0 to 1; none for work of unknown length
};

/// The pictures that the bars are cut out of. A missing one is replaced by a plain colour.
struct IconBarImages
{
    QPixmap blueBar;   ///< the part done, 128 units wide
    QPixmap greyBar;   ///< the rest, as wide
    QPixmap barberBar; ///< 160 units wide, its stripes repeat every 32

    static IconBarImages load();
};

/// How far the striped bar has moved: it glides on with the time between two drawings.
class BarberPole
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// The offset for a drawing at this time, in units, 0 to 32.
    double spin(TimePoint now);

private:
    double m_offset = 32;
    std::optional<TimePoint> m_lastSpin;
};

/// Draws the bars into a copy of the icon, the first one lowest. What does not fit on the icon is left out.
QPixmap iconWithBars(const QPixmap& icon, const std::vector<IconBar>& bars, const IconBarImages& images,
                     double barberOffset);

} // namespace marvo
