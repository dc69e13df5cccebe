#include "support/qmltypes.h"

#include "support/metanames.h"

#include <QMetaEnum>
#include <QMetaProperty>
#include <QStringList>

namespace {
QByteArray quoted(const QByteArray &text)
{
    return '"' + text + '"';
}

// The type whose members are inherited, by the name that the Qt of this line has for it.
QByteArray prototypeOf(const QMetaObject &type)
{
    QByteArray name = type.superClass()->className();
#if QT_VERSION >= 0x050000
    if (name == "QDeclarativeItem")
        return "QQuickItem";
#endif
    return name;
}

// Lists are a mark on the property, and 64-bit numbers go by Qt's older names.
QByteArray described(QByteArray type)
{
    if (type == "qint64" || type == "quint64")
        type.replace("int64", "longlong");
    const QByteArray item = itemOfList(type);
    return item.isEmpty() ? "type: " + quoted(type) : "type: " + quoted(item) + "; isList: true";
}

QByteArray describe(const QMetaEnum &values)
{
    QByteArray lines;
    for (int i = 0; i < values.keyCount(); ++i) {
        lines += "                " + quoted(values.key(i)) + ": " +
                 QByteArray::number(values.value(i)) + (i + 1 < values.keyCount() ? ",\n" : "\n");
    }
    return "        Enum {\n            name: " + quoted(values.name()) +
           "\n            values: {\n" + lines + "            }\n        }\n";
}

QByteArray describe(const QMetaProperty &property)
{
    return "        Property { name: " + quoted(property.name()) + "; " +
           described(property.typeName()) + (property.isWritable() ? "" : "; isReadonly: true") +
           " }\n";
}

QByteArray describe(const QMetaMethod &method)
{
    const bool isSignal = method.methodType() == QMetaMethod::Signal;
    const QByteArray result = method.typeName();
    const QList<QByteArray> types = method.parameterTypes();
    const QList<QByteArray> names = method.parameterNames();
    const bool isVoid = result.isEmpty() || result == "void"; // on Qt 4.8 and on the others
    QByteArray text = isSignal ? "        Signal {" : "        Method {";
    if (isVoid && types.isEmpty())
        return text + " name: " + quoted(nameOf(method)) + " }\n";
    text += "\n            name: " + quoted(nameOf(method)) + '\n';
    if (!isVoid)
        text += "            " + described(result) + '\n';
    for (int i = 0; i < types.size(); ++i) {
        text += "            Parameter { ";
        if (!names.at(i).isEmpty())
            text += "name: " + quoted(names.at(i)) + "; ";
        text += described(types.at(i)) + " }\n";
    }
    return text + "        }\n";
}

bool isPublic(const QMetaMethod &method)
{
    return method.methodType() == QMetaMethod::Signal || method.access() == QMetaMethod::Public;
}
} // namespace

QByteArray describeForTools(const QMetaObject &type)
{
    const QByteArray name = type.className();
    // The version of the meta-object is that of the export on Qt 6, and a count of its own before.
    const QByteArray revision = QT_VERSION < 0x060000 ? "0" : "256";
    QByteArray text = "    Component {\n        name: " + quoted(name) +
                      "\n        prototype: " + quoted(prototypeOf(type)) + "\n        exports: [" +
                      quoted("FileBrowser/" + name + " 1.0") +
                      "]\n        exportMetaObjectRevisions: [" + revision + "]\n";
    for (int i = type.enumeratorOffset(); i < type.enumeratorCount(); ++i)
        text += describe(type.enumerator(i));
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
        text += describe(type.property(i));
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        if (isPublic(type.method(i)))
            text += describe(type.method(i));
    }
    return text + "    }\n";
}
