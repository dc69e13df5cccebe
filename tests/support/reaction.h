#ifndef REACTION_H
#define REACTION_H

#include <QObject>

#include <functional>

/** Does something whenever an object emits a signal, as long as the reaction lives. */
class Reaction : public QObject
{
    Q_OBJECT

public:
    /** Calls @p action inside each emission of @p signal, written SIGNAL(name()). */
    Reaction(QObject *sender, const char *signal, const std::function<void()> &action);

private slots:
    void react();

private:
    const std::function<void()> m_action;
};

#endif // REACTION_H
