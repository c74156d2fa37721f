#include "data/validate.h"
#include "support/scripted_services.h"

#include <QTest>

using namespace quillon;

class TestValidate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keyFilters_data() {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("passed");  // 0 when refused
        QTest::newRow("date: digit") << "date" << int('0') << int('0');
        QTest::newRow("date: 9") << "date" << int('9') << int('9');
        QTest::newRow("date: slash") << "date" << int('/') << int('/');
        QTest::newRow("date: dot becomes slash") << "date" << int('.') << int('/');
        QTest::newRow("date: backspace") << "date" << kKeyBackspace << kKeyBackspace;
        QTest::newRow("date: letter") << "date" << int('a') << 0;
        QTest::newRow("date: dash") << "date" << int('-') << 0;
        QTest::newRow("date: colon") << "date" << int(':') << 0;
        QTest::newRow("date: blank") << "date" << int(' ') << 0;
        QTest::newRow("digit: digit") << "digit" << int('5') << int('5');
        QTest::newRow("digit: backspace") << "digit" << kKeyBackspace << kKeyBackspace;
        QTest::newRow("digit: slash") << "digit" << int('/') << 0;
        QTest::newRow("digit: dot") << "digit" << int('.') << 0;
        QTest::newRow("digit: letter") << "digit" << int('x') << 0;
        QTest::newRow("amount: digit") << "amount" << int('7') << int('7');
        QTest::newRow("amount: point") << "amount" << int('.') << int('.');
        QTest::newRow("amount: open") << "amount" << int('(') << int('(');
        QTest::newRow("amount: close") << "amount" << int(')') << int(')');
        QTest::newRow("amount: minus") << "amount" << int('-') << int('-');
        QTest::newRow("amount: backspace") << "amount" << kKeyBackspace << kKeyBackspace;
        QTest::newRow("amount: plus") << "amount" << int('+') << 0;
        QTest::newRow("amount: comma") << "amount" << int(',') << 0;
        QTest::newRow("amount: slash") << "amount" << int('/') << 0;
        QTest::newRow("alpha: A") << "alpha" << int('A') << int('A');
        QTest::newRow("alpha: Z") << "alpha" << int('Z') << int('Z');
        QTest::newRow("alpha: a") << "alpha" << int('a') << int('a');
        QTest::newRow("alpha: z") << "alpha" << int('z') << int('z');
        QTest::newRow("alpha: 0") << "alpha" << int('0') << int('0');
        QTest::newRow("alpha: backspace") << "alpha" << kKeyBackspace << kKeyBackspace;
        QTest::newRow("alpha: before A") << "alpha" << int('@') << 0;
        QTest::newRow("alpha: after Z") << "alpha" << int('[') << 0;
        QTest::newRow("alpha: before a") << "alpha" << int('`') << 0;
        QTest::newRow("alpha: after z") << "alpha" << int('{') << 0;
        QTest::newRow("alpha: blank") << "alpha" << int(' ') << 0;
        QTest::newRow("alpha: accented") << "alpha" << 0xE9 << 0;
    }
    void keyFilters() {
        QFETCH(QString, filter);
        QFETCH(int, key);
        QFETCH(int, passed);
        ScriptedServices services;
        if (filter == "date") {
            DateKeyFilter(key);
        } else if (filter == "digit") {
            DigitKeyFilter(key);
        } else if (filter == "amount") {
            AmountKeyFilter(key);
        } else {
            AlphaNumericKeyFilter(key);
        }
        QCOMPARE(key, passed);
        QCOMPARE(services.messages.Beeps(), passed == 0 ? 1 : 0);
    }

    void validDate_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        QTest::newRow("empty box") << "" << true;
        QTest::newRow("d/m/yy") << "1/2/03" << true;
        QTest::newRow("d/mm/yy") << "1/12/03" << true;
        QTest::newRow("dd/m/yy") << "12/1/03" << true;
        QTest::newRow("dd/mm/yy") << "31/12/99" << true;
        QTest::newRow("length 5") << "1/2/3" << false;
        QTest::newRow("four-digit year, length 8") << "1/2/2003" << false;
        QTest::newRow("length 9") << "12/1/2003" << false;
        QTest::newRow("length 10") << "01/02/2003" << false;
        QTest::newRow("empty month") << "1//03" << false;
        QTest::newRow("empty month, length 6") << "11//03" << false;
        QTest::newRow("leading slash") << "/1/2/03" << false;
        QTest::newRow("trailing slash") << "1/2/03/" << false;
        QTest::newRow("three year digits") << "1/2/003" << false;
        QTest::newRow("one year digit") << "12/12/3" << false;
        QTest::newRow("6: day of three") << "123/03" << false;
        QTest::newRow("7: day of four") << "1234/03" << false;
        QTest::newRow("7: two slashes together") << "1//2/03" << false;
        QTest::newRow("8: month of three") << "1/123/03" << false;
        QTest::newRow("8: day of three") << "123/1/03" << false;
        QTest::newRow("letters in place") << "ab/cd/ef" << false;
        QTest::newRow("dots not yet slashes") << "1.2.03" << false;
        QTest::newRow("31 April") << "31/04/15" << false;
        QTest::newRow("month 13") << "1/13/03" << false;
        QTest::newRow("leap 2004") << "29/02/04" << true;
        QTest::newRow("2003 no leap year") << "29/02/03" << false;
        QTest::newRow("29/2/00") << "29/2/00" << true;
        QTest::newRow("29/02/00") << "29/02/00" << true;
        QTest::newRow("2001 no leap year") << "29/2/01" << false;
    }
    void validDate() {
        QFETCH(QString, text);
        QFETCH(bool, valid);
        QCOMPARE(ValidDate(text), valid);
    }

    void validBirthDate_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        QTest::newRow("empty box") << "" << true;
        QTest::newRow("dd/mm/yyyy") << "01/02/2003" << true;
        QTest::newRow("d/m/yyyy, length 8") << "1/2/2003" << true;
        QTest::newRow("dd/m/yyyy, length 9") << "12/2/2003" << true;
        QTest::newRow("d/mm/yyyy, length 9") << "1/12/2003" << true;
        QTest::newRow("two-digit year") << "1/2/03" << true;
        QTest::newRow("dd/mm/yy") << "12/12/03" << true;
        QTest::newRow("length 5") << "1/2/3" << false;
        QTest::newRow("length 11") << "01/02/20030" << false;
        QTest::newRow("three year digits") << "12/12/200" << false;
        QTest::newRow("leading slash") << "/1/2/2003" << false;
        QTest::newRow("trailing slash") << "1/2/2003/" << false;
        QTest::newRow("10: month of three") << "1/123/2003" << false;
        QTest::newRow("10: day of three") << "123/1/2003" << false;
        QTest::newRow("10: empty month") << "12//1/2003" << false;
        QTest::newRow("1900 no leap year") << "29/02/1900" << false;
        QTest::newRow("leap 2000") << "29/02/2000" << true;
        QTest::newRow("leap 1904") << "29/02/1904" << true;
        QTest::newRow("1903 no leap year") << "29/02/1903" << false;
        QTest::newRow("29/2/00") << "29/2/00" << true;
        QTest::newRow("29/02/00") << "29/02/00" << true;
        QTest::newRow("31 June") << "31/06/1950" << false;
    }
    void validBirthDate() {
        QFETCH(QString, text);
        QFETCH(bool, valid);
        QCOMPARE(ValidBirthDate(text), valid);
    }

    void invalidDateMessages_data() {
        QTest::addColumn<bool>("birthDate");
        QTest::addColumn<QString>("prompt");
        QTest::newRow("date") << false
                              << "Invalid date - you must enter dates in the format dd/mm/yy";
        QTest::newRow("birth date")
            << true << "Invalid date - you must enter dates in the format dd/mm/yyyy";
    }
    void invalidDateMessages() {
        QFETCH(bool, birthDate);
        QFETCH(QString, prompt);
        ScriptedServices services;
        services.messages.Answer(vbOK);
        birthDate ? InvalidBirthDate() : InvalidDate();
        QCOMPARE(services.messages.Beeps(), 1);
        QCOMPARE(services.messages.Count(), 1);
        QCOMPARE(services.messages.Last().prompt, prompt);
        QCOMPARE(services.messages.Last().style, int(vbOKOnly | vbExclamation));
        QCOMPARE(services.messages.Last().title, QString("Invalid Date"));
    }
};

QTEST_GUILESS_MAIN(TestValidate)
#include "test_validate.moc"
