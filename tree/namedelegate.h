#ifndef NAMEDELEGATE_H
#define NAMEDELEGATE_H

#include <QStyledItemDelegate>

/**
 * Draws names of files, which may hold any character but "/", on one line and in the direction of
 * their own letters. A line break is drawn as a pilcrow, where a view would show the first line
 * alone; other control characters, and those that only steer the direction, as a dot in the middle.
 */
class NameDelegate : public QStyledItemDelegate
{
public:
    explicit NameDelegate(QObject *parent)
        : QStyledItemDelegate(parent)
    {
    }

    /** The name @p value as it is drawn. */
    QString displayText(const QVariant &value, const QLocale &locale) const override;
};

#endif // NAMEDELEGATE_H
