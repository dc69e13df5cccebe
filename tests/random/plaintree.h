#ifndef PLAINTREE_H
#define PLAINTREE_H

#include <QString>
#include <QStringList>

#include <functional>

/** What a FileTreeViewerItem must tell about paths, names, filters and flags. */
class PlainTree
{
public:
    PlainTree();

    void setRoot(const QString &path);
    void setCurrentPath(const QString &path);

    /** The row of @p path is touched. */
    void touch(const QString &path);
    void selectNothing();

    void setWords(const QString &words);
    void forgetWords();
    void setFilterOn(bool isOn);

    /** Whether the filter in force shows the file @p name. */
    bool shows(const QString &name) const;

    QString root;
    QString viewRoot; ///< the folder whose rows the view has at its top
    int moves;        ///< how often that was set
    QString folder;
    QString file;
    QString selectedFile;
    QString row;     ///< path of the selected row, empty without one
    QString current; ///< path of the row touched last; a move leaves it alone
    QString words;
    QStringList patterns;
    bool isFilterOn;
    bool opensFolders;
    bool showsRoot;
    bool foldersFirst;

    // What handlers do, each where its signal is emitted; empty without one.
    std::function<void()> whenMoved;
    std::function<void()> whenTouched;

private:
    void setFolder(const QString &path);
    void setFile(const QString &name);
    void filter();
};

#endif // PLAINTREE_H
