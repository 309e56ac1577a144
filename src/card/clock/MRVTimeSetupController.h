// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/clock/ClockCard.h"
#include "card/ClockFile.h"
#include "workers/Latest.h"

#include <QDate>
#include <QDialog>
#include <QTime>

#include <optional>
#include <string>
#include <system_error>

class QCalendarWidget;
class QCheckBox;
class QLabel;
class QPushButton;
class QTimeEdit;

namespace marvo {

class ClockFace;
class Disks;
class ElidedLabel;

/// The clock dialog. It writes a day and a time into the file from which the camera sets its clock: on the
/// card if it has that file, else where the user chooses.
class MRVTimeSetupController : public QDialog
{
    Q_OBJECT
public:
    /// The disks must outlive every window of the application.
    explicit MRVTimeSetupController(Disks& disks, QWidget* parent = nullptr);

    /// Path of the clock file on the card; none when no card holds one.
    const std::optional<std::string>& m_SettingFilePath() const { return m_card.clockFile; }
    QDate selectedDate() const { return m_selectedDate; }
    QTime selectedTime() const { return m_selectedTime; }

    /// Looks for the card again; emits cardLookedUp when done.
    void loadSettingFile();
    /// Writes the chosen date and time to the card's file, or asks where to save. Waits for a running
    /// look-up.
    void onSaveConfigFile();
    void onCloseCmd();

Q_SIGNALS:
    void cardLookedUp();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildWindow();
    void joinControls();
    void onInitDIalog();
    void cardFound(ClockCard card);
    void daySelectedFromPicker();
    void timeSelectedFromPicker(QTime time);
    void timeSelectedFromClickTimePicker(QTime time);
    void nowDayChecked(bool checked);
    void showSelectedDate();
    void updateNowDayTitle();
    void openSavePanel(const QString& proposedPath);
    void saveTo(const QString& chosenPath);
    void doWriteConfigFile(const std::string& path, ClockFilePlace place);
    void written(const std::string& path, const std::error_code& error);
    void setBusy(bool busy);
    ClockMoment moment() const;

    Disks& m_disks;
    Latest<ClockCard> m_lookUp{this}; ///< an older one may be blocked by a removed card
    Latest<std::error_code> m_write{this};
    ClockCard m_card;
    QDate m_selectedDate;
    QTime m_selectedTime;
    bool m_saveWhenFound = false;
    bool m_centred = false;

    QLabel* m_dateField = nullptr;
    QCalendarWidget* m_datePicker = nullptr;
    QCheckBox* m_nowDaySettingChk = nullptr;
    ClockFace* m_clockTimePicker = nullptr;
    QTimeEdit* m_timePicker = nullptr;
    ElidedLabel* m_targetField = nullptr;
    QLabel* m_wrongClockField = nullptr; ///< shown while the computer's clock is out of range
    QPushButton* m_saveButton = nullptr;
};

} // namespace marvo
