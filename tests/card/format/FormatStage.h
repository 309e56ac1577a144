// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/disks/RootShell.h"
#include "card/disks/UDisks2Disks.h"
#include "card/format/MRVFormatWindowController.h"
#include "settings/SettingFile.h"

#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace marvo::testing {

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A card of usb-card-session.sh.
struct StageCard
{
    QString device; ///< "/dev/loop3p1"
    QString image;
    /// Of the disk service.
    QString key() const
    {
        return QStringLiteral("/org/freedesktop/UDisks2/block_devices/") + QFileInfo(device).fileName();
    }
    /// "/dev/loop3"
    QString disk() const { return device.endsWith(QLatin1String("p1")) ? device.chopped(2) : device; }
};

/// The format dialog of an ordinary user, beside a real disk service and an agent that answers for a
/// password.
class FormatStage
{
public:
    /// With the application already there; the process is an ordinary user's afterwards.
    bool begin()
    {
        m_root.run(QStringLiteral("mkdir -p -m 1777 /run/marvo/tmp; mkdir -p %1; chmod 755 %1 /run/marvo")
                       .arg(m_agentFolder));
        if (!RootShell::becomeOrdinaryUser())
            return false;
        m_root.run(QStringLiteral("%1 %2 %3 >%3/log 2>&1 &")
                       .arg(QStringLiteral(POLKIT_AGENT))
                       .arg(QCoreApplication::applicationPid())
                       .arg(m_agentFolder));
        m_disks = std::make_unique<UDisks2Disks>();
        return QTest::qWaitFor(
            [&] { return contentOf(m_agentFolder + QStringLiteral("/log")).contains("ready"); });
    }

    StageCard card(const char* label) const
    {
        const QStringList words = qEnvironmentVariable((QByteArray("MARVO_TEST_CARD_") + label).constData())
                                      .split(QLatin1Char(' '));
        return {words.value(0), words.value(1)};
    }
    /// Closes the dialog, puts every card back, has the agent say yes.
    void reset()
    {
        delete m_dialog;
        // The copies of settings that formatting leaves behind go with the session.
        qputenv("TMPDIR", "/run/marvo/tmp");
        m_root.run(QStringLiteral("rm -f %1/hook %1/asked; echo yes >%1/answer; export MTOOLS_SKIP_CHECK=1")
                       .arg(m_agentFolder));
        putBack();
    }
    /// Unmounts every card and puts it back into its reader.
    void putBack()
    {
        for (const char* label : {"WHOLE", "LARGE", "PART", "SMALL"}) {
            const StageCard card = this->card(label);
            QString found;
            m_root.run(
                QStringLiteral(
                    "while umount %1 2>/dev/null; do :; done; "
                    "{ losetup %2 >/dev/null 2>&1 && [ $(blockdev --getro %2) = 0 ]; } || "
                    "{ losetup %2 >/dev/null 2>&1 || losetup %2 %3; blockdev --setrw %2; echo changed; }")
                    .arg(card.device, card.disk(), card.image),
                &found);
            if (!found.isEmpty())
                trigger(card, "change");
        }
    }
    /// Mounts a card for this user.
    bool mount(const StageCard& card)
    {
        return !m_disks->deviceAccess()->mount(card.key(), {}) && QTest::qWaitFor([&] {
            const auto volumes = m_disks->deviceAccess()->formattableVolumes();
            return std::ranges::any_of(volumes, [&](const auto& volume) {
                return QString::fromStdString(volume.entity.deviceFilePath()) == card.device;
            });
        });
    }
    /// Puts bytes into a file at the root of a card that is not mounted.
    bool putFile(const StageCard& card, const QString& name, const QByteArray& bytes)
    {
        return m_root.run(
            QStringLiteral(
                "echo %1 | base64 -d >/run/marvo/file; mcopy -o -i %2 /run/marvo/file ::%3; sync %2")
                .arg(QString::fromLatin1(bytes.toBase64()), card.device, name));
    }
    /// The agent's next answers, and what it runs as administrator before.
    void setAnswer(const QString& answer, const QString& hook = {})
    {
        m_root.run(QStringLiteral("echo %2 >%1/answer").arg(m_agentFolder, answer));
        if (!hook.isEmpty())
            m_root.run(QStringLiteral("cat >%1/hook <<'HOOK'\n%2\nHOOK").arg(m_agentFolder, hook));
    }
    /// the actions that a password was asked for
    QString asked() const
    {
        return QString::fromUtf8(contentOf(m_agentFolder + QStringLiteral("/asked"))).trimmed();
    }
    /// A digest of the card's boot sector, its settings and the names of all that is on it.
    QString digest(const StageCard& card)
    {
        return m_root.output(
            QStringLiteral("{ head -c 512 %1; mtype -i %1 ::config.bin 2>/dev/null; mdir -b -/ "
                           "-i %1 :: 2>/dev/null; } | sha256sum")
                .arg(card.device));
    }
    /// Tells the disk service of a change of the card's device.
    void trigger(const StageCard& card, const char* action)
    {
        m_root.run(QStringLiteral("udevadm trigger --settle --action=%1 /sys/class/block/%2")
                       .arg(QLatin1String(action), QFileInfo(card.device).fileName()));
    }
    /// Takes the space from under a card's image, so that every write to it fails; gives it back.
    void breakMedium(const StageCard& card)
    {
        m_root.run(
            QStringLiteral("fallocate -p -o 0 -l 16M %1; head -c 64M /dev/zero >%1.filler 2>/dev/null; true")
                .arg(card.image));
    }
    void mendMedium(const StageCard& card) { m_root.run(QStringLiteral("rm -f %1.filler").arg(card.image)); }

    /// Opens the dialog with one card selected.
    MRVFormatWindowController* open(const StageCard& card)
    {
        m_dialog = new MRVFormatWindowController(*m_disks, newCameraSettings());
        QSignalSpy loaded(m_dialog, &MRVFormatWindowController::volumesLoaded);
        m_dialog->show();
        m_dialog->activateWindow();
        if (!loaded.wait() || !QTest::qWaitForWindowActive(m_dialog))
            return nullptr;
        m_dialog->selectUSBByDevFile(card.device.toStdString());
        return m_dialog;
    }
    template <typename Widget = QWidget>
    Widget* find(const char* name) const
    {
        return m_dialog ? m_dialog->findChild<Widget*>(QLatin1String(name)) : nullptr;
    }
    void click(const char* name) const
    {
        QVERIFY2(find(name), name);
        QTest::mouseClick(find(name), Qt::LeftButton);
    }
    /// Presses "Format" and confirms.
    void format() const
    {
        click("formatButton");
        QTRY_VERIFY(find("confirmButton"));
        QTRY_VERIFY(find("confirmButton")->isVisible());
        click("confirmButton");
    }
    /// Waits for a message, closes it and returns its two texts with a line end between.
    QString message() const
    {
        const auto box = [this] { return find<QMessageBox>("messageSheet"); };
        if (!QTest::qWaitFor([&] { return box() && box()->isVisible(); }, 20000))
            return QStringLiteral("no message");
        const QString text = box()->text() + QLatin1Char('\n') + box()->informativeText();
        QPointer<QMessageBox> shown = box();
        shown->accept();
        (void)QTest::qWaitFor([&] { return shown.isNull(); });
        return text;
    }

    UDisks2Disks& disks() { return *m_disks; }
    RootShell& root() { return m_root; }

private:
    RootShell m_root;
    QString m_agentFolder = QStringLiteral("/run/marvo/agent");
    std::unique_ptr<UDisks2Disks> m_disks;
    QPointer<MRVFormatWindowController> m_dialog;
};

} // namespace marvo::testing
