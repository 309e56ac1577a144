// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "app/StartOptions.h"

#include "texts/DisplayText.h"

#include <QCommandLineParser>
#include <QFile>

#include <filesystem>
#include <system_error>

namespace marvo {

namespace {

/// The bytes as they were given: a folder's name need not be UTF-8.
std::string absolutePath(int argc, char** argv, const QString& argument)
{
    std::string given = QFile::encodeName(argument).toStdString();
    for (int i = 1; i < argc; ++i)
        if (QFile::decodeName(argv[i]) == argument)
            given = argv[i];
    std::error_code failed;
    const std::filesystem::path path = std::filesystem::absolute(given, failed);
    return failed ? given : path.string();
}

QString languageCodes()
{
    QStringList codes;
    for (const LanguageRow& row : languageRows)
        codes << QString::fromLatin1(row.code.data(), qsizetype(row.code.size()));
    return codes.join(QStringLiteral(", "));
}

} // namespace

StartOptions readStartOptions(int argc, char** argv)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Plays the recordings of a dash camera with their data."));
    parser.addPositionalArgument(QStringLiteral("FOLDER"),
                                 QStringLiteral("The folder of recordings to open."),
                                 QStringLiteral("[FOLDER]"));
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version."));
    const QCommandLineOption demoReport(
        QStringLiteral("demo-report"),
        QStringLiteral("Play the folder's first recording for some seconds, save a screenshot to OUT.png and "
                       "one of the map beside it, print what was done, and end."),
        QStringLiteral("OUT.png"));
    const QCommandLineOption card(QStringLiteral("card"),
                                  QStringLiteral("Take CARD, a folder, for the camera's card in a reader."),
                                  QStringLiteral("CARD"));
    const QCommandLineOption language(
        QStringLiteral("language"),
        QStringLiteral("Show the interface in the language CODE (%1), for this start only.")
            .arg(languageCodes()),
        QStringLiteral("CODE"));
    parser.addOptions({help, version, demoReport, card, language});

    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    StartOptions options;
    if (!parser.parse(arguments)) {
        options.message = QStringLiteral("marvo: %1\n").arg(displayText(parser.errorText()));
        options.messageExit = 2;
    } else if (parser.isSet(help)) {
        // Before there is an application the parser knows no name for it.
        options.message =
            parser.helpText().replace(QStringLiteral("<executable_name>"), QStringLiteral("marvo"));
        options.messageExit = 0;
    } else if (parser.isSet(version)) {
        options.message = QStringLiteral("marvo " MARVO_VERSION "\n");
        options.messageExit = 0;
    } else if (parser.positionalArguments().size() > 1) {
        options.message = QStringLiteral("marvo: more than one folder given\n");
        options.messageExit = 2;
    } else if (parser.isSet(demoReport) && parser.positionalArguments().isEmpty()) {
        options.message = QStringLiteral("marvo: --demo-report needs a folder\n");
        options.messageExit = 2;
    } else if (parser.isSet(language) && !InterfaceLanguage::ofCode(parser.value(language).toStdString())) {
        options.message = QStringLiteral("marvo: no language %1; there are %2\n")
                              .arg(parser.value(language), languageCodes());
        options.messageExit = 2;
    }
    if (options.messageExit < 0) {
        options.demoReport = parser.value(demoReport);
        options.language = InterfaceLanguage::ofCode(parser.value(language).toStdString());
        if (parser.isSet(card))
            options.card = absolutePath(argc, argv, parser.value(card));
        if (!parser.positionalArguments().isEmpty())
            options.folder = absolutePath(argc, argv, parser.positionalArguments().front());
    }
    return options;
}

} // namespace marvo
