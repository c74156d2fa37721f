// The client records report: whole records compared with their references, a
// long record running onto further pages within the paper, the ticks kept in
// the settings, and failures told.

#include "platform/dao.h"
#include "reports/frmClientRecords.h"
#include "reports/report_state.h"
#include "shell/configuration.h"
#include "shell/variables.h"
#include "support/print_fakes.h"
#include "support/report_reading.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QCheckBox>
#include <QFile>
#include <QFontMetricsF>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

#include <memory>

using namespace quillon;
using namespace quillon::testing;

namespace {

// Gives the clients the rows of tests/data/records/client-rows.txt.
void FillClientRows() {
    QFile file(QStringLiteral(QUILLON_TEST_DATA_DIR "/records/client-rows.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        const QStringList part = line.split(QLatin1Char('|'));
        if (part.size() == 4 && !line.startsWith(QLatin1Char('#'))) {
            const QVariant value = part[3] == QLatin1String("Yes") ? QVariant(true) : part[3];
            SetFields(part[0], part[1] == QLatin1String("Lovell") ? kAda : kBert,
                      {{part[2], value}});
        }
    }
}

// Cora's four employments and four businesses filled to the last line, and
// user-defined values too wide to stand side by side.
void FillWholePages() {
    using Fields = QList<QPair<QString, QVariant>>;
    const QString wide(60, QLatin1Char('W'));
    Fields fields;
    for (int n = 1; n <= 8; ++n) {
        fields += {{QStringLiteral("Tax Year %1").arg(n), QStringLiteral("2019-20")},
                   {QStringLiteral("NRE %1").arg(n), QStringLiteral("99999999")},
                   {QStringLiteral("Address %1").arg(qMin(n, 5)), wide}};
    }
    for (int page = 1; page <= 4; ++page) {
        SetFields(QStringLiteral("Employment %1").arg(page), kCora,
                  fields + Fields{{"Employer", wide}, {"Occupation", wide}});
        SetFields(QStringLiteral("Business %1").arg(page), kCora,
                  fields + Fields{{"Description", wide}, {"Business Name", wide}});
    }
    SetFields("User", kCora, {{"Left 1", QString(40, 'L')}, {"Right 1", QString(40, 'R')}});
}

}  // namespace

class ClientRecords : public QObject {
    Q_OBJECT

private:
    PrintDesktop desktop_;
    std::unique_ptr<SectionWorld> world_;
    std::unique_ptr<frmClientRecords> form_;

    frmClientRecords& OpenForm() {
        form_ = std::make_unique<frmClientRecords>();
        form_->show();
        return *form_;
    }
    // Selects `entries` on the form and prints them.
    void Print(const QStringList& entries) {
        form_->lstClients->clearSelection();
        for (const QString& entry : entries) {
            form_->lstClients->findItems(entry, Qt::MatchExactly).value(0)->setSelected(true);
        }
        Click(form_->cm3Print);
    }

private Q_SLOTS:
    void initTestCase() {
        world_ = std::make_unique<SectionWorld>(QList<ClientName>{kAda, kBert, kCora});
        QVERIFY(QFile::exists(OfficeDatabasePath()));
        FillClientRows();
        FillWholePages();
        dao::Database db = dao::OpenDatabase(ClientDatabasePath());
        db.Execute(QStringLiteral("DELETE FROM [Administration] WHERE [Last Name] = 'Mason'"));
        db.Execute("UPDATE [Common] SET [Title] = 'Practice notes' WHERE [Name] = 'User'");
    }
    void init() {
        SetDefaults();
        desktop_.backend.jobs.clear();
        desktop_.backend.failure.clear();
    }
    void cleanup() {
        form_.reset();
        desktop_.services.messages.CheckAllAnswersUsed(__FILE__, __LINE__);
    }

    // The pages of two clients, operation by operation: one with something in
    // every section, one with little and no administration row; with every
    // section ticked, and with the ticks cleared by their clicks but two.
    void recordsMatchTheirReferences_data() {
        QTest::addColumn<QStringList>("unticked");
        QTest::newRow("every-section") << QStringList{};
        QTest::newRow("administration-diary")
            << QStringList{"chkPersonal", "chkEmployment",    "chkBusiness",
                           "chkAssets",   "chkContributions", "chkUser"};
    }
    void recordsMatchTheirReferences() {
        QFETCH(QStringList, unticked);
        frmClientRecords& form = OpenForm();
        for (const QString& tick : unticked) {
            Click(form.Tick(tick));
        }
        Print({"Mason, Bert", "Lovell, Ada"});
        QCOMPARE(desktop_.backend.jobs.size(), size_t(1));
        const QStringList operations = Operations(desktop_.backend.jobs.at(0).document);
        const QString reference =
            QStringLiteral("client-records-%1.txt").arg(QTest::currentDataTag());
        QCOMPARE(operations, ReferenceLines(reference, operations));
    }

    // Four employments and four businesses run onto further pages, every text
    // within the printer's area and none over another.
    void longRecordStaysOnThePaper() {
        const QRectF area(QPointF(240, 300), A4SizeTwips() - QSizeF(480, 600));
        desktop_.backend.printableArea = area;
        OpenForm();
        Print({"Nash, Cora"});
        const PageDocument& document = desktop_.backend.jobs.at(0).document;
        QVERIFY(document.PageCount() >= 3);
        for (const ReportPage& page : document.pages) {
            QList<QRectF> placed;
            for (const DrawOp& op : page.ops) {
                const auto* text = std::get_if<TextOp>(&op);
                QVERIFY(text);
                const QFontMetricsF metrics(text->font);
                const QRectF box(text->topLeft,
                                 QSizeF(metrics.horizontalAdvance(text->text), metrics.height()));
                QVERIFY2(area.contains(box), qPrintable(text->text));
                for (const QRectF& other : placed) {
                    QVERIFY2(!other.intersected(box).isValid(), qPrintable(text->text));
                }
                placed << box.adjusted(0, 1, 0, -1);
            }
        }
    }

    // Nothing selected prints nothing; the ticks stay for the next time; the
    // user-defined section goes by its title; a printer that fails is told.
    void ticksStayAndFailuresAreTold() {
        frmClientRecords& form = OpenForm();
        QCOMPARE(form.Tick("chkUser")->text(), QStringLiteral("Practice notes"));
        Print({});
        QVERIFY(desktop_.backend.jobs.empty());
        Click(form.Tick("chkAssets"));
        QCOMPARE(ClientRecordAssets, qint16(0));
        QVERIFY(!OpenForm().Tick("chkAssets")->isChecked());
        desktop_.backend.failure = QStringLiteral("Out of paper");
        desktop_.services.messages.Answer(vbOK);
        Print({"Lovell, Ada"});
        const ShownMessage told = desktop_.services.messages.Last();
        QVERIFY(told.prompt.startsWith("Module: frmClientRecords\nProcedure: cm3Print_Click\n"));
        QCOMPARE(told.title, QStringLiteral("Client Records"));
    }
};

QTEST_MAIN(ClientRecords)
#include "test_client_records.moc"
