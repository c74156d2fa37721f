// Dates as the screens hold them, dd/mm/yy or dd/mm/yyyy: their parts, the
// dates they stand for, the intervals between them and the tax year.
#include "data/ql_date.h"
#include "platform/dao.h"
#include "support/error_number.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QTest>

using namespace quillon;

class TestDates : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // For each text the reference file holds its parts (1/1/1900 when the
    // separators stand wrong), its long form, the date it stands for (none
    // when refused; two-digit years to 16 are 20yy, births are always 19yy),
    // the birth date stored and whether it falls in the tax year 2014-15.
    void textsReadAsDates() {
        const QStringList texts =
            QStringLiteral(
                "1/2/03,1/12/03,12/1/03,31/12/99,1/2/2003,1/12/1903,12/1/2016,05/04/1916,1/2/16,"
                "1/2/17,01/01/00,1/12,12/12/12345,123/1/03,/12/2003,1/123/03,1/2/003,1/2/3/45,"
                "12/1203,1-2-2003,ab/cd/ef,01/02/2003,31/12/29,1/1/30,29/02/04,29/02/00,29/02/03,"
                "29/02/1900,31/04/15,0/1/03,1/13/03,1-2-03,1.2.03, 1/2/03,1/2/03 ,1/2/0099,"
                "001/2/03,+1/2/03,1/2,1/2/03/04,,31/02/03,unknown,6/4/14,05/04/14,5/4/15,"
                "06/04/15,31/12/2014,31/02/15,31/12/1999,nonsense")
                .split(',');
        QStringList outcomes;
        for (const QString& text : texts) {
            QCOMPARE(IsPlatformDate(text), PlatformDate(text).isValid());
            outcomes << QStringLiteral("\"%1\": %2/%3/%4, \"%5\", %6, birth \"%7\"%8")
                            .arg(text)
                            .arg(DayOfDate(text))
                            .arg(MonthOfDate(text))
                            .arg(YearOfDate(text))
                            .arg(LongDate(text), PlatformDate(text).toString(Qt::ISODate),
                                 ExpandBirthYear(text))
                            .arg(DateWithinTaxYear(text, 2015) ? ", in 2014-15" : "");
        }
        for (int month : {0, 1, 12, 13}) {
            outcomes << QStringLiteral("month %1: \"%2\"").arg(month).arg(MonthName(month));
        }
        for (int year : {2015, 2000, 2010}) {
            outcomes << QStringLiteral("tax year %1: %2 to %3")
                            .arg(year)
                            .arg(TaxYearStart(year), TaxYearEnd(year));
            // The bounds read back as the dates they stand for.
            QCOMPARE(DaysBetween("d", TaxYearStart(year), TaxYearEnd(year)),
                     QDate::isLeapYear(year) ? 365 : 364);
        }
        QCOMPARE(outcomes, testing::ReferenceLines("dates.txt", outcomes));
    }

    // Intervals of days, months, years, weeks from Sunday, whole weeks and
    // quarters (1 January 2000 was a Saturday); an unknown interval and a date
    // that isn't one are errors.
    void daysBetweenCountsIntervals() {
        const QStringList cases =
            QStringLiteral(
                "d 06/04/14 05/04/15; d 05/04/15 06/04/14; d 28/2/04 1/3/04; "
                "d 31/12/16 1/1/17; m 31/1/03 1/2/03; m 1/2/03 28/2/03; "
                "yyyy 31/12/03 1/1/04; ww 1/1/2000 2/1/2000; "
                "ww 2/1/2000 8/1/2000; w 1/1/2000 14/1/2000; q 31/3/03 1/4/03; "
                "h 1/2/03 2/2/03; d 31/2/03 2/2/03")
                .split("; ");
        QStringList outcomes;
        for (const QString& asked : cases) {
            const QStringList words = asked.split(' ');
            qint64 count = 0;
            const int error =
                ErrorNumberOf([&] { count = DaysBetween(words[0], words[1], words[2]); });
            outcomes << asked + (error ? QStringLiteral(": error %1").arg(error)
                                       : QStringLiteral(": %1").arg(count));
        }
        QCOMPARE(outcomes, testing::ReferenceLines("date-intervals.txt", outcomes));
    }

    void dateOutsideTheTaxYearIsTold() {
        ScriptedServices services;
        services.messages.Answer(vbOK);
        DateOutsideTaxYear();
        QCOMPARE(services.messages.Beeps(), 1);
        QCOMPARE(services.messages.Last().prompt, QString("Date must be within the tax year"));
        QCOMPARE(services.messages.Last().title, QString("Dividends"));
        QCOMPARE(services.messages.Last().style & kMsgBoxIconMask, int(vbExclamation));
    }
};

QTEST_GUILESS_MAIN(TestDates)
#include "test_dates.moc"
