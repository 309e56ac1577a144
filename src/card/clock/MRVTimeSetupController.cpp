// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/clock/MRVTimeSetupController.h"

#include "card/clock/ClockFace.h"
#include "card/clock/DateTexts.h"
#include "card/disks/Disks.h"
#include "controls/ElidedLabel.h"
#include "controls/MessageSheet.h"
#include "controls/WorkArea.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStandardPaths>
#include <QTextCharFormat>
#include <QTimeEdit>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logClock, "marvo.card")

using namespace std::chrono_literals;

// What a camera knows: FAT counts from 1980, and its clock has two digits for the year.
constexpr QDate firstDate = QDate::fromJulianDay(2'444'240); // 1 January 1980
constexpr QDate lastDate = QDate::fromJulianDay(2'488'069);  // 31 December 2099
constexpr auto checkedFor = 200ms;                           ///< the check box works as a button
const auto clockFileEnding = QStringLiteral(".cfg");

/// The calendar's default colours suit a light background only.
void useDarkColours(QCalendarWidget& calendar)
{
    QTextCharFormat weekend;
    weekend.setForeground(QColor(0xff, 0x7a, 0x70));
    QTextCharFormat weekday;
    weekday.setForeground(calendar.palette().color(QPalette::Text));
    const QList<Qt::DayOfWeek> working = calendar.locale().weekdays();
    for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
        const auto name = static_cast<Qt::DayOfWeek>(day);
        calendar.setWeekdayTextFormat(name, working.contains(name) ? weekday : weekend);
    }
    calendar.setStyleSheet(
        QStringLiteral("#qt_calendar_navigationbar { background: palette(button); }"
                       "#qt_calendar_navigationbar QToolButton { color: palette(button-text); border: none; "
                       "border-radius: 4px; padding: 3px 8px; }"
                       "#qt_calendar_navigationbar QToolButton:hover { background: palette(midlight); }"));
    for (const auto& [name, arrow] : {std::pair("qt_calendar_prevmonth", Qt::LeftArrow),
                                      std::pair("qt_calendar_nextmonth", Qt::RightArrow)}) {
        if (auto* button = calendar.findChild<QToolButton*>(QLatin1String(name)))
            button->setArrowType(arrow);
    }
}

QPushButton* dialogButton(const char* name, const char* key, QWidget* parent)
{
    auto* button = new QPushButton(localised(key), parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

} // namespace

MRVTimeSetupController::MRVTimeSetupController(Disks& disks, QWidget* parent)
    : QDialog(parent), m_disks(disks)
{
    setObjectName(QStringLiteral("MRVTimeSetupController"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(localised("clock.window_title"));
    buildWindow();
    joinControls();
    onInitDIalog();
    connect(&m_disks, &Disks::volumesChanged, this, &MRVTimeSetupController::loadSettingFile);
}

void MRVTimeSetupController::buildWindow()
{
    m_dateField = new QLabel(this);
    m_dateField->setObjectName(QStringLiteral("dateField"));
    QFont large = m_dateField->font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    large.setWeight(QFont::DemiBold);
    m_dateField->setFont(large);

    m_datePicker = new QCalendarWidget(this);
    m_datePicker->setObjectName(QStringLiteral("datePicker"));
    m_datePicker->setAccessibleName(localised("clock.date"));
    m_datePicker->setDateRange(firstDate, lastDate);
    m_datePicker->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    useDarkColours(*m_datePicker);
    if (auto* days = m_datePicker->findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"))) {
        days->installEventFilter(this);
        days->setMinimumHeight(7 * (fontMetrics().height() + 8)); // six weeks and the header
    }

    m_nowDaySettingChk = new QCheckBox(this);
    m_nowDaySettingChk->setObjectName(QStringLiteral("nowDaySettingChk"));

    m_clockTimePicker = new ClockFace(this);
    m_clockTimePicker->setObjectName(QStringLiteral("clockTimePicker"));
    m_clockTimePicker->setAccessibleName(localised("clock.face"));
    m_clockTimePicker->setToolTip(localised("clock.face_help"));

    m_timePicker = new QTimeEdit(this);
    m_timePicker->setObjectName(QStringLiteral("timePicker"));
    m_timePicker->setAccessibleName(localised("clock.time"));
    m_timePicker->setDisplayFormat(timeFormat(locale()));
    m_timePicker->setAlignment(Qt::AlignCenter);
    m_timePicker->setWrapping(true); // from 59 on to 0, as a clock goes
    m_timePicker->setMinimumWidth(150);

    auto* guide = new QLabel(localised("clock.guide"), this);
    guide->setWordWrap(true);
    guide->setForegroundRole(QPalette::PlaceholderText);
    m_targetField = new ElidedLabel(this);
    m_targetField->setObjectName(QStringLiteral("targetField"));
    m_targetField->setFullText(localised("clock.looking"));
    auto* notes = new QVBoxLayout;
    notes->setSpacing(4);
    notes->addWidget(guide);
    m_wrongClockField = new QLabel(localised("clock.wrong_clock").arg(QDate::currentDate().year()), this);
    m_wrongClockField->setObjectName(QStringLiteral("wrongClockField"));
    m_wrongClockField->setWordWrap(true);
    notes->addWidget(m_wrongClockField);
    notes->addWidget(m_targetField);
    m_saveButton = dialogButton("saveButton", "save", this);
    m_saveButton->setDefault(true);
    auto* cancelButton = dialogButton("cancelButton", "cancel", this);
    connect(m_saveButton, &QPushButton::clicked, this, &MRVTimeSetupController::onSaveConfigFile);
    connect(cancelButton, &QPushButton::clicked, this, &MRVTimeSetupController::onCloseCmd);
    connect(new QShortcut(Qt::CTRL | Qt::Key_W, this), &QShortcut::activated, this,
            &MRVTimeSetupController::onCloseCmd);

    auto* pickers = new QGridLayout;
    pickers->setHorizontalSpacing(24);
    pickers->setVerticalSpacing(10);
    pickers->addWidget(m_datePicker, 0, 0);
    pickers->addWidget(m_clockTimePicker, 0, 1);
    pickers->addWidget(m_nowDaySettingChk, 1, 0);
    pickers->addWidget(m_timePicker, 1, 1, Qt::AlignHCenter);
    pickers->setColumnStretch(0, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancelButton);
    buttons->addWidget(m_saveButton);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 16);
    layout->setSpacing(12);
    layout->addWidget(m_dateField);
    layout->addLayout(pickers, 1);
    layout->addLayout(notes);
    layout->addLayout(buttons);
    QWidget* const order[] = {m_datePicker, m_nowDaySettingChk, m_clockTimePicker,
                              m_timePicker, cancelButton,       m_saveButton};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void MRVTimeSetupController::joinControls()
{
    connect(m_datePicker, &QCalendarWidget::selectionChanged, this,
            &MRVTimeSetupController::daySelectedFromPicker);
    connect(m_timePicker, &QTimeEdit::timeChanged, this, &MRVTimeSetupController::timeSelectedFromPicker);
    connect(m_clockTimePicker, &ClockFace::timeChosen, this,
            &MRVTimeSetupController::timeSelectedFromClickTimePicker);
    connect(m_nowDaySettingChk, &QCheckBox::toggled, this, &MRVTimeSetupController::nowDayChecked);
}

void MRVTimeSetupController::onInitDIalog()
{
    loadSettingFile();
    const QDateTime now = QDateTime::currentDateTime();
    m_selectedDate = std::clamp(now.date(), firstDate, lastDate);
    m_wrongClockField->setVisible(m_selectedDate != now.date());
    m_selectedTime = QTime(now.time().hour(), now.time().minute(), now.time().second());
    m_clockTimePicker->setTime(m_selectedTime);
    const QSignalBlocker blocker(m_timePicker);
    m_timePicker->setTime(m_selectedTime);
    showSelectedDate();
    updateNowDayTitle();
}

void MRVTimeSetupController::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (m_centred)
        return;
    m_centred = true;
    centreInWorkArea(*this, size());
}

bool MRVTimeSetupController::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        // The calendar would take the key. It may, while a date is being typed.
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !watched->findChild<QLabel*>()) {
            m_saveButton->click();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void MRVTimeSetupController::loadSettingFile()
{
    m_lookUp.start([disks = &m_disks](const LatestRun&) { return findClockCard(*disks); },
                   [this](ClockCard card) { cardFound(std::move(card)); });
}

void MRVTimeSetupController::cardFound(ClockCard card)
{
    m_card = std::move(card);
    const QString path = m_card.clockFile ? displayText(*m_card.clockFile) : QString();
    m_targetField->setFullText(m_card.clockFile ? localised("clock.saved_on_card").arg(path)
                                                : localised("clock.asks_where"));
    Q_EMIT cardLookedUp();
    if (std::exchange(m_saveWhenFound, false))
        onSaveConfigFile();
}

void MRVTimeSetupController::showSelectedDate()
{
    const QSignalBlocker blocker(m_datePicker);
    m_datePicker->setSelectedDate(m_selectedDate);
    m_dateField->setText(fullDateText(m_selectedDate, locale()));
}

void MRVTimeSetupController::updateNowDayTitle()
{
    m_nowDaySettingChk->setText(
        QStringLiteral("%1(%2)").arg(localised("today"), mediumDateText(m_selectedDate, locale())));
}

void MRVTimeSetupController::daySelectedFromPicker()
{
    m_selectedDate = m_datePicker->selectedDate();
    showSelectedDate();
}

void MRVTimeSetupController::timeSelectedFromPicker(QTime time)
{
    m_selectedTime = time;
    m_clockTimePicker->setTime(time);
}

void MRVTimeSetupController::timeSelectedFromClickTimePicker(QTime time)
{
    m_selectedTime = time;
    const QSignalBlocker blocker(m_timePicker);
    m_timePicker->setTime(time);
}

void MRVTimeSetupController::nowDayChecked(bool checked)
{
    if (!checked)
        return;
    m_selectedDate = std::clamp(QDate::currentDate(), firstDate, lastDate);
    showSelectedDate();
    updateNowDayTitle();
    QTimer::singleShot(checkedFor, m_nowDaySettingChk,
                       [box = m_nowDaySettingChk] { box->setChecked(false); });
}

ClockMoment MRVTimeSetupController::moment() const
{
    return {.year = m_selectedDate.year(),
            .month = m_selectedDate.month(),
            .day = m_selectedDate.day(),
            .hour = m_selectedTime.hour(),
            .minute = m_selectedTime.minute(),
            .second = m_selectedTime.second()};
}

void MRVTimeSetupController::onSaveConfigFile()
{
    if (m_lookUp.isRunning()) {
        m_saveWhenFound = true;
        m_targetField->setFullText(localised("clock.looking"));
        return;
    }
    if (m_card.clockFile) {
        doWriteConfigFile(*m_card.clockFile, ClockFilePlace::Existing);
        return;
    }
    const QString folder = m_card.folder ? QFile::decodeName(m_card.folder->c_str())
                                         : QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    openSavePanel(QDir(folder).filePath(QStringLiteral("timeset")));
}

void MRVTimeSetupController::openSavePanel(const QString& proposedPath)
{
    auto* panel = new QFileDialog(this, localised("clock.save_title"), QFileInfo(proposedPath).path());
    panel->setObjectName(QStringLiteral("saveDialog"));
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setNameFilter(QStringLiteral("*%1").arg(clockFileEnding));
    panel->setDefaultSuffix(clockFileEnding.mid(1));
    panel->selectFile(QFileInfo(proposedPath).fileName());
    connect(panel, &QFileDialog::fileSelected, this, &MRVTimeSetupController::saveTo);
    panel->open();
}

void MRVTimeSetupController::saveTo(const QString& chosenPath)
{
    if (chosenPath.endsWith(clockFileEnding, Qt::CaseInsensitive)) {
        doWriteConfigFile(QFile::encodeName(chosenPath).toStdString(), ClockFilePlace::Any);
        return;
    }
    // The camera takes no other type. The panel has asked about replacing the file without the ending only.
    const QString path = chosenPath + clockFileEnding;
    if (QFileInfo::exists(path))
        openSavePanel(path);
    else
        doWriteConfigFile(QFile::encodeName(path).toStdString(), ClockFilePlace::Any);
}

void MRVTimeSetupController::doWriteConfigFile(const std::string& path, ClockFilePlace place)
{
    setBusy(true);
    m_write.start(
        [path, place, moment = moment()](const LatestRun&) { return writeClockFile(path, moment, place); },
        [this, path](const std::error_code& error) { written(path, error); });
}

void MRVTimeSetupController::written(const std::string& path, const std::error_code& error)
{
    setBusy(false);
    if (error) {
        qCWarning(logClock, "the clock file %s was not written: %s", path.c_str(), error.message().c_str());
        showMessageSheet(this, QStringLiteral("Warn"), localised("msg.write_protected_disk"));
        return;
    }
    showAlertSheet(this, QStringLiteral("MARVO"), QStringLiteral("저장되었습니다"), [this] { onCloseCmd(); });
}

void MRVTimeSetupController::setBusy(bool busy)
{
    for (QWidget* control : {static_cast<QWidget*>(m_datePicker), static_cast<QWidget*>(m_nowDaySettingChk),
                             static_cast<QWidget*>(m_clockTimePicker), static_cast<QWidget*>(m_timePicker),
                             static_cast<QWidget*>(m_saveButton)})
        control->setEnabled(!busy);
}

void MRVTimeSetupController::onCloseCmd() { close(); }

} // namespace marvo
