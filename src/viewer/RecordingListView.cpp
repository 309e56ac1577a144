// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/RecordingListView.h"

#include "texts/Localisation.h"
#include "viewer/RecordingRowDelegate.h"
#include "viewer/RecordingTableModel.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace marvo {

namespace {

constexpr int listRowHeight = 30;
constexpr int headerHeight = 28;
constexpr int iconWidth = 20;
constexpr int leastFileWidth = 48;

} // namespace

RecordingListView::RecordingListView(QWidget* parent)
    : QTableView(parent),
      m_emptyState(new QWidget(viewport())),
      m_emptyTitle(new QLabel(m_emptyState)),
      m_emptyText(new QLabel(m_emptyState)),
      m_openButton(new QPushButton(m_emptyState)),
      m_scanLine(new QLabel(viewport()))
{
    setObjectName(QStringLiteral("mediaListTableView"));
    setAccessibleName(localised("viewer.list.name"));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setIconSize({iconWidth, 16});
    setCornerButtonEnabled(false);
    setItemDelegate(new RecordingRowDelegate(this));

    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(listRowHeight);
    verticalHeader()->setDefaultSectionSize(listRowHeight);
    horizontalHeader()->setFixedHeight(headerHeight);
    horizontalHeader()->setMinimumSectionSize(leastFileWidth);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);

    m_emptyTitle->setObjectName(QStringLiteral("listEmptyTitle"));
    m_emptyText->setObjectName(QStringLiteral("listEmptyText"));
    for (QLabel* label : {m_emptyTitle, m_emptyText}) {
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
    }
    m_openButton->setObjectName(QStringLiteral("listOpenButton"));
    m_openButton->setText(localised("viewer.command.openMediaDirectoryDialog"));
    m_openButton->setAutoDefault(false);
    auto* column = new QVBoxLayout(m_emptyState);
    column->setContentsMargins(24, 0, 24, 0);
    column->setSpacing(10);
    column->addStretch();
    column->addWidget(m_emptyTitle);
    column->addWidget(m_emptyText);
    column->addSpacing(8);
    column->addWidget(m_openButton, 0, Qt::AlignHCenter);
    column->addStretch();
    m_emptyState->hide();

    m_scanLine->setObjectName(QStringLiteral("listScanLine"));
    m_scanLine->setAlignment(Qt::AlignCenter);
    m_scanLine->hide();
}

void RecordingListView::setModel(QAbstractItemModel* model)
{
    QTableView::setModel(model);
    using Model = RecordingTableModel;
    for (const int column : {Model::SaveMode, Model::Date, Model::Time})
        horizontalHeader()->setSectionResizeMode(column, QHeaderView::Interactive);
    horizontalHeader()->setSectionResizeMode(Model::File, QHeaderView::Stretch);
    layoutColumns();
}

/// Kind, date and time get what their widest text takes; the file name has the rest, its middle left out.
void RecordingListView::layoutColumns()
{
    if (!model())
        return;
    using Model = RecordingTableModel;
    ensurePolished();
    QFont cells = font();
    cells.setPointSize(RecordingTableModel::fontPointSize);
    const QFontMetrics cell(cells);
    const QFontMetrics head(horizontalHeader()->font());
    const int textMargins = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    const auto fit = [&](int column, const QStringList& texts, int extra) {
        int width = head.horizontalAdvance(model()->headerData(column, Qt::Horizontal).toString());
        for (const QString& text : texts)
            width = std::max(width, cell.horizontalAdvance(text) + extra);
        setColumnWidth(column, width + textMargins + 1);
    };
    fit(Model::SaveMode,
        {localised("media.always"), localised("media.motion"), localised("media.event"),
         localised("media.unknown")},
        iconWidth + textMargins);
    fit(Model::Date, {QStringLiteral("2000-00-00")}, 0);
    fit(Model::Time, {QStringLiteral("00:00:00")}, 0);
}

void RecordingListView::selectOnlyRow(std::int64_t row)
{
    if (!model() || row < 0 || row >= model()->rowCount())
        return clearSelection();
    const QModelIndex index = model()->index(static_cast<int>(row), 0);
    setCurrentIndex(index);
    selectRow(index.row());
    scrollTo(index);
}

std::int64_t RecordingListView::selectedRow() const
{
    const QModelIndexList rows = selectionModel() ? selectionModel()->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? -1 : rows.front().row();
}

void RecordingListView::setOpenCommand(QAction* openFolder)
{
    connect(m_openButton, &QPushButton::clicked, openFolder, &QAction::trigger);
}

void RecordingListView::showEmptyState(const QString& title, const QString& text)
{
    m_scanLine->hide();
    m_emptyTitle->setText(title);
    m_emptyText->setText(text);
    m_emptyState->show();
    placeStatus();
}

void RecordingListView::showNoFolder()
{
    showEmptyState(localised("viewer.list.noFolder"), localised("viewer.list.noFolderHelp"));
}

void RecordingListView::showScanning(std::int64_t found)
{
    m_emptyState->hide();
    m_scanLine->setText(localised("viewer.list.scanning").arg(QLocale().toString(qint64(found))));
    m_scanLine->show();
    placeStatus();
}

void RecordingListView::showRecordings()
{
    if (!model() || model()->rowCount() == 0)
        return showEmptyState(localised("viewer.list.empty"), localised("viewer.list.emptyHelp"));
    m_scanLine->hide();
    m_emptyState->hide();
}

void RecordingListView::showUnreadable(const QString& reason)
{
    showEmptyState(localised("viewer.list.unreadable"), localised("viewer.list.unreadableHelp").arg(reason));
}

QString RecordingListView::statusText() const
{
    if (!m_scanLine->isHidden())
        return m_scanLine->text();
    return m_emptyState->isHidden() ? QString() : m_emptyTitle->text();
}

void RecordingListView::placeStatus()
{
    m_emptyState->setGeometry(viewport()->rect());
    if (m_scanLine->isHidden())
        return;
    const QSize size = m_scanLine->sizeHint();
    m_scanLine->setGeometry((viewport()->width() - size.width()) / 2,
                            viewport()->height() - size.height() - 12, size.width(), size.height());
    m_scanLine->raise();
}

bool RecordingListView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            event->accept();
            return true;
        default:
            break;
        }
    }
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        layoutColumns();
    return QTableView::event(event);
}

void RecordingListView::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && selectedRow() >= 0) {
        Q_EMIT rowActivated(selectedRow());
        return;
    }
    QTableView::keyPressEvent(event);
}

void RecordingListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid())
        Q_EMIT rowActivated(index.row());
}

void RecordingListView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    placeStatus();
}

void RecordingListView::showEvent(QShowEvent* event)
{
    layoutColumns();
    QTableView::showEvent(event);
    placeStatus();
}

} // namespace marvo
