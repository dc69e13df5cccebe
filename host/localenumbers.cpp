#include "host/localenumbers.h"

#include <QLocale>

LocaleNumbers::LocaleNumbers(QObject *parent)
    : QObject(parent)
{
}

QString LocaleNumbers::text(double number, int decimals) const
{
    return QLocale().toString(number, 'f', decimals);
}
