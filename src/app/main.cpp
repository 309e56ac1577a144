// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    return QApplication::exec();
}
