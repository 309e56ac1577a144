// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "workers/Latest.h"

#include <QObject>
#include <QString>

#include <optional>
#include <string>

namespace marvo {

class Disks;

/// The camera's card in a reader, as something to be opened.
struct OfferedCard
{
    QString name;     ///< the volume's label
    std::string path; ///< where it is mounted, as bytes

    bool operator==(const OfferedCard&) const = default;
};

/// Of the volumes on USB the one that looks like the camera's card: its name, its settings file or one of its
/// recording folders tell. Asks the disks on the calling thread.
std::optional<OfferedCard> findOfferedCard(const Disks& disks);

/// Keeps an eye on the card reader, without keeping the window waiting for a card that does not answer.
class CardOffer : public QObject
{
    Q_OBJECT
public:
    /// The disks outlive the application; none stands for a machine without a reader.
    explicit CardOffer(Disks* disks);

    /// Looks now; cardChanged follows when the answer is a new one.
    void look();
    const std::optional<OfferedCard>& card() const { return m_card; }

Q_SIGNALS:
    void cardChanged();

private:
    Disks* m_disks;
    std::optional<OfferedCard> m_card;
    Latest<std::optional<OfferedCard>> m_look{this};
};

} // namespace marvo
