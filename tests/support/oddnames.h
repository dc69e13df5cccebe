#ifndef ODDNAMES_H
#define ODDNAMES_H

#include <QTest>

/** Adds the test data "name": what a screen's keyboard or another machine may come up with. */
inline void addOddNames()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << " two  blanks ";
    QTest::newRow("quotes") << "\"double\" 'single'";
    QTest::newRow("newline") << "two\nlines";
    QTest::newRow("umlauts") << QString::fromUtf8("w\303\244rme.log");
    QTest::newRow("greek") << QString::fromUtf8("\316\273.log");
    QTest::newRow("255 bytes") << QString(255, 'x');
    QTest::newRow("255 bytes of umlauts") << QString(127, QChar(0xe4)) + 'x';
    QTest::newRow("percent signs") << "%1%2 100 %";
    QTest::newRow("backslash") << "a\\b";
    QTest::newRow("in front a dash") << "-rf";
}

#endif // ODDNAMES_H
