// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/CardContents.h"
#include "card/format/FormatJob.h"
#include "workers/Latest.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <stop_token>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace marvo {

class Disks;
class ElidedLabel;
class PMProgressIndicator;

/// The dialog that formats the camera's card: lists the cards in USB readers, asks, shows each step, and puts
/// the camera's settings and folders back on the new file system. While the card is being written it cannot
/// be closed.
class MRVFormatWindowController : public QDialog
{
    Q_OBJECT
public:
    /// The disks must outlive every window of the application.
    /// A card that never had settings gets those of a new camera, the bytes of its "config.bin".
    MRVFormatWindowController(Disks& disks, std::string newCameraSettings, QWidget* parent = nullptr);
    ~MRVFormatWindowController() override;

    /// Lists the cards anew on a worker; then the completion, if any, is called.
    void loadUSBVolumes(std::function<void()> completion = {});
    /// Selects the card of that device. None when it is not in the list.
    const FormattableVolume* selectUSBByDevFile(const std::string& deviceFilePath);
    const FormattableVolume* selectedUSBDisk() const;
    const std::vector<FormattableVolume>& usbDiskArray() const { return m_usbDiskArray; }

    void onFormat();
    /// Closes the dialog, or gives up what is under way and can still be given up.
    void cancel();
    void reject() override;

Q_SIGNALS:
    void volumesLoaded();
    /// The progress display shows another message.
    void stepShown(const QString& message, const QString& detail);
    /// The card's content has changed, successfully or not.
    void cardChanged();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    /// What is under way, by what closing the dialog does to it.
    enum class Work {
        None,
        CanBeAbandoned, ///< it is given up, the dialog stays
        CanBeLeft, ///< the dialog closes; the work gives up when the user has answered the system's question
        Abandoning,
        MustEnd
    };
    /// Empty where nothing went wrong.
    struct RestoreErrors
    {
        QString copy;
        QString check;

        static RestoreErrors outOfMemory()
        {
            const std::error_code error = std::make_error_code(std::errc::not_enough_memory);
            return {QString::fromStdString(error.message()), {}};
        }
    };

    void buildWindow();
    void volumesChanged();
    void updateSelectedDiskInfo();
    void changeDisk();
    void setWork(Work work);
    void askAndFormat(const FormattableVolume& volume);
    void showWarningSheet(const FormattableVolume& volume, const CardContents& contents);
    void doFormat(const FormattableVolume& volume, const std::optional<std::string>& settings);
    bool showStep(FormatStep step);
    void formatEnded(const FormattableVolume& volume, FormatOutcome outcome);
    void formatFailed(const FormattableVolume& volume, const FormatFailure& failure,
                      const std::optional<KeptSettings>& kept);
    void formatDidFinished(const FormattableVolume& volume, const std::optional<KeptSettings>& kept);
    void restored(const FormattableVolume& volume, const QString& copyError, const QString& checkError,
                  const std::optional<KeptSettings>& kept);
    void selectOnly(const std::string& deviceFilePath);
    std::optional<KeptSettings> earlierSettings(const FormattableVolume& volume) const;
    void rememberUnfinished(const FormattableVolume& volume, const std::optional<KeptSettings>& kept);
    void endWithMessage(const QString& title, const QString& message);
    void showProgressBar(const QString& message);
    void updateProgressBar(double totalSeconds);
    void hideProgressBar();
    void showMessage(const QString& message, const QString& detail);

    Disks& m_disks;
    std::string m_newCameraSettings;
    Latest<std::vector<FormattableVolume>> m_listingWork{this};
    Latest<CardContents> m_look{this};
    Latest<FormatOutcome> m_job{this};
    Latest<RestoreErrors> m_restore{this};
    std::stop_source m_stop;
    Work m_work = Work::None;
    bool m_stopProgressBar = true;
    double m_progress = 0;
    QTimer m_progressTimer;
    std::vector<FormattableVolume> m_usbDiskArray; ///< of the combo's items
    /// The device that was selected before the cards were listed anew, empty for none; none when there was no
    /// card.
    std::optional<std::string> m_selectedBefore;
    bool m_listing = false;
    bool m_listAgain = false;    ///< a card came or went meanwhile
    bool m_formatWanted = false; ///< the button was pressed meanwhile
    bool m_isAnswering = true;   ///< the disk service

    /// A card that a failed format has left without a file system or without its settings, and what these
    /// were.
    std::optional<FormattableVolume> m_erased;
    std::optional<KeptSettings> m_erasedSettings;

    QComboBox* m_usbDiskCombo = nullptr;
    QLabel* m_allocationUnitField = nullptr;
    QLabel* m_fileSystemField = nullptr;
    ElidedLabel* m_pathField = nullptr;
    QPushButton* m_formatButton = nullptr;
    QPushButton* m_cancelButton = nullptr;
    PMProgressIndicator* m_progressBar = nullptr;
    QLabel* m_progressMessageField = nullptr;
    QLabel* m_progressDetailField = nullptr;
    QLabel* m_hintField = nullptr;
};

} // namespace marvo
