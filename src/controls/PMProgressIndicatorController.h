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

/// Shows the progress of all that takes long on the application's icon, a bar for each indicator in its list,
/// and tells it to the desktop's launcher. Indicators list themselves (PMProgressIndicator::setDoubleValue
/// and setDrawDockProgress); nothing else needs to call this class. Main thread.
class PMProgressIndicatorController : public QObject
{
    Q_OBJECT
public:
    /// Work that is over sooner never reaches the icon; and it is not drawn more often.
    static constexpr std::chrono::milliseconds redrawDelay{100};

    /// The one of the process, made at the first call with a copy of the icon that the application has then.
    /// It ends with the application.
    static PMProgressIndicatorController& sharedInstance();
    /// The same, without making one.
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

    /// Who is told of the progress beside the icon: the fraction of the first listed indicator that has one,
    /// none when there is nothing to show. Told at each drawing that changes it.
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
