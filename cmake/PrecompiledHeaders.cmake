# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# The headers of others that most sources include, parsed once a library. Each source still includes what it uses:
# builds with sanitizers have no precompiled headers and find what is missing. Headers of this project stay out, as a
# change to one would compile everything anew.
if(MARVO_SANITIZE AND NOT MARVO_SANITIZE STREQUAL leak)
    set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

set(marvo_std_headers <algorithm> <array> <charconv> <chrono> <cmath> <cstdint> <cstdio> <cstring> <filesystem>
    <functional> <limits> <memory> <optional> <span> <string> <string_view> <system_error> <utility> <vector>)
set(marvo_core_headers ${marvo_std_headers})
set(marvo_model_headers ${marvo_std_headers} <QFile> <QLoggingCategory> <QObject> <QPointer> <QString>)
set(marvo_gui_headers ${marvo_model_headers} <QAction> <QApplication> <QCheckBox> <QComboBox> <QDBusConnection> <QDialog>
    <QDir> <QFileDialog> <QFileInfo> <QGridLayout> <QGroupBox> <QHBoxLayout> <QImage> <QKeyEvent> <QLabel> <QLineEdit>
    <QLocale> <QMenu> <QMouseEvent> <QPainter> <QPixmap> <QPushButton> <QScreen> <QSettings> <QStandardPaths>
    <QStringList> <QTimer> <QVBoxLayout> <QWidget>)
set(marvo_core_test_headers ${marvo_std_headers} <fstream> <gtest/gtest.h>)
set(marvo_gui_test_headers ${marvo_gui_headers} <QSignalSpy> <QtTest>)
