// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/list/RecordingListView.h"

#include "controls/InterfaceScale.h"
#include "controls/PMProgressIndicator.h"
#include "media/RecordingKinds.h"
#include "texts/Localisation.h"
#include "viewer/list/RecordingFilter.h"
#include "viewer/list/RecordingRowDelegate.h"
#include "viewer/list/RecordingTableModel.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>

namespace marvo {

namespace {

constexpr int listRowHeight = 30;
constexpr int headerHeight = 28;
constexpr int iconWidth = 20;
constexpr int leastFileWidth = 48;
constexpr int scanBarHeight = 4;
constexpr int scanBarInset = 14; ///< as far as the line's text

} // namespace

RecordingListView::RecordingListView(QWidget* parent)
    : QTableView(parent),
      m_filter(new RecordingFilter(this)),
      m_emptyState(new ListEmptyState(viewport())),
      m_scanLine(new QLabel(viewport())),
      m_scanProgress(new PMProgressIndicator(m_scanLine))
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
    verticalHeader()->setMinimumSectionSize(scaledLength(listRowHeight));
    verticalHeader()->setDefaultSectionSize(scaledLength(listRowHeight));
    horizontalHeader()->setFixedHeight(scaledLength(headerHeight));
    horizontalHeader()->setMinimumSectionSize(leastFileWidth);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);

    m_emptyState->hide();

    m_scanLine->setObjectName(QStringLiteral("listScanLine"));
    m_scanLine->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_scanProgress->setObjectName(QStringLiteral("listScanProgress"));
    m_scanProgress->setIndeterminate(true);
    m_scanLine->hide();
}

void RecordingListView::setModel(QAbstractItemModel* model)
{
    m_filter->setSourceModel(model);
    QTableView::setModel(m_filter);
    using Model = RecordingTableModel;
    for (const int column : {Model::SaveMode, Model::Date, Model::Time})
        horizontalHeader()->setSectionResizeMode(column, QHeaderView::Interactive);
    horizontalHeader()->setSectionResizeMode(Model::File, QHeaderView::Stretch);
    layoutColumns();
}

/// Kind, date and time get what their widest text takes; the file name has the rest, its middle left out.
/// Where that is too little for the ending, which tells the camera, the kind's text gives way: its icon
/// stays.
void RecordingListView::layoutColumns()
{
    if (!model())
        return;
    using Model = RecordingTableModel;
    ensurePolished();
    QFont cells = font();
    cells.setPointSizeF(scaledPoints(RecordingTableModel::fontPointSize));
    const QFontMetrics cell(cells);
    const QFontMetrics head(horizontalHeader()->font());
    const int textMargins = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    const auto fit = [&](int column, const QStringList& texts, int extra) {
        int width = head.horizontalAdvance(model()->headerData(column, Qt::Horizontal).toString());
        for (const QString& text : texts)
            width = std::max(width, cell.horizontalAdvance(text) + extra);
        setColumnWidth(column, width + textMargins + 1);
    };
    QStringList kinds{localised("media.unknown")};
    for (const RecordingKind& kind : recordingKinds)
        kinds.append(localised(kind.labelKey));
    fit(Model::SaveMode, kinds, iconWidth + textMargins);
    fit(Model::Date, {QStringLiteral("2000-00-00")}, 0);
    fit(Model::Time, {QStringLiteral("00:00:00")}, 0);

    const int file = leastFileNameWidth(cell) + textMargins + 1;
    const int left = viewport()->width() - columnWidth(Model::Date) - columnWidth(Model::Time) - file;
    const int least = iconWidth + 2 * textMargins;
    setColumnWidth(Model::SaveMode, std::clamp(left, least, std::max(least, columnWidth(Model::SaveMode))));
}

int RecordingListView::allRows() const
{
    return m_filter->sourceModel() ? m_filter->sourceModel()->rowCount() : 0;
}

void RecordingListView::selectOnlyRow(std::int64_t row)
{
    const QModelIndex shown =
        row >= 0 && row < allRows()
            ? m_filter->mapFromSource(m_filter->sourceModel()->index(static_cast<int>(row), 0))
            : QModelIndex();
    if (!shown.isValid())
        return clearSelection();
    setCurrentIndex(shown);
    selectRow(shown.row());
    scrollTo(shown);
}

std::int64_t RecordingListView::selectedRow() const
{
    const QModelIndexList rows = selectionModel() ? selectionModel()->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? -1 : m_filter->mapToSource(rows.front()).row();
}

void RecordingListView::stepSelection(int rows)
{
    const int count = m_filter->rowCount();
    if (count == 0)
        return;
    const QModelIndexList selected = selectionModel()->selectedRows();
    const int next = selected.isEmpty() ? 0 : std::clamp(selected.front().row() + rows, 0, count - 1);
    setCurrentIndex(m_filter->index(next, 0));
    selectRow(next);
}

void RecordingListView::activateSelection()
{
    if (selectedRow() >= 0)
        Q_EMIT rowActivated(selectedRow());
}

void RecordingListView::setSearch(const QString& text)
{
    m_filter->setSearch(text);
    filterChanged();
}

void RecordingListView::setKinds(unsigned kinds)
{
    m_filter->setKinds(kinds);
    filterChanged();
}

void RecordingListView::filterChanged()
{
    const int shown = m_filter->rowCount();
    if (allRows() > 0 && m_scanLine->isHidden())
        showRecordings();
    const auto* recordings = qobject_cast<const RecordingTableModel*>(m_filter->sourceModel());
    if (m_filter->isFiltering() && shown > 0 && selectedRow() < 0)
        stepSelection(0); // so that the Enter key has something to play
    else if (!m_filter->isFiltering() && recordings && recordings->playingRow() >= 0)
        scrollTo(m_filter->mapFromSource(recordings->index(static_cast<int>(recordings->playingRow()), 0)));
    else if (selectedRow() >= 0)
        scrollTo(currentIndex());
    Q_EMIT shownRowsChanged(shown, allRows());
}

void RecordingListView::setOpenCommand(QAction* openFolder)
{
    connect(m_emptyState, &ListEmptyState::openRequested, openFolder, &QAction::trigger);
}

void RecordingListView::showEmptyState(const QString& title, const QString& text, ListEmptyState::Offer offer)
{
    endScanning();
    m_emptyState->tell(title, text, offer);
    m_emptyState->show();
    horizontalHeader()->hide(); // titles of columns that there are not
    placeStatus();
}

void RecordingListView::showNoFolder()
{
    showEmptyState(localised("viewer.list.noFolder"), localised("folders.firstSteps"),
                   ListEmptyState::Offer::OpenFolder);
}

void RecordingListView::showScanning(std::int64_t found)
{
    m_emptyState->hide();
    if (m_scanLine->isHidden()) {
        m_scanProgress->startAnimation();
        m_scanProgress->setDrawDockProgress(true);
    }
    m_scanLine->setText(localised("viewer.list.scanning").arg(QLocale().toString(qint64(found))));
    m_scanLine->show();
    placeStatus();
}

void RecordingListView::endScanning()
{
    m_scanProgress->stopAnimation();
    m_scanProgress->setDrawDockProgress(false);
    m_scanLine->hide();
}

void RecordingListView::showRecordings()
{
    if (allRows() == 0)
        return showEmptyState(localised("viewer.list.empty"), localised("viewer.list.emptyHelp"),
                              ListEmptyState::Offer::OpenFolder);
    if (m_filter->rowCount() == 0)
        return showEmptyState(localised("folders.nothingFound"), localised("folders.nothingFoundHelp"),
                              ListEmptyState::Offer::ShowAll);
    endScanning();
    m_emptyState->hide();
    horizontalHeader()->show();
}

void RecordingListView::showUnreadable(const QString& reason)
{
    showEmptyState(localised("viewer.list.unreadable"), localised("viewer.list.unreadableHelp").arg(reason),
                   ListEmptyState::Offer::OpenFolder);
}

QString RecordingListView::statusText() const
{
    if (!m_scanLine->isHidden())
        return m_scanLine->text();
    return m_emptyState->isHidden() ? QString() : m_emptyState->title();
}

void RecordingListView::placeStatus()
{
    m_emptyState->setGeometry(viewport()->rect());
    if (m_scanLine->isHidden())
        return;
    const QSize size = m_scanLine->sizeHint() + QSize(0, scanBarHeight);
    m_scanLine->setGeometry((viewport()->width() - size.width()) / 2,
                            viewport()->height() - size.height() - 12, size.width(), size.height());
    m_scanProgress->setGeometry(scanBarInset, size.height() - scanBarHeight - 3,
                                size.width() - 2 * scanBarInset, scanBarHeight);
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

bool RecordingListView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove)
        setHoveredRow(rowAt(static_cast<QHoverEvent*>(event)->position().toPoint().y()));
    else if (event->type() == QEvent::HoverLeave)
        setHoveredRow(-1);
    return QTableView::viewportEvent(event);
}

/// The whole row is lit, not only the cell: a double click plays the row.
void RecordingListView::setHoveredRow(int row)
{
    if (row == m_hoveredRow)
        return;
    m_hoveredRow = row;
    viewport()->update();
}

void RecordingListView::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter) // without a selection it means nothing; the window must not take it for another row's
        return activateSelection();
    const QString typed = event->text();
    if (typed.size() == 1 && typed[0].isDigit() &&
        (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        Q_EMIT digitTyped(typed);
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
        Q_EMIT rowActivated(m_filter->mapToSource(index).row());
}

void RecordingListView::contextMenuEvent(QContextMenuEvent* event)
{
    QModelIndex index = indexAt(event->pos());
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        index = currentIndex();
        place = viewport()->mapToGlobal(visualRect(index).bottomLeft());
    }
    if (!index.isValid())
        return;
    const std::int64_t row = m_filter->mapToSource(index).row();
    selectOnlyRow(row);

    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("recordingMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const char* name, const char* titleKey, auto signal) {
        QAction* action = menu->addAction(localised(titleKey));
        action->setObjectName(QLatin1StringView(name));
        connect(action, &QAction::triggered, this, [this, row, signal] { Q_EMIT(this->*signal)(row); });
    };
    add("playRecording", "folders.play", &RecordingListView::rowActivated);
    menu->addSeparator();
    add("showInFolder", "folders.showInFolder", &RecordingListView::showInFolderRequested);
    add("copyPath", "folders.copyPath", &RecordingListView::copyPathRequested);
    connect(model(), &QAbstractItemModel::modelReset, menu, &QWidget::close); // its row is no more
    menu->popup(place);
}

void RecordingListView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    if (event->oldSize().width() != event->size().width()) // a scroll bar has come or gone
        layoutColumns();
    placeStatus();
}

void RecordingListView::showEvent(QShowEvent* event)
{
    layoutColumns();
    QTableView::showEvent(event);
    placeStatus();
}

} // namespace marvo
