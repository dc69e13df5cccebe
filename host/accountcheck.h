#ifndef ACCOUNTCHECK_H
#define ACCOUNTCHECK_H

#include <QObject>
#include <QString>

/**
 * Tells the screens whether the instrument's account can be used.
 *
 * The module throws out of a slot when it can't switch to the account, and no exception gets
 * through a QML engine alive: on Qt 5 the compiled script has no way to unwind and the process
 * ends, and where it is only interpreted the engine is left in the middle of a call and runs
 * nothing more. Nor is the script of Qt 4.8 made for it. So a screen has to ask before it calls,
 * and the user-interface process has to offer the answer: this object, as the context property
 * "account".
 */
class AccountCheck : public QObject
{
    Q_OBJECT

public:
    explicit AccountCheck(QObject *parent = nullptr);

    /**
     * Tries the switch to the account and back, as the module does it. Cheap: one look into the
     * account database.
     *
     * @return why the module would throw now; empty when it would not
     */
    Q_INVOKABLE QString refusal() const;
};

#endif // ACCOUNTCHECK_H
