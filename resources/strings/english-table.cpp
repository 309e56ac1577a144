// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// english-table OUT TABLE.ts...: writes the texts of id-based string tables as a C++ source file, so that a
// program can have them without reading a translation file at run time.
#include <QFile>
#include <QMap>
#include <QSaveFile>
#include <QXmlStreamReader>

#include <cstdio>

namespace {

int complain(const QString& file, const QString& what)
{
    std::fprintf(stderr, "marvo: %s: %s\n", qUtf8Printable(file), qUtf8Printable(what));
    return 1;
}

/// Bytes as a C++ string literal: octal escapes end after three digits, hexadecimal ones would not.
QByteArray literal(const QString& text)
{
    QByteArray result = "\"";
    const QByteArray bytes = text.toUtf8();
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        if (value < 0x20 || value > 0x7E || byte == '"' || byte == '\\' || byte == '?')
            result += '\\' + QByteArray::number(value, 8).rightJustified(3, '0');
        else
            result += byte;
    }
    return result + '"';
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return complain(QStringLiteral("english-table"), QStringLiteral("takes OUT TABLE..."));
    QMap<QByteArray, QString> texts; // by bytes, as the look-up compares
    for (int i = 2; i < argc; ++i) {
        QFile file(QString::fromLocal8Bit(argv[i]));
        if (!file.open(QIODevice::ReadOnly))
            return complain(file.fileName(), file.errorString());
        QXmlStreamReader xml(&file);
        QByteArray key;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1StringView("message"))
                key = xml.attributes().value(QLatin1StringView("id")).toUtf8();
            else if (xml.name() == QLatin1StringView("translation"))
                texts[key] = xml.readElementText();
        }
        if (xml.hasError())
            return complain(file.fileName(), xml.errorString());
    }

    QByteArray source = "// Made by the build from resources/strings.\n"
                        "#include \"texts/EnglishText.h\"\n\n"
                        "namespace marvo {\n\nnamespace {\n\n"
                        "constexpr EnglishEntry entries[] = {\n";
    for (auto entry = texts.cbegin(); entry != texts.cend(); ++entry)
        source += "    {" + literal(QString::fromUtf8(entry.key())) + ", " + literal(entry.value()) + "},\n";
    source += "};\n\n} // namespace\n\n"
              "std::span<const EnglishEntry> englishTable() { return entries; }\n\n"
              "} // namespace marvo\n";
    QSaveFile out(QString::fromLocal8Bit(argv[1]));
    if (!out.open(QIODevice::WriteOnly) || out.write(source) != source.size() || !out.commit())
        return complain(out.fileName(), out.errorString());
    return 0;
}
