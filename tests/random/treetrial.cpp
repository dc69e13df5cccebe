#include "random/treetrial.h"

#include "random/disorder.h"

#include <QDir>

namespace {
const int changesApart = 6; // the model takes its time to notice each
const int livesApart = 8;

const TestDir &furnished(const TestDir &dir)
{
    for (const char *folder : {"sub", "deep", "sub/deep"})
        dir.folder(folder);
    for (const char *folder : {".", "sub", "sub/deep", "deep"}) {
        for (int i = 0; i < 3; ++i)
            meddle(dir.path(folder), nameOf(2 * i + folder[0] % 2), 100 + i);
    }
    return dir;
}
} // namespace

TreeTrial::TreeTrial()
    : m_dir("/home/ostan/random")
    , m_aside(m_dir.path() + "-aside")
    , m_copies(destination)
    , m_one(furnished(m_dir).path(), [this](const QString &path) { return mayGo(path); })
    , m_two(m_dir.path(), [this](const QString &path) { return mayGo(path); })
{
    m_two.end();
}

void TreeTrial::act(const Step &step)
{
    const bool isFirst = step.second / nameCount % 4 != 0;
    TriedTree &tried = isFirst ? m_one : m_two;
    TriedTree &other = isFirst ? m_two : m_one;
    if (!tried.isAlive())
        tried.begin();
    switch (step.action - TriedTree::actions) {
    case 0:
    case 1:
        if (step.first % changesApart == 0)
            changeDisk(step);
        break;
    case 2:
        tried.hear(step.first, &other);
        break;
    case 3:
        if (step.first % livesApart == 0) { // two, and the first has only begun to read
            tried.begin();
            tried.begin();
        }
        break;
    case 4:
        other.end();
        break;
    default:
        tried.act(step);
        break;
    }
    for (TriedTree *tree : {&tried, &other}) {
        if (tree->isAlive())
            tree->compare();
    }
    complaint = tried.complaint + other.complaint;
}

/** Whether no tree shows the folder @p path or one below: a view without its folder shows all. */
bool TreeTrial::mayGo(const QString &path) const
{
    for (const TriedTree *tree : {&m_one, &m_two}) {
        if (tree->isAlive() && (tree->viewRoot() + '/').startsWith(path + '/'))
            return false;
    }
    return true;
}

void TreeTrial::changeDisk(const Step &step)
{
    const char *const folders[] = {"", "/sub", "/deep", "/sub/deep"};
    const QString folder = m_dir.path() + folders[step.first / changesApart % 4];
    const QString name = nameOf(step.second);
    if (QDir(folder).exists() && mayGo(folder + '/' + name))
        meddle(folder, name, step.first);
}
