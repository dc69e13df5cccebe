#include "support/screens.h"
#include "support/stick.h"

#include <QColor>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QLocale>
#include <QMap>
#include <QSet>
#include <QStringList>
#include <QXmlStreamReader>
#include <QtTest>

#include <cmath>

namespace {
const qreal leastContrast = 4.5;
const int leastPixels = 16;
const int touchPixels = 56;
const int safePixels = 16;

// Relative luminance, as the accessibility guidelines of the web define it.
qreal luminance(const QColor &color)
{
    const auto linear = [](qreal part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

qreal contrast(const QColor &one, const QColor &other)
{
    const qreal lighter = qMax(luminance(one), luminance(other));
    const qreal darker = qMin(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

bool has(const ShownItem &item, const char *property)
{
    return item.object->property(property).isValid();
}

bool isText(const ShownItem &item)
{
    return has(item, "paintedWidth") && has(item, "font") && has(item, "text") &&
           !item.object->property("text").toString().isEmpty();
}

bool isGround(const ShownItem &item)
{
    return has(item, "radius") && item.object->property("opacity").toReal() == 1 &&
           item.object->property("color").value<QColor>().alpha() == 255;
}

// Qt 4.8 goes on to call a text truncated that has got the room it needs.
bool isCut(const ShownItem &item)
{
    return item.object->property("truncated").toBool() &&
           item.object->property("implicitWidth").toReal() > item.place.width();
}

/** Names of files may be longer than any screen. */
bool mayBeCut(const QString &name)
{
    static const QStringList names = QStringList() << "name"
                                                   << "detail"
                                                   << "touchedPath"
                                                   << "namedName";
    return names.contains(name);
}

/** What is wrong with how the items look, one line each. What lies below a dialog is left out. */
QStringList faults(const QList<ShownItem> &all)
{
    QList<ShownItem> items = all;
    for (int i = all.size() - 1; i >= 0; --i) {
        if (all.at(i).object->objectName() == "scrim") {
            items = all.mid(i + 1);
            break;
        }
    }
    QStringList found;
    for (int i = 0; i < items.size(); ++i) {
        const ShownItem &item = items.at(i);
        const QString text = item.object->property("text").toString();
        if (has(item, "containsMouse") && has(item, "pressed") &&
            (item.place.width() < touchPixels || item.place.height() < touchPixels)) {
            found << QString("%1 is touched on %2 x %3")
                         .arg(item.object->parent()->objectName())
                         .arg(item.place.width())
                         .arg(item.place.height());
        }
        if (!isText(item)) {
            continue;
        }
        if (item.object->property("font").value<QFont>().pixelSize() < leastPixels) {
            found << QString("\"%1\" is too small").arg(text);
        }
        if (isCut(item) && !mayBeCut(item.object->objectName())) {
            found << QString("\"%1\" is cut off").arg(text);
        }
        for (int below = i - 1; below >= 0; --below) {
            if (!isGround(items.at(below)) ||
                !items.at(below).place.contains(item.place.center())) {
                continue;
            }
            const QColor ground = items.at(below).object->property("color").value<QColor>();
            const QColor ink = item.object->property("color").value<QColor>();
            if (contrast(ink, ground) < leastContrast) {
                found << QString("\"%1\": %2 on %3").arg(text, ink.name(), ground.name());
            }
            break;
        }
    }
    return found;
}

bool isButton(const QString &name)
{
    return name.startsWith("button:") || name.startsWith("copy:") || name.startsWith("eject:") ||
           name.startsWith("tab:");
}

qreal gap(const QRectF &one, const QRectF &other)
{
    const qreal across = qMax(one.left(), other.left()) - qMin(one.right(), other.right());
    const qreal down = qMax(one.top(), other.top()) - qMin(one.bottom(), other.bottom());
    return qMax(across, down);
}

/** Waits until nothing about how it looks is wrong any more, since things move to their places. */
QString lastingFaults(const Screens &screens)
{
    QStringList found;
    waitUntil(
        [&] {
            found = faults(screens.items());
            return found.isEmpty();
        },
        2000);
    return found.join("; ");
}

/** What stands before the quotation mark that ends a literal. */
QString literal(const QString &source)
{
    QString text;
    for (int i = 0; source.at(i) != '"'; ++i) {
        if (source.at(i) == '\\')
            ++i;
        text += source.at(i);
    }
    return text;
}

/** The sources of all texts of the screens by context. */
QMap<QString, QSet<QString>> textsOfScreens()
{
    QMap<QString, QSet<QString>> texts;
    QDirIterator files(SCREENS_DIR,
                       QStringList() << "*.qml"
                                     << "*.js",
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        file.open(QIODevice::ReadOnly);
        const QString source = QString::fromUtf8(file.readAll());
        const QString call = "qsTr(\"";
        for (int at = 0; (at = source.indexOf(call, at)) >= 0;) {
            at += call.size();
            texts[QFileInfo(file).baseName()] << literal(source.mid(at));
        }
    }
    return texts;
}

/** The sources that a file of translations has a finished translation of, by context. */
QMap<QString, QSet<QString>> textsTranslated(const QString &language)
{
    QMap<QString, QSet<QString>> texts;
    QFile file(QString(SCREENS_DIR "/translations/filebrowser_%1.ts").arg(language));
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    QString context;
    QString source;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement()) {
            continue;
        }
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation") &&
                   !xml.attributes().hasAttribute("type")) {
            texts[context] << source;
        }
    }
    return texts;
}
} // namespace

/** How the screens look and what they say, in each language and on each display. */
class TestLook : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void everythingCanBeReadAndTouched_data();
    void everythingCanBeReadAndTouched();
    void whatChangesSomethingKeepsItsDistance();
    void pressedColoursCanBeReadToo();
    void aLanguageFromTheRightIsMirrored();
    void numbersAndPluralsFollowTheLocale();
    void everyTextIsTranslated_data();
    void everyTextIsTranslated();
};

void TestLook::initTestCase()
{
    Viewer::chooseFonts();
}

void TestLook::everythingCanBeReadAndTouched_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QSize>("size");
    QTest::newRow("English") << "C" << QSize(800, 480);
    QTest::newRow("German") << "de_DE" << QSize(800, 480);
    QTest::newRow("French") << "fr_FR" << QSize(800, 480);
    QTest::newRow("from the right") << "he_IL" << QSize(800, 480);
    QTest::newRow("a large display") << "de_DE" << QSize(1024, 600);
}

void TestLook::everythingCanBeReadAndTouched()
{
    QFETCH(QString, locale);
    QFETCH(QSize, size);
    const DataFolder logs("logs");
    logs->folder("soil");
    logs->file("soil/flux.csv", "1");
    logs->file("there.csv", "1");
    logs->file("large.bin", qint64(3 * 1024 * 1024));
    const Stick stick("/dev/sda1", "/media/Field Data", 1024);
    const Stick other("/dev/sdb1", "/media/Stick B");
    QVERIFY(QFile::copy(logs->path("there.csv"), stick.path("there.csv")));
    Screens screens(QLocale(locale), size);

    QVERIFY(screens->taps("button:Select all"));
    QVERIFY(screens->taps("mark:soil"));
    QVERIFY(screens->sees("copy:B"));
    QCOMPARE(lastingFaults(screens), QString());

    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("question"));
    QCOMPARE(lastingFaults(screens), QString());
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(screens->sees("outcomeText"));
    QCOMPARE(lastingFaults(screens), QString());
    QVERIFY(screens->taps("outcomeOk"));

    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->sees("question"));
    QCOMPARE(lastingFaults(screens), QString());
    QVERIFY(screens->taps("answer:no"));

    QVERIFY(screens->taps("button:Clear"));
    QVERIFY(screens->taps("copy:B"));
    QVERIFY(screens->sees("noticeText"));
    QCOMPARE(lastingFaults(screens), QString());
    QVERIFY(screens->taps("noticeOk"));

    QVERIFY(screens->taps("button:New folder"));
    QVERIFY(screens->sees("nameInput"));
    QCOMPARE(lastingFaults(screens), QString());
    QVERIFY(screens->taps("nameCancel"));

    QVERIFY(screens->taps("eject:B"));
    QVERIFY(waitUntil([&] { return !other.isMounted(); }));
    QCOMPARE(lastingFaults(screens), QString());
    QVERIFY(screens->misses("eject:B"));
    QCOMPARE(lastingFaults(screens), QString());

    QVERIFY(screens->taps("row:soil"));
    QVERIFY(screens->sees("crumb:soil"));
    QVERIFY(screens->taps("tab:Tree"));
    QVERIFY(screens->sees("touchedPath"));
    QCOMPARE(lastingFaults(screens), QString());
    QVERIFY(screens->taps("button:Search"));
    QVERIFY(screens->sees("nameInput"));
    QCOMPARE(lastingFaults(screens), QString());
}

void TestLook::whatChangesSomethingKeepsItsDistance()
{
    const DataFolder logs("logs");
    const Stick stick("/dev/sda1", "/media/Field Data");
    const Stick other("/dev/sdb1", "/media/Stick B");
    Screens screens;
    QVERIFY(screens->sees("copy:A"));
    QVERIFY(screens->sees("copy:B"));
    QString near;
    QVERIFY2(waitUntil([&] {
                 near = QString();
                 QList<ShownItem> buttons;
                 const QList<ShownItem> items = screens.items();
                 for (const ShownItem &item : items) {
                     const QString name = item.object->objectName();
                     if (isButton(item.object->objectName())) {
                         buttons << item;
                     }
                 }
                 for (const ShownItem &one : buttons) {
                     for (const ShownItem &another : buttons) {
                         const QString name = one.object->objectName();
                         if (one.object != another.object &&
                             (name == "button:Delete" || name.startsWith("eject:")) &&
                             gap(one.place, another.place) < safePixels) {
                             near += name + ' ' + another.object->objectName() + "; ";
                         }
                     }
                 }
                 return buttons.size() > 10 && near.isEmpty();
             }),
             qPrintable(near));
}

// What only a finger makes visible, from the file that has all colours.
void TestLook::pressedColoursCanBeReadToo()
{
    QFile file(SCREENS_DIR "/components/style.js");
    QVERIFY(file.open(QIODevice::ReadOnly));
    QMap<QString, QColor> colors;
    while (!file.atEnd()) { // var name = "#colour";
        const QString line = QString::fromUtf8(file.readLine());
        if (line.startsWith("var ") && line.contains("\"#"))
            colors[line.section(' ', 1, 1)] = QColor(line.section('"', 1, 1));
    }
    colors["white"] = Qt::white;
    const QStringList pairs = QStringList() << "white blue"
                                            << "white darkBlue"
                                            << "white warning"
                                            << "text pressed"
                                            << "faintText pressed"
                                            << "faintText marked"
                                            << "faintText softLine"
                                            << "text pale";
    for (const QString &pair : pairs) {
        const QColor ink = colors.value(pair.section(' ', 0, 0));
        const QColor ground = colors.value(pair.section(' ', 1));
        QVERIFY2(ink.isValid() && ground.isValid(), qPrintable(pair));
        QVERIFY2(contrast(ink, ground) >= leastContrast, qPrintable(pair));
    }
}

void TestLook::aLanguageFromTheRightIsMirrored()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "1");
    Screens screens(QLocale("he_IL"));
    QVERIFY(screens->sees("row:a.csv"));
    QRectF box;
    QRectF size;
    QVERIFY(waitUntil([&] {
        const QList<ShownItem> items = screens.items();
        for (const ShownItem &item : items) {
            if (item.object->objectName() == "mark:a.csv")
                box = item.place;
            if (item.object->objectName() == "size")
                size = item.place;
        }
        return box.right() == 800 && size.left() > 256;
    }));
    QVERIFY(size.right() < box.left());
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->sees("summary", "1 file selected"));
}

void TestLook::numbersAndPluralsFollowTheLocale()
{
    const DataFolder logs("logs");
    logs->file("a.csv", qint64(900));
    logs->file("b.csv", qint64(1536 * 1024));
    const Stick stick("/dev/sda1", "/media/Field Data", 2560);
    {
        Screens screens(QLocale("de_DE"));
        QVERIFY(screens->sees("stickState", "2,5 MB frei"));
        QVERIFY(screens->taps("mark:a.csv"));
        QVERIFY(screens->sees("summary", QString::fromUtf8("1 Datei ausgewählt, 900 Byte")));
        QVERIFY(screens->taps("mark:b.csv"));
        QVERIFY(screens->sees("summary", QString::fromUtf8("2 Dateien ausgewählt, 1,5 MB")));
    }
    Screens screens(QLocale("fr_FR"));
    QVERIFY(screens->sees("stickState", "2,5 Mo libres"));
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->sees("summary", "1 fichier choisi, 900 octets"));
    QVERIFY(screens->taps("mark:b.csv"));
    QVERIFY(screens->sees("summary", "2 fichiers choisis, 1,5 Mo"));
}

void TestLook::everyTextIsTranslated_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("German") << "de";
    QTest::newRow("French") << "fr";
}

void TestLook::everyTextIsTranslated()
{
    QFETCH(QString, language);
    const QMap<QString, QSet<QString>> texts = textsOfScreens();
    const QMap<QString, QSet<QString>> translated = textsTranslated(language);
    QVERIFY(texts.contains("Browser") && texts.contains("words"));
    for (const QString &context : texts.keys()) {
        const QSet<QString> missing = QSet<QString>(texts[context]).subtract(translated[context]);
        const QString first = missing.isEmpty() ? QString() : *missing.constBegin();
        QCOMPARE(context + ": " + first, context + ": ");
    }
}

QTEST_MAIN(TestLook)
#include "tst_look.moc"
