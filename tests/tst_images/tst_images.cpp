#include <QDir>
#include <QFile>
#include <QImage>
#include <QResource>
#include <QStringList>
#include <QtEndian>
#include <QtTest>

namespace {
const char signature[] = "\x89PNG\r\n\x1a\n";

// The fields of a PNG file's first chunk, which follows 8 bytes of signature and 8 of its own head.
const int widthAt = 16;
const int heightAt = 20;
const int depthAt = 24;
const int kindAt = 25;
const int interlaceAt = 28;
const int endOfHeader = 29;

enum PngKind { Palette = 3, Rgba = 6 };

int number(const QByteArray &png, int offset)
{
    return int(qFromBigEndian<quint32>(reinterpret_cast<const uchar *>(png.constData()) + offset));
}
} // namespace

/** The pictures that the library carries: style sheets find them by these paths. */
class TestImages : public QObject
{
    Q_OBJECT

private slots:
    void theBundleHoldsTenImages();
    void eachIsAPngOfItsSizeAndKind_data();
    void eachIsAPngOfItsSizeAndKind();
    void eachIsStoredUncompressed_data();
    void eachIsStoredUncompressed();
    void eachIsDrawnByQt_data();
    void eachIsDrawnByQt();
};

void TestImages::theBundleHoldsTenImages()
{
    const QStringList expected = QStringList() << "blue-folder.png"
                                               << "branch-closed.png"
                                               << "branch-end.png"
                                               << "branch-more.png"
                                               << "branch-open.png"
                                               << "checkbox_empty.png"
                                               << "checkbox_full.png"
                                               << "vline.png"
                                               << "white-triangle-down.png"
                                               << "white-triangle-up.png";
    QCOMPARE(QDir(":/images").entryList(QDir::NoFilter, QDir::Name), expected);
}

void TestImages::eachIsAPngOfItsSizeAndKind_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("bits");

    QTest::newRow("folder") << "blue-folder" << 24 << 24 << int(Rgba) << 8;
    QTest::newRow("unchecked") << "checkbox_empty" << 32 << 32 << int(Rgba) << 8;
    QTest::newRow("checked") << "checkbox_full" << 32 << 32 << int(Rgba) << 8;
    QTest::newRow("closed branch") << "branch-closed" << 8 << 12 << int(Rgba) << 8;
    QTest::newRow("open branch") << "branch-open" << 12 << 8 << int(Rgba) << 8;
    QTest::newRow("line") << "vline" << 81 << 58 << int(Palette) << 2;
    QTest::newRow("up arrow") << "white-triangle-up" << 18 << 12 << int(Rgba) << 8;
    QTest::newRow("down arrow") << "white-triangle-down" << 18 << 12 << int(Rgba) << 8;
    QTest::newRow("branch with more") << "branch-more" << 24 << 17 << int(Palette) << 4;
    QTest::newRow("last branch") << "branch-end" << 81 << 58 << int(Palette) << 4;
}

void TestImages::eachIsAPngOfItsSizeAndKind()
{
    QFETCH(QString, name);
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, kind);
    QFETCH(int, bits);

    QFile file(":/images/" + name + ".png");
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray png = file.readAll();
    QVERIFY(png.size() > endOfHeader);
    QVERIFY(png.startsWith(signature));
    QCOMPARE(number(png, widthAt), width);
    QCOMPARE(number(png, heightAt), height);
    QCOMPARE(int(png.at(kindAt)), kind);
    QCOMPARE(int(png.at(depthAt)), bits);
    QCOMPARE(int(png.at(interlaceAt)), 0);
}

void TestImages::eachIsStoredUncompressed_data()
{
    eachIsAPngOfItsSizeAndKind_data();
}

void TestImages::eachIsStoredUncompressed()
{
    QFETCH(QString, name);
    const QResource resource(":/images/" + name + ".png");
    QVERIFY(resource.isValid());
    const QByteArray stored(reinterpret_cast<const char *>(resource.data()), int(resource.size()));
    QVERIFY(stored.startsWith(signature));
}

void TestImages::eachIsDrawnByQt_data()
{
    eachIsAPngOfItsSizeAndKind_data();
}

// Something is painted, and something is left open for the row below it.
void TestImages::eachIsDrawnByQt()
{
    QFETCH(QString, name);
    QFETCH(int, width);
    QFETCH(int, height);

    const QImage image = QImage(":/images/" + name + ".png").convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(image.size(), QSize(width, height));
    int opaque = 0;
    int open = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            opaque += qAlpha(image.pixel(x, y)) == 255;
            open += qAlpha(image.pixel(x, y)) == 0;
        }
    }
    QVERIFY(opaque > 0);
    QVERIFY(open > 0);
}

QTEST_MAIN(TestImages)
#include "tst_images.moc"
