#include "support/reaction.h"

Reaction::Reaction(QObject *sender, const char *signal, const std::function<void()> &action)
    : m_action(action)
{
    connect(sender, signal, this, SLOT(react()));
}

void Reaction::react()
{
    m_action();
}
