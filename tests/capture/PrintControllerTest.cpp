// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Printing, with printers that speak IPP on this machine.
#include "capture/PrintController.h"
#include "capture/CaptureFile.h"
#include "capture/PrintRequest.h"
#include "platform/CupsPrinting.h"
#include "support/LogLines.h"
#include "TemporaryFolder.h"
#include "viewer/WindowStage.h"

#include <QAction>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>

#include <filesystem>

using namespace marvo;
using marvo::test::LogLines;
using marvo::test::TemporaryFolder;
using marvo::test::WindowStage;

namespace {

/// A printer that keeps the bytes of its last job in "job" and what it was told of it in "attributes".
class IppPrinter
{
public:
    explicit IppPrinter(const QString& formats)
    {
        const std::string command =
            m_folder.write("print", "#!/bin/sh\nenv >'" + m_folder.path("attributes") + "'\ncp \"$1\" '" +
                                        m_folder.path("copy") + "' && mv '" + m_folder.path("copy") + "' '" +
                                        m_folder.path("job") + "'\n");
        std::filesystem::permissions(command, std::filesystem::perms::owner_all);
        QTcpServer freePort;
        freePort.listen(QHostAddress::LocalHost);
        m_port = freePort.serverPort();
        freePort.close();
        m_process.setStandardOutputFile(QProcess::nullDevice());
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(QStringLiteral("ippeveprinter"),
                        {QStringLiteral("-r"), QStringLiteral("off"), QStringLiteral("-p"),
                         QString::number(m_port), QStringLiteral("-n"), QStringLiteral("localhost"),
                         QStringLiteral("-d"), QString::fromStdString(m_folder.makeFolder("spool")),
                         QStringLiteral("-c"), QString::fromStdString(command), QStringLiteral("-f"), formats,
                         QStringLiteral("Test")});
    }
    ~IppPrinter() { die(); }

    bool isReady()
    {
        return QTest::qWaitFor([this] {
            QTcpSocket socket;
            socket.connectToHost(QHostAddress::LocalHost, m_port);
            return socket.waitForConnected(200);
        });
    }
    void die()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    std::string address() const { return "ipp://localhost:" + std::to_string(m_port) + "/ipp/print"; }
    std::string job() const { return m_folder.read("job"); }
    bool wasTold(const std::string& attribute) const
    {
        return ('\n' + m_folder.read("attributes")).find('\n' + attribute + '\n') != std::string::npos;
    }

private:
    TemporaryFolder m_folder;
    quint16 m_port = 0;
    QProcess m_process;
};

/// Real printing to a real printer, with a hand that pulls the plug in between.
class PulledPlug : public Printing
{
public:
    enum When { Never, BeforeConnecting, BeforeAsking, BeforePrinting };

    PulledPlug(IppPrinter& printer, When when) : m_printer(printer), m_when(when) {}

    Found printerNamed(const std::string& name) override
    {
        pull(BeforeConnecting);
        Found found = CupsPrinting().printerNamed(name);
        if (found.printer)
            found.printer = std::make_unique<Plugged>(*this, std::move(found.printer));
        return found;
    }

private:
    void pull(When now)
    {
        if (now == m_when)
            m_printer.die();
    }

    class Plugged : public Printer
    {
    public:
        Plugged(PulledPlug& plug, std::unique_ptr<Printer> printer) : m_plug(plug), m_real(std::move(printer))
        {}
        std::vector<std::string> mimeTypes() override
        {
            m_plug.pull(BeforeAsking);
            return m_real->mimeTypes();
        }
        int printWithFile(int file, const std::string& title, const std::string& mimeType,
                          const PrintSettings& settings) override
        {
            m_plug.pull(BeforePrinting);
            return m_real->printWithFile(file, title, mimeType, settings);
        }

    private:
        PulledPlug& m_plug;
        std::unique_ptr<Printer> m_real;
    };

    IppPrinter& m_printer;
    When m_when;
};

} // namespace

class PrintTest : public QObject
{
    Q_OBJECT

private:
    TemporaryFolder m_folder;

private Q_SLOTS:
    void initTestCase()
    {
        test::prepareWindows("marvo-print-test");
        m_folder.makeFolder("card");
        QVERIFY(test::writeRecording(m_folder.path("card/alwa_20240517_081500_F.avi")));
    }

    void printsOrSaysWhyNot()
    {
        struct Row
        {
            const char* formats;
            PulledPlug::When plug;
            const char* line; ///< of the log
            QPageSize::PageSizeId paper = QPageSize::A4;
            const char* media = nullptr; ///< that is printed on; none: nothing is printed
        };
        const char* both = "application/pdf,image/jpeg";
        const Row rows[] = {
            {both, PulledPlug::Never, "", QPageSize::A4, "iso_a4_210x297mm"},
            {both, PulledPlug::Never, "", QPageSize::A5, ""}, // the printer has no such paper
            {"application/pdf", PulledPlug::Never, "MIME type image/jpeg isn't supported by the printer"},
            {both, PulledPlug::BeforeConnecting,
             "Got an error from PMSessionGetCurrentPrinter \\([1-9]\\d*\\)"},
            {both, PulledPlug::BeforeAsking, ""},
            {both, PulledPlug::BeforePrinting, "PMPrinterPrintWithFile returned error [1-9]\\d*"},
        };
        for (const Row& row : rows) {
            IppPrinter printer(QString::fromLatin1(row.formats));
            QVERIFY(printer.isReady());
            std::string jpeg = "\xFF\xD8\xFF\xE0"; // longer than a piece
            for (int i = 0; i < 200'000; ++i)
                jpeg += static_cast<char>(i * 31 >> 3);
            const CaptureFile picture = CaptureStore(m_folder.path("capture.jpg")).write(jpeg);

            QPrinter printInfo;
            printInfo.setPageSize(QPageSize(row.paper));
            printInfo.setPageOrientation(QPageLayout::Landscape);
            printInfo.setCopyCount(2);
            PrintRequest request = printRequestOf(printInfo);
            request.destination = PrintRequest::Destination::Printer; // no queue here, but an address
            request.printer = printer.address();

            LogLines log;
            PulledPlug printing(printer, row.plug);
            printPicture(printing, request, picture);
            std::string told;
            for (const std::string& line : log.lines())
                told += line;
            const QRegularExpression pattern(QRegularExpression::anchoredPattern(QLatin1String(row.line)));
            QVERIFY2(pattern.match(QString::fromStdString(told)).hasMatch(), told.c_str());
            if (!row.media) {
                QVERIFY(printer.job().empty());
                continue;
            }
            QTRY_VERIFY(!printer.job().empty());
            QVERIFY(printer.job() == jpeg);
            for (const char* attribute : {"CONTENT_TYPE=image/jpeg", "IPP_PRINT_SCALING=fit", "IPP_COPIES=2",
                                          "IPP_ORIENTATION_REQUESTED=landscape"})
                QVERIFY2(printer.wasTold(attribute), attribute);
            QCOMPARE(printer.wasTold(std::string("IPP_MEDIA=") + row.media), *row.media != '\0');
        }
    }

    void theDialogKeepsItsChoicesAndAFileIsNoPrinter()
    {
        MRVAppDelegate::Configuration configuration;
        configuration.capturePath = m_folder.path("printed.jpg");
        WindowStage stage(configuration);
        QVERIFY(stage.isShown && stage.open(m_folder.path("card")));
        const auto panel = [&stage] { return stage.window().findChild<QPrintDialog*>(); };
        const auto print = [&stage] { stage.action(Command::Print)->trigger(); };
        print(); // nothing to print
        QVERIFY(!panel());

        stage.doubleClickRow(0);
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
        stage.key(Qt::Key_Space);
        QTRY_VERIFY(stage.player().isPaused());
        LogLines log;
        print();
        QVERIFY(panel() && panel()->windowModality() == Qt::WindowModal);
        QTRY_VERIFY(!m_folder.read("printed.jpg").empty());
        QCOMPARE(stage.delegate.printing().loadPrintInfo().outputFormat(),
                 QPrinter::PdfFormat); // no queue here
        stage.delegate.printing().loadPrintInfo().setOutputFileName(
            QString::fromStdString(m_folder.path("out.pdf")));
        panel()->printer()->setPageSize(QPageSize(QPageSize::A6));
        QMetaObject::invokeMethod(panel(), "accept");
        QTRY_VERIFY(!panel());
        QTRY_COMPARE(log.lines().size(), 1u);
        QCOMPARE(log.lines()[0],
                 std::string("Either got an error from PMSessionGetDestinationType or the print destination "
                             "wasn't kPMDestinationPrinter"));
        QVERIFY(!std::filesystem::exists(m_folder.path("out.pdf")));

        print();
        QVERIFY(panel());
        QCOMPARE(panel()->printer()->pageLayout().pageSize().id(), QPageSize::A6);
        panel()->reject();
        QTest::qWait(50);
        QCOMPARE(log.lines().size(), 1u);
    }
};

QTEST_MAIN(PrintTest)
#include "PrintControllerTest.moc"
