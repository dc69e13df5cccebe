#include "support/referencepage.h"

#include "support/metanames.h"

#include <QMetaEnum>
#include <QMetaProperty>

namespace {
// What stands between the first pair of these.
QByteArray between(const QByteArray &text, const QByteArray &start, const QByteArray &end)
{
    const int from = text.indexOf(start) + start.size();
    return text.mid(from, text.indexOf(end, from) - from);
}

QByteArray qmlType(QByteArray type)
{
    const QByteArray item = itemOfList(type);
    if (!item.isEmpty())
        return "list<" + qmlType(item) + ">";
    type.replace("&", "");
    const int scope = type.lastIndexOf("::");
    if (scope >= 0)
        type.remove(0, scope + 2);
    if (type == "QString")
        return "string";
    if (type == "qint64" || type == "quint64" || type == "qlonglong" || type == "qulonglong")
        return "real";
    return type == "void" ? QByteArray() : type;
}

QByteArray describe(const QMetaProperty &property)
{
    const QByteArray signal =
        property.hasNotifySignal() ? "told by " + nameOf(property.notifySignal()) : "a constant";
    return QByteArray(property.name()) + " : " + qmlType(property.typeName()) +
           (property.isWritable() ? ", writable, " : ", read-only, ") + signal;
}

QByteArray describe(const QMetaMethod &method)
{
    QStringList arguments;
    for (int i = 0; i < method.parameterTypes().size(); ++i) {
        const QByteArray name = method.parameterNames().at(i);
        arguments << qmlType(method.parameterTypes().at(i)) +
                         (name.isEmpty() ? QByteArray() : ' ' + name);
    }
    const QByteArray result = qmlType(method.typeName());
    return (result.isEmpty() ? QByteArray() : result + ' ') + nameOf(method) + '(' +
           arguments.join(", ").toLatin1() + ')';
}

// "Writable, told by `rootChanged()`, which is never emitted." says what the heading does not.
QByteArray accessOf(const QByteArray &line)
{
    const QByteArray access = line.startsWith("Writable") ? ", writable, " : ", read-only, ";
    return access + (line.contains('`') ? "told by " + between(line, "`", "()`") : "a constant");
}
} // namespace

QStringList membersOnPage(const QByteArray &page)
{
    QStringList members;
    const QList<QByteArray> lines = page.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QByteArray &line = lines.at(i);
        if (line.startsWith("### `")) {
            const QByteArray heading = between(line, "`", "`");
            if (heading.contains(" : "))
                members << heading + accessOf(lines.value(i + 2));
            else if (heading.contains('('))
                members << heading;
        } else if (line.startsWith("| `")) { // a row of an enum: the other tables have links
            members << between(line, "`", "`") + " = " + between(line, "` | ", " |");
        }
    }
    return members;
}

QStringList membersForPage(const QMetaObject &type)
{
    QStringList members;
    for (int i = type.enumeratorOffset(); i < type.enumeratorCount(); ++i) {
        const QMetaEnum values = type.enumerator(i);
        for (int key = 0; key < values.keyCount(); ++key)
            members << values.key(key) + QByteArray(" = ") + QByteArray::number(values.value(key));
    }
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
        members << describe(type.property(i));
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        members << describe(type.method(i));
    return members;
}
