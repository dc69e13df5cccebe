#ifndef LOCALENUMBERS_H
#define LOCALENUMBERS_H

#include <QObject>
#include <QString>

/**
 * Writes numbers for the screens as the locale does, which the scripts of Qt Quick 1 can't. The
 * user-interface process offers it as the context property "numbers".
 */
class LocaleNumbers : public QObject
{
    Q_OBJECT

public:
    explicit LocaleNumbers(QObject *parent = nullptr);

    /** @p number with @p decimals places behind the point. */
    Q_INVOKABLE QString text(double number, int decimals) const;
};

#endif // LOCALENUMBERS_H
