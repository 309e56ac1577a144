// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/format/MRVFormatWindowController.h"
#include "platform/RootShell.h"
#include "platform/UDisks2Disks.h"

#include <QMessageBox>
#include <QPointer>

#include <memory>

namespace marvo::testing {

/// A card of usb-card-session.sh.
struct StageCard
{
    QString device; ///< "/dev/loop3p1"
    QString image;
    QString key() const;  ///< of the disk service
    QString disk() const; ///< "/dev/loop3"
};

/// The format dialog of an ordinary user, beside a real disk service and an agent that answers for a
/// password.
class FormatStage
{
public:
    /// With the application already there; the process is an ordinary user's afterwards.
    bool begin();

    StageCard card(const char* label) const;
    /// Closes the dialog, puts every card back, has the agent say yes.
    void reset();
    /// Unmounts every card and puts it back into its reader.
    void putBack();
    /// Mounts a card for this user.
    bool mount(const StageCard& card);
    /// Puts bytes into a file at the root of a card that is not mounted.
    bool putFile(const StageCard& card, const QString& name, const QByteArray& bytes);
    /// The agent's next answers, and what it runs as administrator before.
    void setAnswer(const QString& answer, const QString& hook = {});
    QString asked() const; ///< the actions that a password was asked for
    /// A digest of the card's boot sector, its settings and the names of all that is on it.
    QString digest(const StageCard& card);
    /// Tells the disk service of a change of the card's device.
    void trigger(const StageCard& card, const char* action);
    /// Takes the space from under a card's image, so that every write to it fails; gives it back.
    void breakMedium(const StageCard& card);
    void mendMedium(const StageCard& card);

    /// Opens the dialog with one card selected.
    MRVFormatWindowController* open(const StageCard& card);
    template <typename Widget = QWidget>
    Widget* find(const char* name) const
    {
        return m_dialog ? m_dialog->findChild<Widget*>(QLatin1String(name)) : nullptr;
    }
    void click(const char* name) const;
    /// Presses "Format" and confirms.
    void format() const;
    /// Waits for a message, closes it and returns its two texts with a line end between.
    QString message() const;

    UDisks2Disks& disks() { return *m_disks; }
    RootShell& root() { return m_root; }

private:
    RootShell m_root;
    QString m_agentFolder = QStringLiteral("/run/marvo/agent");
    std::unique_ptr<UDisks2Disks> m_disks;
    QPointer<MRVFormatWindowController> m_dialog;
};

} // namespace marvo::testing
