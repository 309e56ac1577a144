// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/IconProgress.h"

#include <QIcon>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace marvo {

class PMProgressIndicator;

/// Shows progress on the application's icon, one bar for each listed indicator, and reports it to the
/// desktop's launcher. Indicators list themselves (PMProgressIndicator::setDoubleValue
/// and setDrawDockProgress); nothing else needs to call this class. Main thread.
class PMProgressIndicatorController : public QObject
{
    Q_OBJECT
public:
    /// The delay before a drawing: shorter work never shows, and the icon is not drawn more often.
    static constexpr std::chrono::milliseconds redrawDelay{100};

    /// The process's controller. The first call makes it, with a copy of the application's icon. It is
    /// destroyed with the application.
    static PMProgressIndicatorController& sharedInstance();
    /// The same; null if there is none yet.
    static PMProgressIndicatorController* existingInstance();

    /// Adds an indicator unless it is listed, and draws anew 0.1 s later.
    void addProgressIndicator(const PMProgressIndicator& indicator);
    /// Takes an indicator out of the list, and draws anew 0.1 s later.
    void removeProgressIndicator(const PMProgressIndicator& indicator);
    /// What an indicator shows has changed: draws anew 0.1 s later if it is listed.
    void progressIndicatorChanged(const PMProgressIndicator& indicator);
    std::size_t numProgressIndicators() const { return m_progressIndicators.size(); }

    /// Draws the bars of all listed indicators into a copy of the icon, which becomes the application's; the
    /// plain icon when there are none. Repeats every 0.1 s while one of them is indeterminate.
    void drawProgressIndicators();
    /// Sets the plain icon back.
    void restoreIcon();

    /// Sets the callback for the launcher. It gets the fraction of the first listed indicator that has one,
    /// none when there is nothing to show, at each drawing that changes it.
    using Announcer = std::function<void(std::optional<double> fraction)>;
    void setAnnouncer(Announcer announcer) { m_announcer = std::move(announcer); }

private:
    explicit PMProgressIndicatorController(QObject* parent);

    bool isListed(const PMProgressIndicator& indicator) const;
    void redrawSoon();
    void announce(std::optional<double> fraction);

    std::vector<const PMProgressIndicator*> m_progressIndicators;
    QIcon m_dockIcon;
    QPixmap m_iconPicture; ///< what the bars are drawn into a copy of
    IconBarImages m_images;
    BarberPole m_barberPole;
    QTimer m_redraw;
    Announcer m_announcer;
    std::optional<double> m_announced;
    bool m_plain = true; ///< the application has its plain icon
};

} // namespace marvo
