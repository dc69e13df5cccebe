#include "random/listtrial.h"

#include "random/disorder.h"

ListTrial::ListTrial()
    : m_one(&m_items)
    , m_two(&m_items)
{
}

ListTrial::~ListTrial()
{
    m_one.end();
    m_two.end();
    // The documented leak: to the last item, and no more than that.
    for (const QPointer<QObject> &item : m_items)
        delete item.data();
}

void ListTrial::act(const Step &step)
{
    const bool isFirst = step.second / nameCount % 3 != 0;
    TriedDirectory &tried = isFirst ? m_one : m_two;
    TriedDirectory &other = isFirst ? m_two : m_one;
    switch (step.action - TriedDirectory::actions) {
    case 0:
    case 1:
    case 2:
        meddle(tried.currentPath(), nameOf(step.second), step.first);
        break;
    case 3:
        tried.hear(step.first, &other);
        break;
    case 4:
        if (step.first % 16 == 0) {
            letTimersFire();
            tried.timeHasPassed();
            other.timeHasPassed();
        }
        break;
    case 5:
        if (step.first % 4 == 0)
            tried.begin();
        break;
    default:
        tried.act(step);
        break;
    }
    other.compare(); // nothing that one does shows in the other before that lists
    complaint = tried.complaint + other.complaint;
}
