// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

namespace marvo {

class ImageButton;
class MainWindowCommands;
class RecordingFilterBar;
class RecordingListView;
class ReturnStrip;

/// What the right column shows.
enum RightViewMode { RecordingListMode = 0, MapMode = 1 };

/// The data strip below the map: speed, position, dilution of precision and satellites.
class DataStrip : public QWidget
{
    Q_OBJECT
public:
    explicit DataStrip(QWidget* parent = nullptr);

    QLabel* speedField() const { return m_speedField; }
    QLabel* longitudeField() const { return m_longitudeField; }
    QLabel* latitudeField() const { return m_latitudeField; }
    QLabel* hdopField() const { return m_hdopField; }
    QLabel* sateliteField() const { return m_sateliteField; }

private:
    QLabel* m_speedField;
    QLabel* m_longitudeField;
    QLabel* m_latitudeField;
    QLabel* m_hdopField;
    QLabel* m_sateliteField;
};

/// The right column: two side buttons, and below them either the recording list or the map with its data.
class SidePanel : public QWidget
{
    Q_OBJECT
public:
    /// Takes the map's view into itself.
    SidePanel(const MainWindowCommands& commands, QWidget* mapView, QWidget* parent = nullptr);

    RecordingListView* mediaListTableView() const { return m_mediaListTableView; }
    RecordingFilterBar* filterBar() const { return m_filterBar; }
    ReturnStrip* returnStrip() const { return m_returnStrip; }
    DataStrip* mapContainerBottomView() const { return m_mapContainerBottomView; }

    /// Shows what the mode names, and which of the two buttons is the one shown.
    void updateSideViewButton(RightViewMode mode);
    /// Places the boxes; both rectangles in this panel's own co-ordinates.
    void layoutBoxes(const QRect& sideButtonBox, const QRect& mediaListBox);

private:
    void layoutMapContainer();
    void connectFilterBar();

    QWidget* m_sideButtonBox;
    QWidget* m_mediaListBox;
    ImageButton* m_recordButtonImageView;
    ImageButton* m_informationButtonImageView;
    QWidget* m_mediaListScrollView;
    RecordingFilterBar* m_filterBar;
    RecordingListView* m_mediaListTableView;
    ReturnStrip* m_returnStrip;
    QWidget* m_mapContainerView;
    QWidget* m_mapContainerTopView;
    DataStrip* m_mapContainerBottomView;
};

} // namespace marvo
