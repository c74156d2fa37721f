// Merge data files and address labels: the files byte for byte against their
// references, the labels' places on the sheet read back from the PDF printer,
// and the pickers' boxes, messages and help.

#include "correspondence/correspondence_state.h"
#include "correspondence/frmClientLabels.h"
#include "correspondence/frmClientMerge.h"
#include "correspondence/frmOfficeLabels.h"
#include "correspondence/frmOfficeMerge.h"
#include "correspondence/handed_lists_gui.h"
#include "correspondence/merge_file.h"
#include "platform/files.h"
#include "reports/print_backend.h"
#include "reports/printer_object.h"
#include "shell/configuration.h"
#include "shell/program_folder.h"
#include "shell/variables.h"
#include "support/print_fakes.h"
#include "support/report_reading.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

using namespace quillon;
using namespace quillon::testing;

namespace {

using Fields = QList<QPair<QString, QVariant>>;

void FillClients() {
    SetFields("Personal", kAda,
              Fields{{"Title", "Mrs"},
                     {"Address 1", "12 Loom Street"},
                     {"Address 3", "London"},
                     {"Address 6", "NW1 6XE"},
                     {"Called", "Ada"},
                     {"Date of Birth", "10/12/1915"},
                     {"Home Telephone", "020 7946 0000"},
                     {"Work Telephone", "020 7946 0001"}});
    SetFields("Administration", kAda,
              Fields{{"NI Number", "AB123456C"}, {"Client Reference", "Café £5 €3 \u0100 done"}});
    SetFields("Business 1", kAda,
              Fields{{"Business Name", "Lace, \"Fine\" & Co"},
                     {"Address 1", "1 Mill Lane"},
                     {"Address 5", "Never on a label"},
                     {"Postcode", "LN1 1AA"},
                     {"Year end day", "31"},
                     {"Year end month", "3"}});
    SetFields("Business 1", kBert, Fields{{"Year end day", "5"}, {"Year end month", "13"}});
    SetFields("Business 1", kCora, Fields{{"Year end day", "30"}});
}

// The bytes of a file as lines, with CR and bytes beyond ASCII made visible.
QStringList Visible(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {QStringLiteral("no file")};
    }
    QString text;
    for (const char byte : file.readAll()) {
        const auto b = static_cast<unsigned char>(byte);
        text += b == '\r' ? QStringLiteral("<CR>")
                : b == '\n' || (b >= 32 && b < 127)
                    ? QString(QChar(b))
                    : QStringLiteral("<%1>").arg(b, 2, 16, QLatin1Char('0'));
    }
    return text.split(QLatin1Char('\n'));
}

void SelectEntries(QListWidget* list, const QStringList& entries) {
    list->clearSelection();
    for (const QString& entry : entries) {
        for (QListWidgetItem* item : list->findItems(entry, Qt::MatchExactly)) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                              list->visualItemRect(item).center());
        }
    }
}

}  // namespace

class MergeAndLabels : public QObject {
    Q_OBJECT

private:
    PrintDesktop desktop_;
    std::unique_ptr<SectionWorld> world_;
    QTemporaryDir dir_;

    template <typename Form>
    std::unique_ptr<Form> Open() {
        auto form = std::make_unique<Form>();
        form->show();
        QApplication::setActiveWindow(form.get());
        return form;
    }

private Q_SLOTS:
    void initTestCase() {
        world_ = std::make_unique<SectionWorld>(QList<ClientName>{kAda, kBert, kCora});
        FillClients();
        QFile::copy(ProgramFolder() + "/DTAXOFF2.MDB", OfficeDatabasePath());
    }
    void init() {
        SetDefaults();
        desktop_.services.messages.ClearRecord();
        QFile::remove(MergeFilePath());
        QFile::remove(MergeFilePath(true));
    }
    void cleanup() {
        desktop_.services.messages.CheckAllAnswersUsed(__FILE__, __LINE__);
        desktop_.services.fileDialogs.CheckAllAnswersUsed(__FILE__, __LINE__);
    }

    // Each file byte for byte against its reference: both quote settings, a
    // delimiter of several characters, the business address, values holding the
    // delimiter and quotes, characters beyond the code page, the year end's
    // rules, an entry that is no client, and a screen with nothing selected.
    void mergeFilesMatchTheirReferences_data() {
        QTest::addColumn<QString>("screen");
        QTest::addColumn<bool>("quotes");
        QTest::addColumn<QString>("delimiter");
        QTest::addColumn<int>("address");
        QTest::addColumn<QStringList>("entries");
        const QStringList all{"Lovell, Ada", "Mason, Bert", "Nash, Cora"};
        QTest::newRow("clients") << "clients" << true << "," << 0 << all;
        QTest::newRow("clients-plain")
            << "clients" << false << "," << 0 << QStringList{"Lovell, Ada"};
        QTest::newRow("clients-none") << "clients" << true << "," << 0 << QStringList{};
        QTest::newRow("handed-business")
            << "handed" << true << " | " << 1
            << QStringList{"Lovell, Ada", "Ghost, Gus", "Lovell, Ada", "Nash, Cora"};
        QTest::newRow("handed-run-together")
            << "handed" << false << "" << 0 << QStringList{"Mason, Bert"};
        QTest::newRow("offices") << "offices" << true << ";" << 0
                                 << QStringList{"Accounts Office Cumbernauld (902)"};
    }
    void mergeFilesMatchTheirReferences() {
        QFETCH(QString, screen);
        QFETCH(bool, quotes);
        QFETCH(QString, delimiter);
        QFETCH(int, address);
        QFETCH(QStringList, entries);
        desktop_.services.messages.Answer(vbOK);
        if (screen == QLatin1String("handed")) {
            std::tie(UseQuotes, FieldDelimiter, AddressForMerge) =
                std::tuple(quotes, delimiter, qint16(address));
            QListWidget list;
            list.addItems(entries);
            MergeFile(list);
        } else {
            std::unique_ptr<MergePicker> form;
            if (screen == QLatin1String("offices")) {
                form = Open<frmOfficeMerge>();
            } else {
                form = Open<frmClientMerge>();
            }
            form->chkUseQuotes->setChecked(quotes);
            form->txtDelimiter->setText(delimiter);
            SelectEntries(form->List(), entries);
            QCOMPARE(form->pnlSelected->text(), QStringLiteral("%1 selected").arg(entries.size()));
            Click(form->cm3Merge);
        }
        QCOMPARE(desktop_.services.messages.Last().prompt,
                 "The following mail merge data file will be created:\n\n" + MergeFilePath() +
                     "\n\nThis file can be merged with a word processor document");
        const QStringList bytes = Visible(PathOnDisk(MergeFilePath()));
        const QString reference = QStringLiteral("merge-%1.txt").arg(QTest::currentDataTag());
        QCOMPARE(bytes, ReferenceLines(reference, bytes));
    }

    // A list longer than one read of the database is written whole.
    void aLongListIsWrittenWhole() {
        QListWidget list;
        for (int i = 0; i < 450; ++i) {
            list.addItem(i % 2 ? QStringLiteral("Lovell, Ada") : QStringLiteral("Nash, Cora"));
        }
        desktop_.services.messages.Answer(vbOK);
        MergeFile(list);
        const QStringList lines = Visible(PathOnDisk(MergeFilePath()));
        QCOMPARE(lines.size(), 452);  // the header, 450 clients and the empty end
        QVERIFY(lines.at(450).contains("Ada") && lines.at(449).contains("Cora"));
    }

    // Anything but OK writes nothing.
    void aCancelledMergeWritesNothing() {
        auto form = Open<frmClientMerge>();
        desktop_.services.messages.Answer(vbCancel);
        Click(form->cm3Merge);
        QCOMPARE(desktop_.services.messages.Last().title, QStringLiteral("Client Merge"));
        QVERIFY(!QFile::exists(PathOnDisk(MergeFilePath())));
    }

    // Three copies of two clients from the last row's right-hand cell: the
    // first fills it, the rest go on at the top of a second sheet; a label of
    // four lines drops 6 mm, one of one line 12 mm. Places read back from the
    // PDF file.
    void labelsStandOnTheSheet() {
        desktop_.SetDefaultPrinter(QString::fromLatin1(kPdfPrinterName));
        const QString pdf = dir_.filePath(QStringLiteral("labels.pdf"));
        desktop_.services.fileDialogs.Answer(pdf);
        auto form = Open<frmClientLabels>();
        SelectEntries(form->lstClients, {"Lovell, Ada", "Mason, Bert"});
        TypeInto(form->txtRow, QStringLiteral("9"));
        TypeInto(form->txtColumn, QStringLiteral("2"));
        TypeInto(form->txtCopies, QStringLiteral("3"));
        QCOMPARE(form->txtRow->text(), QStringLiteral("7"));
        Click(form->cm3Print);
        desktop_.SetDefaultPrinter(QStringLiteral("Office Laser"));
        // Each label's first word, its cell and lines: where the PDF shows it.
        const auto standsAt = [&pdf](int page, const char* word, int row, int column, int lines) {
            const QPointF at(column * 101.5 + 15, row * 38 + 15 + (7 - lines) * 2);
            const QList<QRectF> boxes = Words(pdf, page).values(QLatin1String(word));
            return std::any_of(boxes.begin(), boxes.end(), [at](const QRectF& box) {
                return (box.topLeft() - at).manhattanLength() < 0.3;
            });
        };
        QVERIFY(standsAt(1, "Mrs", 6, 1, 4));
        QVERIFY(standsAt(2, "Mrs", 0, 0, 4) && standsAt(2, "Mrs", 0, 1, 4));
        QVERIFY(standsAt(2, "Bert", 1, 0, 1) && standsAt(2, "Bert", 1, 1, 1));
        QVERIFY(standsAt(2, "Bert", 2, 0, 1));
        QVERIFY(!Words(pdf, 1).contains(QStringLiteral("Bert")));
    }

    // The boxes keep to the sheet when left; copies take digits only.
    void printOptionsKeepToTheSheet_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("left");
        QTest::newRow("row 0") << "txtRow"
                               << "0"
                               << "1";
        QTest::newRow("column 3") << "txtColumn"
                                  << "3"
                                  << "2";
        QTest::newRow("copies 20") << "txtCopies"
                                   << "20"
                                   << "14";
        QTest::newRow("copies typed with letters") << "txtCopies"
                                                   << "1x2"
                                                   << "12";
    }
    void printOptionsKeepToTheSheet() {
        QFETCH(QString, box);
        QFETCH(QString, typed);
        QFETCH(QString, left);
        auto form = Open<frmOfficeLabels>();
        auto* edit = form->findChild<QLineEdit*>(box);
        TypeInto(edit, typed);
        QCOMPARE(edit->text(), left);
    }

    // An office label of eight lines starts 13 mm into its cell; a business
    // label leaves out the fifth address line.
    void officeAndBusinessLabels() {
        auto offices = Open<frmOfficeLabels>();
        SelectEntries(offices->lstOffices, {offices->lstOffices->item(0)->text()});
        Click(offices->cm3Print);
        AddressForLabels = 1;
        auto clients = Open<frmClientLabels>();
        SelectEntries(clients->lstClients, {"Lovell, Ada"});
        Click(clients->cm3Print);
        QCOMPARE(desktop_.backend.jobs.size(), size_t(2));
        QStringList texts;
        for (const auto& job : desktop_.backend.jobs) {
            const QStringList operations = Operations(job.document.pages.at(0));
            texts << operations.first() << operations.filter("Never").join("");
        }
        QCOMPARE(texts, ReferenceLines(QStringLiteral("labels-office-business.txt"), texts));
    }

    // With the databases gone, each screen and each routine for a handed list
    // tells the failure under its own name and title, and prints nothing.
    void failuresAreToldUnderEachScreensName() {
        auto clientMerge = Open<frmClientMerge>();
        auto officeMerge = Open<frmOfficeMerge>();
        auto clientLabels = Open<frmClientLabels>();
        auto officeLabels = Open<frmOfficeLabels>();
        SelectEntries(clientMerge->lstClients, {"Lovell, Ada"});
        SelectEntries(clientLabels->lstClients, {"Lovell, Ada"});
        SelectEntries(officeMerge->lstOffices, {officeMerge->lstOffices->item(0)->text()});
        SelectEntries(officeLabels->lstOffices, {officeLabels->lstOffices->item(0)->text()});
        const QStringList files{ClientDatabasePath(), OfficeDatabasePath()};
        for (const QString& file : files) {
            QVERIFY(QFile::rename(file, file + ".away"));
        }
        const size_t jobs = desktop_.backend.jobs.size();
        QStringList told;
        const auto tell = [&](const char* what, int questions, const std::function<void()>& act) {
            for (int i = 0; i <= questions; ++i) {
                desktop_.services.messages.Answer(vbOK);
            }
            act();
            const ShownMessage shown = desktop_.services.messages.Last();
            told << QLatin1String(what) + ": " +
                        shown.prompt.section(QLatin1Char('\n'), 0, 1).replace('\n', " / ") + " | " +
                        shown.title;
        };
        tell("client merge", 1, [&] { Click(clientMerge->cm3Merge); });
        tell("office merge", 1, [&] { Click(officeMerge->cm3Merge); });
        tell("client labels", 0, [&] { Click(clientLabels->cm3Print); });
        tell("office labels", 0, [&] { Click(officeLabels->cm3Print); });
        tell("handed merge", 1, [&] { MergeFile(*clientMerge->lstClients); });
        tell("handed labels", 0, [&] { PrintClientLabels(*clientLabels->lstClients); });
        tell("client merge opened", 0, [&] { Open<frmClientMerge>(); });
        tell("office merge opened", 0, [&] { Open<frmOfficeMerge>(); });
        tell("client labels opened", 0, [&] { Open<frmClientLabels>(); });
        tell("office labels opened", 0, [&] { Open<frmOfficeLabels>(); });
        for (const QString& file : files) {
            QVERIFY(QFile::rename(file + ".away", file));
        }
        QCOMPARE(desktop_.backend.jobs.size(), jobs);
        QCOMPARE(told, ReferenceLines(QStringLiteral("correspondence-failures.txt"), told));
    }

    // Letters find names or say so in each screen's words; help tells how to
    // pick.
    void lettersAndHelp() {
        auto offices = Open<frmOfficeMerge>();
        desktop_.services.messages.Answer(vbOK);
        Click(offices->cm3Seek.at('Q' - 'A'));
        QCOMPARE(desktop_.services.messages.Last().prompt,
                 QStringLiteral("No name beginning with Q"));
        auto labels = Open<frmOfficeLabels>();
        desktop_.services.messages.Answer(vbOK);
        Click(labels->cm3Seek.at('Q' - 'A'));
        QCOMPARE(desktop_.services.messages.Last().title, QStringLiteral("Client Labels"));
        auto clients = Open<frmClientMerge>();
        QCOMPARE(clients->pnlCount->text(), QStringLiteral("3 clients"));
        Click(clients->cm3Seek.at('N' - 'A'));
        QCOMPARE(clients->lstClients->currentItem()->text(), QStringLiteral("Nash, Cora"));
        desktop_.services.messages.Answer(vbOK);
        Click(clients->cm3Help);
        const ShownMessage help = desktop_.services.messages.Last();
        QCOMPARE(help.title, QStringLiteral("Help for Client Merge"));
        QVERIFY(help.prompt.endsWith("click on the Merge button to create the file.\n"));
        QCOMPARE(help.prompt.count('\n'), 5);
    }
};

QTEST_MAIN(MergeAndLabels)
#include "test_merge_and_labels.moc"
