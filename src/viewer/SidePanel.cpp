// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/SidePanel.h"

#include "controls/ImageButton.h"
#include "texts/Localisation.h"
#include "viewer/list/RecordingFilterBar.h"
#include "viewer/list/RecordingListView.h"
#include "viewer/list/ReturnStrip.h"
#include "viewer/MainWindowCommands.h"
#include "viewer/MainWindowLayout.h"

#include <QAction>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace marvo {

namespace {

QWidget* namedBox(const char* name, QWidget* parent)
{
    auto* box = new QWidget(parent);
    box->setObjectName(QLatin1StringView(name));
    return box;
}

ImageButton* sideButton(const char* name, QAction* command, const char* titleKey, QWidget* parent)
{
    auto* button = new ImageButton({}, command->text(), parent);
    button->setObjectName(QLatin1StringView(name));
    button->setText(localised(titleKey));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    button->setProperty("sideButton", true);
    button->setCommand(command);
    return button;
}

void showButton(ImageButton& button, const QString& imageName, bool shown)
{
    button.setImageName(imageName);
    button.setProperty("shown", shown);
    button.style()->unpolish(&button);
    button.style()->polish(&button);
}

QLabel* dataField(const char* name, const char* titleKey, QWidget* parent)
{
    auto* field = new QLabel(parent);
    field->setObjectName(QLatin1StringView(name));
    field->setTextFormat(Qt::PlainText);
    field->setAccessibleName(localised(titleKey));
    return field;
}

QVBoxLayout* captioned(QLabel* field, const char* titleKey, QWidget* parent)
{
    auto* caption = new QLabel(localised(titleKey), parent);
    caption->setProperty("caption", true);
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(caption);
    column->addWidget(field);
    return column;
}

} // namespace

DataStrip::DataStrip(QWidget* parent)
    : QWidget(parent),
      m_speedField(dataField("speedField", "viewer.data.speed", this)),
      m_longitudeField(dataField("longitudeField", "viewer.data.longitude", this)),
      m_latitudeField(dataField("latitudeField", "viewer.data.latitude", this)),
      m_hdopField(dataField("hdopField", "viewer.data.hdop", this)),
      m_sateliteField(dataField("sateliteField", "viewer.data.satellites", this))
{
    setObjectName(QStringLiteral("mapContainerBottomView"));
    setAttribute(Qt::WA_StyledBackground);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(14, 8, 14, 8);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(4);
    grid->addLayout(captioned(m_speedField, "viewer.data.speed", this), 0, 0, 2, 1);
    grid->addLayout(captioned(m_longitudeField, "viewer.data.longitude", this), 0, 1);
    grid->addLayout(captioned(m_latitudeField, "viewer.data.latitude", this), 1, 1);
    grid->addLayout(captioned(m_hdopField, "viewer.data.hdop", this), 0, 2);
    grid->addLayout(captioned(m_sateliteField, "viewer.data.satellites", this), 1, 2);
    grid->setColumnStretch(0, 4);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(2, 2);
}

SidePanel::SidePanel(const MainWindowCommands& commands, QWidget* mapView, QWidget* parent)
    : QWidget(parent),
      m_sideButtonBox(namedBox("sideButtonBox", this)),
      m_mediaListBox(namedBox("mediaListBox", this)),
      m_recordButtonImageView(sideButton("recordButtonImageView",
                                         commands.action(Command::ClickMediaListViewButton),
                                         "viewer.side.recordings", m_sideButtonBox)),
      m_informationButtonImageView(sideButton("informationButtonImageView",
                                              commands.action(Command::ClickMapViewButton), "viewer.side.map",
                                              m_sideButtonBox)),
      m_mediaListScrollView(namedBox("mediaListScrollView", m_mediaListBox)),
      m_filterBar(new RecordingFilterBar(m_mediaListScrollView)),
      m_mediaListTableView(new RecordingListView(m_mediaListScrollView)),
      m_returnStrip(new ReturnStrip(m_mediaListScrollView)),
      m_mapContainerView(namedBox("mapContainerView", m_mediaListBox)),
      m_mapContainerTopView(namedBox("mapContainerTopView", m_mapContainerView)),
      m_mapContainerBottomView(new DataStrip(m_mapContainerView))
{
    setObjectName(QStringLiteral("bodyRightBox"));
    m_mediaListBox->setAttribute(Qt::WA_StyledBackground);

    auto* buttons = new QHBoxLayout(m_sideButtonBox);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(2);
    buttons->addWidget(m_recordButtonImageView);
    buttons->addWidget(m_informationButtonImageView);

    auto* list = new QVBoxLayout(m_mediaListScrollView);
    list->setContentsMargins(0, 0, 0, 0);
    list->setSpacing(0);
    list->addWidget(m_filterBar);
    list->addWidget(m_mediaListTableView, 1);
    list->addWidget(m_returnStrip);
    m_filterBar->hide(); // until there is something to search
    connectFilterBar();

    mapView->setObjectName(QStringLiteral("mapWebView"));
    mapView->setAccessibleName(localised("viewer.side.map"));
    auto* map = new QVBoxLayout(m_mapContainerTopView);
    map->setContentsMargins(0, 0, 0, 0);
    map->addWidget(mapView);

    updateSideViewButton(RecordingListMode);
}

void SidePanel::connectFilterBar()
{
    RecordingListView* list = m_mediaListTableView;
    connect(m_filterBar, &RecordingFilterBar::searchChanged, list, &RecordingListView::setSearch);
    connect(m_filterBar, &RecordingFilterBar::kindsChanged, list, &RecordingListView::setKinds);
    connect(m_filterBar, &RecordingFilterBar::rowStepped, list, &RecordingListView::stepSelection);
    connect(m_filterBar, &RecordingFilterBar::playRequested, list, [list] {
        list->setFocus(); // Space must pause then, not write into the search
        list->activateSelection();
    });
    connect(m_filterBar, &RecordingFilterBar::left, list, [list] { list->setFocus(); });
    connect(m_returnStrip, &ReturnStrip::left, list, [list] { list->setFocus(); });
    connect(list, &RecordingListView::digitTyped, m_filterBar, &RecordingFilterBar::beginSearch);
    connect(&list->emptyState(), &ListEmptyState::showAllRequested, m_filterBar, &RecordingFilterBar::clear);
}

void SidePanel::updateSideViewButton(RightViewMode mode)
{
    const bool list = mode == RecordingListMode;
    showButton(*m_recordButtonImageView,
               list ? QStringLiteral("record_p.png") : QStringLiteral("record_n.png"), list);
    showButton(*m_informationButtonImageView,
               list ? QStringLiteral("information_n.png") : QStringLiteral("information_p.png"), !list);
    m_mapContainerView->setVisible(mode == MapMode);
    m_mediaListScrollView->setVisible(list);
    layoutMapContainer();
}

void SidePanel::layoutBoxes(const QRect& sideButtonBox, const QRect& mediaListBox)
{
    m_sideButtonBox->setGeometry(sideButtonBox);
    m_mediaListBox->setGeometry(mediaListBox);
    m_mediaListScrollView->setGeometry(m_mediaListBox->rect());
    layoutMapContainer();
}

void SidePanel::layoutMapContainer()
{
    m_mapContainerView->setGeometry(m_mediaListBox->rect());
    const MapContainerLayout layout = marvo::layoutMapContainer(m_mapContainerView->size());
    m_mapContainerTopView->setGeometry(layout.mapContainerTopView);
    m_mapContainerBottomView->setGeometry(layout.mapContainerBottomView);
}

} // namespace marvo
