// The agent authorisation form: the client gathered from the database, the
// rules between its boxes, both pages compared with their references, their
// places read back from the PDF file, and the saving of the file.

#include "reports/form64_8.h"
#include "reports/frmForm64_8.h"
#include "reports/report_state.h"
#include "reports/vsprint.h"
#include "shell/configuration.h"
#include "shell/variables.h"
#include "support/print_fakes.h"
#include "support/report_reading.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QCheckBox>
#include <QDir>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace quillon;
using namespace quillon::testing;

namespace {

const ClientName kDora{QStringLiteral("Dora"), QStringLiteral("Owen")};

void FillClients() {
    using F = QList<QPair<QString, QVariant>>;
    SetFields("Personal", kAda,
              F{{"Full Name", "Ada Lovell"},
                {"Address 1", "12 Loom Street"},
                {"Address 2", "Marylebone"},
                {"Address 3", "London"},
                {"Address 6", "NW1 6XE"},
                {"Home Telephone", "020 7946 0000"}});
    SetFields("Administration", kAda,
              F{{"Client Reference", "LOV001"},
                {"NI Number", "AB 12 34 56 C"},
                {"Tax Reference", "12345 67890"}});
    SetFields("Business 1", kAda, F{{"Business Name", "Lovell Lace"}, {"Type", 1}});
    SetFields("Business 2", kAda,
              F{{"Business Name", "Analytical Engines"}, {"Type", 2}, {"Main Business", true}});
    SetFields("Business 3", kBert, F{{"Business Name", "Mason Holdings Ltd"}, {"Type", 3}});
    SetFields("Administration", kBert, F{{"NI Number", "CD 98 76 54 B"}});
    SetFields("Personal", kCora, F{{"Full Name", "  Cora Nash  "}});
    SetFields("Administration", kCora, F{{"Tax Reference", "1234567"}});
    SetFields("Business 1", kCora, F{{"Business Name", "Nash & Partners"}, {"Type", 2}});
}

QListWidgetItem* Entry(const frmForm64_8& form, const QString& text) {
    const auto items = form.lstClients->findItems(text, Qt::MatchExactly);
    return items.isEmpty() ? nullptr : items.first();
}

void Pick(frmForm64_8& form, const QString& text) {
    QListWidgetItem* item = Entry(form, text);
    QVERIFY(item);
    QTest::mouseClick(form.lstClients->viewport(), Qt::LeftButton, {},
                      form.lstClients->visualItemRect(item).center());
}

// Runs one step: "pick:<list entry>", "tick:<control>" or "<box>=<typed>".
void Step(frmForm64_8& form, const QString& step) {
    if (step.startsWith(QLatin1String("pick:"))) {
        Pick(form, step.mid(5));
    } else if (step.startsWith(QLatin1String("tick:"))) {
        Click(form.Tick(step.mid(5)));
    } else {
        const qsizetype equals = step.indexOf(QLatin1Char('='));
        TypeInto(form.Box(step.left(equals)), step.mid(equals + 1));
    }
}

// Each box and tick of the matters the form lists: "+" usable or "-" greyed,
// then its text or tick.
QString State(const frmForm64_8& form) {
    QStringList state{form.Box(QStringLiteral("txtBusinessName"))->text()};
    for (const char* group :
         {"fraTaxAffairs", "fraTaxCredits", "fraCorporationTax", "fraPAYE", "fraVAT"}) {
        const auto* frame = form.findChild<QWidget*>(QLatin1String(group));
        for (const QWidget* control : frame->findChildren<QWidget*>()) {
            const auto* tick = qobject_cast<const QCheckBox*>(control);
            const auto* box = qobject_cast<const QLineEdit*>(control);
            if (tick || box) {
                state << control->objectName().mid(3) + (control->isEnabled() ? "+" : "-") +
                             (tick ? (tick->isChecked() ? "[x]" : "[ ]") : box->text());
            }
        }
    }
    return state.join(QLatin1Char(' '));
}

}  // namespace

class Form64 : public QObject {
    Q_OBJECT

private:
    PrintDesktop desktop_;
    std::unique_ptr<SectionWorld> world_;
    std::unique_ptr<frmForm64_8> form_;
    QTemporaryDir dir_;

    frmForm64_8& OpenForm() {
        form_ = std::make_unique<frmForm64_8>();
        form_->show();
        QApplication::setActiveWindow(form_.get());
        return *form_;
    }

    QString Save(frmForm64_8& form, const QString& name) {
        const QString path = dir_.filePath(name);
        desktop_.services.fileDialogs.Answer(path);
        Click(form.cmdSave);
        return path;
    }

private Q_SLOTS:
    void initTestCase() {
        world_ = std::make_unique<SectionWorld>(QList<ClientName>{kAda, kBert, kCora, kDora});
        FillClients();
    }
    void init() {
        SetDefaults();
        VSPrinter = QStringLiteral("Office Laser");
        AgentName = QStringLiteral("Quill & Co");
        AgentAddress = {QString(), "1 Ledger Row", "Bath", "", ""};
        AgentPostcode = QStringLiteral("BA1 1AA");
        AgentTelephone = QStringLiteral("01225 000000");
        AgentCodes = QStringLiteral("A1234/B5678");
        desktop_.services.messages.ClearRecord();
    }
    void cleanup() {
        form_.reset();
        desktop_.services.messages.CheckAllAnswersUsed(__FILE__, __LINE__);
        desktop_.services.fileDialogs.CheckAllAnswersUsed(__FILE__, __LINE__);
    }

    // Both pages of each form, operation by operation, against the reference
    // file: what the client's rows give, then what the user adds.
    void pagesMatchTheirReferences_data() {
        QTest::addColumn<QString>("steps");
        QTest::newRow("individual") << "pick:Lovell, Ada; tick:chkStatementsToAgent";
        QTest::newRow("company") << "pick:Mason, Bert; txtBusinessName=; tick:chkCorporationTax; "
                                    "txtCompanyRegistration=sc12345; txtCompanyUTR=987654321";
        QTest::newRow("partnership")
            << "pick:Nash, Cora; tick:chkPartnership; tick:chkTaxCredits; "
               "txtTaxCreditNINO=ef123456a; txtJointClaimant=Dan Nash; "
               "txtJointClaimantNINO=GH654321; tick:chkPAYE; txtPAYEReference=123/AB456; "
               "tick:chkVAT; txtVATRegistration=123456789";
    }
    void pagesMatchTheirReferences() {
        QFETCH(QString, steps);
        frmForm64_8& form = OpenForm();
        for (const QString& step : steps.split("; ")) {
            Step(form, step);
        }
        const QString pdf = Save(form, QStringLiteral("%1.pdf").arg(QTest::currentDataTag()));
        QVERIFY(QFileInfo(pdf).size() > 0);
        QCOMPARE(VSDocumentControl().Document().PageCount(), 2);
        const QStringList operations = Operations(VSDocumentControl().Document());
        if (QTest::currentDataTag() == QLatin1String("individual")) {
            const QString picture =
                QStringLiteral(QUILLON_TEST_DATA_DIR "/../../docs/screenshots/form64-8-page1");
            QCOMPARE(QProcess::execute("pdftoppm", {"-png", "-r", "90", "-singlefile", "-f", "1",
                                                    "-l", "1", pdf, picture}),
                     0);
        }
        const QString reference = QStringLiteral("form64-8-%1.txt").arg(QTest::currentDataTag());
        QCOMPARE(operations, ReferenceLines(reference, operations));
    }

    // Words and boxes of the PDF stand at their millimetres, the page 2 mm lower
    // as every sheet is.
    void placesReadBackFromThePdf() {
        VSPDFLeft = 3;
        frmForm64_8& form = OpenForm();
        Pick(form, QStringLiteral("Lovell, Ada"));
        const QString pdf = Save(form, QStringLiteral("places.pdf"));
        // The file names its document and carries its fonts, to print alike anywhere.
        QCOMPARE(PdfTitle(pdf), QStringLiteral("Form 64-8"));
        QVERIFY(!PdfFonts(pdf).isEmpty() && !PdfFonts(pdf).values().contains(false));
        const auto words = Words(pdf);
        // Some word of the text stands with its left or right edge at `mm`.
        const auto standsAt = [&words](const char* word, double mm, bool right = false) {
            const QList<QRectF> boxes = words.values(QLatin1String(word));
            return std::any_of(boxes.begin(), boxes.end(), [mm, right](const QRectF& box) {
                return qAbs((right ? box.right() : box.left()) - (mm + 3)) < 0.3;
            });
        };
        QVERIFY(standsAt("HM", 25) && standsAt("64-8(Substitute)(KV)", 13));
        QVERIFY(standsAt("Postcode", 10) && standsAt("Ada", 15));
        QVERIFY(standsAt("here", 184, true) && standsAt("agent", 187, true));
        const QImage sheet = Rendered(pdf);
        // A thin rule shows as some grey within 0.2 mm of where it should stand.
        const auto dark = [&sheet](double x, double y) {
            int darkest = 255;
            for (int dx = -2; dx <= 2; ++dx) {
                for (int dy = -2; dy <= 2; ++dy) {
                    darkest = std::min(darkest, qGray(sheet.pixel(qRound((x + 3) * 10) + dx,
                                                                  qRound((y + 2) * 10) + dy)));
                }
            }
            return darkest < 160;
        };
        // The character box at (185, 76), 5 by 6 mm, unticked.
        QVERIFY(dark(185, 79) && dark(190, 79) && dark(187.5, 76) && dark(187.5, 82));
        QVERIFY(!dark(187.5, 79) && !dark(184.5, 79) && !dark(190.5, 79) && !dark(187.5, 82.5));
    }

    // Each NI number and reference, at every length its boxes allow, stands
    // one character a box, centred in it.
    void charactersStandOneABox_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<double>("top");
        QTest::addColumn<QList<double>>("centres");  // from 106 mm
        const QList<double> nino{2.5, 8, 16, 21.5, 29.5, 35, 43, 48.5, 56.5};
        const QList<double> even{2.5, 8, 13.5, 19, 24.5, 30, 35.5, 41, 46.5, 52};
        QTest::newRow("client's NI number") << "txtClientNINO" << 50.0 << nino;
        QTest::newRow("tax credit NI number") << "txtTaxCreditNINO" << 107.0 << nino;
        QTest::newRow("joint claimant's NI number") << "txtJointClaimantNINO" << 156.0 << nino;
        QTest::newRow("UTR") << "txtClientUTR" << 65.0 << even;
        QTest::newRow("company registration")
            << "txtCompanyRegistration" << 185.0 << even.mid(0, 8);
        QTest::newRow("company's UTR") << "txtCompanyUTR" << 199.0 << even;
    }
    void charactersStandOneABox() {
        QFETCH(QString, box);
        QFETCH(double, top);
        QFETCH(QList<double>, centres);
        const QString characters = QStringLiteral("QZ98765W4X");
        for (int length = 0; length <= centres.size(); ++length) {
            Form64Entries entries;
            entries.texts.insert(box, characters.left(length));
            QVERIFY(PrintForm64(entries));
            QString placed;
            for (const DrawOp& op : VSDocumentControl().Document().pages.at(0).ops) {
                const auto* text = std::get_if<TextOp>(&op);
                const double y = text ? text->topLeft.y() / kUnitsPerMm - 2 : 0;
                if (!text || text->text.size() != 1 || y < top || y > top + 6) {
                    continue;
                }
                const double middle = QFontMetricsF(text->font).horizontalAdvance(text->text) / 2;
                const double centre = (text->topLeft.x() + middle) / kUnitsPerMm - 106;
                QVERIFY(qAbs(centre - centres.value(placed.size(), -99)) < 0.3);
                placed += text->text;
            }
            QCOMPARE(placed, characters.left(length));
        }
    }

    // After each step the reference holds what every matter shows: one choice
    // empties and greys what it rules out.
    void boxesFollowTheChoices() {
        const QStringList steps =
            QStringLiteral(
                "pick:Lovell, Ada; tick:chkTaxCredits; txtClientNINO=; txtTaxCreditNINO=ab-12 cd; "
                "txtClientUTR=; tick:chkUTRNotIssued; txtClientUTR=77; tick:chkPartnership; "
                "tick:chkPartnership; tick:chkVAT; tick:chkVATNotRegistered; "
                "txtVATRegistration=9; tick:chkVAT; pick:Mason, Bert; "
                "txtBusinessName=Mason Trading; tick:chkIndividual")
                .split("; ");
        frmForm64_8& form = OpenForm();
        QVERIFY(!form.cmdPrint->isEnabled() && !form.cmdSave->isEnabled());
        QStringList states;
        for (const QString& step : steps) {
            Step(form, step);
            states << step + QStringLiteral(" -> ") + State(form);
        }
        QVERIFY(form.cmdPrint->isEnabled() && form.cmdSave->isEnabled());
        QCOMPARE(states, ReferenceLines(QStringLiteral("form64-8-states.txt"), states));
    }

    // The name offered loses what a file name can't hold; an existing file is
    // replaced only on Yes; a file that can't be written is told.
    void savingAsksForAFileAndKeepsItsFolder() {
        frmForm64_8& form = OpenForm();
        Pick(form, QStringLiteral("Lovell, Ada"));
        TypeInto(form.Box(QStringLiteral("txtClientName")), QStringLiteral("Ada/Lovell: \"A\""));
        const QString first = Save(form, QStringLiteral("first.pdf"));
        const ShownFileDialog asked = desktop_.services.fileDialogs.Shown().last();
        QCOMPARE(asked.folder, QDir(DatabaseFolder.at(SelectedFile))
                                   .filePath(QStringLiteral("64-8 Ada_Lovell_ _A_.pdf")));
        QCOMPARE(asked.filter, QStringLiteral("PDF files (*.pdf)"));
        QCOMPARE(VSPDFFolder, QDir::toNativeSeparators(dir_.path()));
        const QByteArray saved = [&first] {
            QFile file(first);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        }();
        VSPDFFileOption = 1;
        VSPDFFileName.clear();
        desktop_.services.messages.Answer(vbNo);
        TypeInto(form.Box(QStringLiteral("txtClientName")), QStringLiteral("Changed"));
        Save(form, QStringLiteral("first.pdf"));
        QCOMPARE(desktop_.services.fileDialogs.Shown().last().folder,
                 QDir(dir_.path()).filePath(QStringLiteral("Quillon.pdf")));
        const ShownMessage replace = desktop_.services.messages.Last();
        QCOMPARE(replace.prompt, QStringLiteral("The file ") + first +
                                     QStringLiteral(" already exits. Do you wish to replace it?"));
        QCOMPARE(replace.title, QStringLiteral("Save File"));
        QFile file(first);
        QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll() == saved);
        desktop_.services.messages.Answer(vbOK);
        Save(form, QStringLiteral("no such folder/form.pdf"));
        QVERIFY(desktop_.services.messages.Last().prompt.contains(
            QStringLiteral("Procedure: frmForm64_8_cmdSave")));
    }

    // A client without one of the rows is told by the table's label and leaves
    // the form as it was; letters find names or beep.
    void missingRowsAndLettersAreTold() {
        dao::Database db = dao::OpenDatabase(ClientDatabasePath());
        db.Execute(QStringLiteral("DELETE FROM [Administration] WHERE [Last Name] = 'Owen'"));
        db.Close();
        frmForm64_8& form = OpenForm();
        Pick(form, QStringLiteral("Lovell, Ada"));
        desktop_.services.messages.Answer(vbOK);
        Pick(form, QStringLiteral("Owen, Dora"));
        QCOMPARE(desktop_.services.messages.Last().prompt,
                 QStringLiteral("Client record not found"));
        QCOMPARE(desktop_.services.messages.Last().title, QStringLiteral("Adminstration Table"));
        QCOMPARE(form.Box(QStringLiteral("txtClientName"))->text(), QStringLiteral("Ada Lovell"));
        Click(form.cmdSeek.at('N' - 'A'));
        QCOMPARE(form.lstClients->currentItem()->text(), QStringLiteral("Nash, Cora"));
        desktop_.services.messages.Answer(vbOK);
        const int beeps = desktop_.services.messages.Beeps();
        Click(form.cmdSeek.at('Z' - 'A'));
        QCOMPARE(desktop_.services.messages.Last().prompt,
                 QStringLiteral("No client name beginning with Z"));
        QCOMPARE(desktop_.services.messages.Last().title, QStringLiteral("Client Letter"));
        QCOMPARE(desktop_.services.messages.Beeps(), beeps + 1);
        // A database that can't be opened is told in the form's own words.
        QVERIFY(QFile::rename(ClientDatabasePath(), ClientDatabasePath() + ".away"));
        desktop_.services.messages.Answer(vbOK);
        Pick(form, QStringLiteral("Lovell, Ada"));
        QVERIFY(QFile::rename(ClientDatabasePath() + ".away", ClientDatabasePath()));
        QVERIFY(desktop_.services.messages.Last().prompt.startsWith(
            "Module: frmForm64_8\nProcedure: lstClients_Click\nError "));
        QCOMPARE(desktop_.services.messages.Last().title, QStringLiteral("Form 64-8"));
    }

    // The agent's details come from the settings and go back trimmed; the
    // statements tick is kept as it is clicked.
    void agentDetailsStayForTheNextForm() {
        frmForm64_8& form = OpenForm();
        QCOMPARE(form.Box(QStringLiteral("txtAgentAddress2"))->text(), QStringLiteral("Bath"));
        Pick(form, QStringLiteral("Lovell, Ada"));
        Step(form, QStringLiteral("tick:chkStatementsToAgent"));
        QCOMPARE(AgentStatements, qint16(1));
        form.Box(QStringLiteral("txtAgentName"))->setText(QStringLiteral("  Quill Partners "));
        form.Box(QStringLiteral("txtAgentCodes"))->clear();
        Click(form.cmdClose);
        QCOMPARE(AgentName, QStringLiteral("Quill Partners"));
        QVERIFY(AgentCodes.isEmpty());
        QCOMPARE(AgentAddress.at(1), QStringLiteral("1 Ledger Row"));
    }
};

QTEST_MAIN(Form64)
#include "test_form64_8.moc"
