#include "data/ql_date.h"
#include "platform/dao.h"
#include "support/error_number.h"
#include "support/scripted_services.h"

#include <QTest>

using namespace quillon;

class TestDates : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void datePartsFollowTheSeparators_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("day");
        QTest::addColumn<int>("month");
        QTest::addColumn<int>("year");
        QTest::newRow("d/m/yy") << "1/2/03" << 1 << 2 << 2003;
        QTest::newRow("d/mm/yy") << "1/12/03" << 1 << 12 << 2003;
        QTest::newRow("dd/m/yy") << "12/1/03" << 12 << 1 << 2003;
        QTest::newRow("dd/mm/yy") << "31/12/99" << 31 << 12 << 1999;
        QTest::newRow("d/m/yyyy") << "1/2/2003" << 1 << 2 << 2003;
        QTest::newRow("d/mm/yyyy") << "1/12/1903" << 1 << 12 << 1903;
        QTest::newRow("dd/m/yyyy") << "12/1/2016" << 12 << 1 << 2016;
        QTest::newRow("dd/mm/yyyy") << "05/04/1916" << 5 << 4 << 1916;
        QTest::newRow("pivot: 16 is 2016") << "1/2/16" << 1 << 2 << 2016;
        QTest::newRow("pivot: 17 is 1917") << "1/2/17" << 1 << 2 << 1917;
        QTest::newRow("00 is 2000") << "01/01/00" << 1 << 1 << 2000;
        QTest::newRow("too short") << "1/12" << 1 << 1 << 1900;
        QTest::newRow("too long") << "12/12/12345" << 1 << 1 << 1900;
        QTest::newRow("first / at 4") << "123/1/03" << 1 << 1 << 1900;
        QTest::newRow("first / at 1") << "/12/2003" << 1 << 1 << 1900;
        QTest::newRow("month of three") << "1/123/03" << 1 << 1 << 1900;
        QTest::newRow("year of three") << "1/2/003" << 1 << 2 << 1900;
        QTest::newRow("third separator") << "1/2/3/45" << 1 << 2 << 1900;
        QTest::newRow("no second /") << "12/1203" << 1 << 1 << 1900;
        QTest::newRow("other separator") << "1-2-2003" << 1 << 1 << 1900;
        QTest::newRow("letters") << "ab/cd/ef" << 1 << 1 << 1900;
    }
    void datePartsFollowTheSeparators() {
        QFETCH(QString, text);
        QFETCH(int, day);
        QFETCH(int, month);
        QFETCH(int, year);
        QCOMPARE(DayOfDate(text), day);
        QCOMPARE(MonthOfDate(text), month);
        QCOMPARE(YearOfDate(text), year);
    }

    void monthNamesAndLongDates() {
        QCOMPARE(MonthName(0), QString());
        QCOMPARE(MonthName(1), QString("January"));
        QCOMPARE(MonthName(12), QString("December"));
        QCOMPARE(MonthName(13), QString());
        QCOMPARE(LongDate("1/2/03"), QString("1 February 2003"));
        QCOMPARE(LongDate("31/12/1999"), QString("31 December 1999"));
        QCOMPARE(LongDate("nonsense"), QString("1 January 1900"));
    }

    void platformDateTest_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");  // null when refused
        QTest::newRow("short") << "1/2/03" << QDate(2003, 2, 1);
        QTest::newRow("four-digit year") << "01/02/2003" << QDate(2003, 2, 1);
        QTest::newRow("29 is 2029") << "31/12/29" << QDate(2029, 12, 31);
        QTest::newRow("30 is 1930") << "1/1/30" << QDate(1930, 1, 1);
        QTest::newRow("leap 2004") << "29/02/04" << QDate(2004, 2, 29);
        QTest::newRow("leap 2000") << "29/02/00" << QDate(2000, 2, 29);
        QTest::newRow("2003 no leap year") << "29/02/03" << QDate();
        QTest::newRow("1900 no leap year") << "29/02/1900" << QDate();
        QTest::newRow("30 days in April") << "31/04/15" << QDate();
        QTest::newRow("day 0") << "0/1/03" << QDate();
        QTest::newRow("month 13, never read as m/d") << "1/13/03" << QDate();
        QTest::newRow("dashes") << "1-2-03" << QDate();
        QTest::newRow("dots") << "1.2.03" << QDate();
        QTest::newRow("leading blank") << " 1/2/03" << QDate();
        QTest::newRow("trailing blank") << "1/2/03 " << QDate();
        QTest::newRow("three-digit year") << "1/2/003" << QDate();
        QTest::newRow("year below 100") << "1/2/0099" << QDate();
        QTest::newRow("three-digit day") << "001/2/03" << QDate();
        QTest::newRow("sign") << "+1/2/03" << QDate();
        QTest::newRow("two parts") << "1/2" << QDate();
        QTest::newRow("four parts") << "1/2/03/04" << QDate();
        QTest::newRow("empty") << "" << QDate();
    }
    void platformDateTest() {
        QFETCH(QString, text);
        QFETCH(QDate, date);
        QCOMPARE(PlatformDate(text), date);
        QCOMPARE(IsPlatformDate(text), date.isValid());
    }

    void expandBirthYear_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("stored");
        QTest::newRow("two digits become 19yy") << "1/2/03"
                                                << "01/02/1903";
        QTest::newRow("no pivot for births") << "1/2/16"
                                             << "01/02/1916";
        QTest::newRow("already padded") << "31/12/99"
                                        << "31/12/1999";
        QTest::newRow("four digits kept") << "1/2/2003"
                                          << "1/2/2003";
        QTest::newRow("not a date kept") << "31/02/03"
                                         << "31/02/03";
        QTest::newRow("text kept") << "unknown"
                                   << "unknown";
        QTest::newRow("empty kept") << ""
                                    << "";
    }
    void expandBirthYear() {
        QFETCH(QString, text);
        QFETCH(QString, stored);
        QCOMPARE(ExpandBirthYear(text), stored);
    }

    void daysBetweenCountsIntervals_data() {
        QTest::addColumn<QString>("interval");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<qint64>("count");
        QTest::newRow("tax year in days") << "d"
                                          << "06/04/14"
                                          << "05/04/15" << qint64(364);
        QTest::newRow("backwards") << "d"
                                   << "05/04/15"
                                   << "06/04/14" << qint64(-364);
        QTest::newRow("over a leap day") << "d"
                                         << "28/2/04"
                                         << "1/3/04" << qint64(2);
        QTest::newRow("over the pivot") << "d"
                                        << "31/12/16"
                                        << "1/1/17" << qint64(-36524);
        QTest::newRow("month boundary") << "m"
                                        << "31/1/03"
                                        << "1/2/03" << qint64(1);
        QTest::newRow("same month") << "m"
                                    << "1/2/03"
                                    << "28/2/03" << qint64(0);
        QTest::newRow("year boundary") << "yyyy"
                                       << "31/12/03"
                                       << "1/1/04" << qint64(1);
        // 1 January 2000 was a Saturday.
        QTest::newRow("Saturday to Sunday") << "ww"
                                            << "1/1/2000"
                                            << "2/1/2000" << qint64(1);
        QTest::newRow("Sunday to Saturday") << "ww"
                                            << "2/1/2000"
                                            << "8/1/2000" << qint64(0);
        QTest::newRow("whole weeks") << "w"
                                     << "1/1/2000"
                                     << "14/1/2000" << qint64(1);
        QTest::newRow("quarters") << "q"
                                  << "31/3/03"
                                  << "1/4/03" << qint64(1);
    }
    void daysBetweenCountsIntervals() {
        QFETCH(QString, interval);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(qint64, count);
        QCOMPARE(DaysBetween(interval, from, to), count);
    }

    void daysBetweenRefusesWhatItCannotCount() {
        QCOMPARE(ErrorNumberOf([] { DaysBetween("h", "1/2/03", "2/2/03"); }), 5);
        QCOMPARE(ErrorNumberOf([] { DaysBetween("d", "31/2/03", "2/2/03"); }), 13);
    }

    void taxYearBounds() {
        QCOMPARE(TaxYearStart(2015), QString("06/04/14"));
        QCOMPARE(TaxYearEnd(2015), QString("05/04/15"));
        QCOMPARE(TaxYearStart(2000), QString("06/04/99"));
        QCOMPARE(TaxYearEnd(2000), QString("05/04/00"));
        QCOMPARE(TaxYearStart(2010), QString("06/04/09"));
        // The bounds must read back as the dates they stand for.
        QCOMPARE(DaysBetween("d", TaxYearStart(2013), TaxYearEnd(2013)), qint64(364));
    }

    void dividendDatesWithinTheTaxYear_data() {
        QTest::addColumn<QString>("date");
        QTest::addColumn<bool>("inside");
        QTest::newRow("first day") << "6/4/14" << true;
        QTest::newRow("day before") << "05/04/14" << false;
        QTest::newRow("last day") << "5/4/15" << true;
        QTest::newRow("day after") << "06/04/15" << false;
        QTest::newRow("four-digit year") << "31/12/2014" << true;
        QTest::newRow("no date") << "31/02/15" << false;
    }

    void dividendDatesWithinTheTaxYear() {
        QFETCH(QString, date);
        QFETCH(bool, inside);
        QCOMPARE(DateWithinTaxYear(date, 2015), inside);
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
