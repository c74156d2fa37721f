// The year-end list: businesses of the four tables by the month of their year
// end, its merge data file, and a table that cannot be read.
#include "platform/widgets_gui.h"
#include "sections/filter_label_gui.h"
#include "sections/frmYearEnd.h"
#include "shell/forms_gui.h"
#include "shell/program_folder.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"
#include "support/sqlite_probe.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

QString Business(int n) {
    return QStringLiteral("Business %1").arg(n);
}

// Ada has two businesses ending in March, one of them with a bracket in its
// name; Bert's month has no leading zero; Cora's March row has no name, and
// Bert's third business a day but no month.
void MakeBusinesses() {
    const auto set = [](int n, const ClientName& client, const QVariant& name,
                        const QVariant& month) {
        SetFields(Business(n), client,
                  {{u"Business Name"_qs, name},
                   {u"Year end month"_qs, month},
                   {u"Year end day"_qs, u"31"_qs}});
    };
    set(1, kAda, u"Ada Bakes"_qs, u"03"_qs);
    set(1, kBert, u"Mason & Co"_qs, u"3"_qs);
    set(1, kCora, u""_qs, u"03"_qs);
    set(2, kAda, u"Ada (Cakes) Ltd"_qs, u"03"_qs);
    set(3, kBert, u"Mason Builders"_qs, QVariant());
    set(4, kCora, u"Nash Farm"_qs, u"04"_qs);
    SetFields(u"Personal"_qs, kAda,
              {{u"Title"_qs, u"Mrs"_qs}, {u"Address 1"_qs, u"1 Mill Lane"_qs}});
    SetFields(u"Administration"_qs, kAda, {{u"NI Number"_qs, u"AB123456C"_qs}});
}

QStringList Listed(const frmYearEnd* form) {
    QStringList entries;
    for (int row = 0; row < form->lstClients->count(); ++row) {
        entries << form->lstClients->item(row)->text();
    }
    return entries;
}

}  // namespace

class TestYearEnd : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theListGoesByMonthAcrossTheFourTables() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert, kCora});
        MakeBusinesses();
        auto* form = LoadForm<frmYearEnd>();
        form->show();
        QCOMPARE(form->lblFilter[0]->text(), u" JANUARY"_qs);
        Click(form->lblFilter[2]);
        QCOMPARE(Listed(form),
                 (QStringList{u"Lovell, Ada (Ada Bakes)"_qs, u"Mason, Bert (Mason & Co)"_qs,
                              u"Lovell, Ada (Ada (Cakes) Ltd)"_qs}));
        QCOMPARE(form->lblCount->text(), u"3"_qs);
        QCOMPARE(form->txtTitle->text(), u"Businesses with year end in March"_qs);
        QCOMPARE(form->lblFilter[2]->styleSheet().contains("#00ffff"), true);
        QCOMPARE(form->lblFilter[3]->styleSheet().contains("#c0c0c0"), true);
        Click(form->lblFilter[3]);
        QCOMPARE(Listed(form), QStringList{u"Nash, Cora (Nash Farm)"_qs});
        Click(form->lblFilter[4]);
        QCOMPARE(form->lblCount->text(), u"0"_qs);
        QCOMPARE(form->txtTitle->text(), u"Businesses with year end in May"_qs);

        Click(form->lblFilter[2]);
        services.messages.Answer(vbOK);
        Click(form->cm3Merge);
        QCOMPARE(services.messages.Last().style, int(vbOKCancel | vbInformation));
        QFile merge(ProgramFolder() + u"/MERGE.TXT"_qs);
        QVERIFY(merge.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromLatin1(merge.readAll()).split(u"\r\n"_qs);
        QCOMPARE(lines, ReferenceLines(u"merge-year-end.txt"_qs, lines));
        QCOMPARE(services.messages.Count(), 1);
    }

    // A table that cannot be read is told in the routine's name, and the
    // list shows what was read before it: nothing.
    void aTableThatCannotBeReadIsReported() {
        ScriptedServices services;
        SectionWorld world({kAda});
        QVERIFY(test::SqliteProbe(world.DatabasePath()).Exec(u"DROP TABLE [Business 3]"_qs));
        auto* form = LoadForm<frmYearEnd>();
        services.messages.Answer(vbOK);
        Click(form->lblFilter[0]);
        QVERIFY2(services.messages.Last().prompt.startsWith(
                     u"Module: frmYearEnd\nProcedure: UpdateList\nError 3078: "_qs),
                 qPrintable(services.messages.Last().prompt));
        QCOMPARE(form->lblCount->text(), u"0"_qs);
    }
};

QTEST_MAIN(TestYearEnd)
#include "test_year_end.moc"
