#include "random/listtrial.h"

#include "random/disorder.h"

namespace {
/** Something in each folder, so that there is what to mark from the first step on. */
void furnish(const TestDir &dir, const QStringList &folders)
{
    for (const QString &folder : folders) {
        dir.folder(folder);
        for (int i = 0; i < 4; ++i)
            meddle(dir.path(folder), nameOf(i), 300 * i + folder.size());
    }
}
} // namespace

ListTrial::ListTrial()
    : m_logs("/home/ostan/logs")
    , m_configs("/home/ostan/configs")
    , m_scripts("/home/ostan/autoprogs")
    , m_copies(destination)
    , m_one(&m_items)
    , m_two(&m_items)
{
    furnish(m_logs, QStringList() << "."
                                  << "sub"
                                  << "deep"
                                  << "deep/sub");
    furnish(m_configs, QStringList("."));
    furnish(m_scripts, QStringList("."));
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
