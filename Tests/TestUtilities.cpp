#include <Core/Utils/QtCoreTools/Boolean.h>
#include <Core/Utils/Utility/NewId.h>
#include <Core/Utils/Utility/Vec3dVariant.h>

#include <QSet>
#include <QTest>
#include <QUuid>
#include <limits>

using Tavrin::BooleanFalse;
using Tavrin::BooleanTrue;
using Tavrin::BooleanUnset;

class TestUtilities : public QObject
{
    Q_OBJECT

private slots:
    void truthOfVariants_data();
    void truthOfVariants();
    void vectorsOfMaps();
    void identifiersAreDistinctFolderNames();
};

void TestUtilities::truthOfVariants_data()
{
    QTest::addColumn<QVariant>("variant");
    QTest::addColumn<Tavrin::Boolean>("truth");

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QVariant nullBool(QVariant::Bool);
#else
    const QVariant nullBool(QMetaType::fromType<bool>());
#endif
    QTest::newRow("true is true") << QVariant(true) << BooleanTrue;
    QTest::newRow("false is false") << QVariant(false) << BooleanFalse;
    QTest::newRow("1 is the text of true") << QVariant("1") << BooleanTrue;
    QTest::newRow("0 is the text of false") << QVariant("0") << BooleanFalse;
    QTest::newRow("case and blanks don't matter") << QVariant("\n TRUE ") << BooleanTrue;
    QTest::newRow("nor for false") << QVariant(" False\t") << BooleanFalse;
    QTest::newRow("another text says nothing") << QVariant("yes") << BooleanUnset;
    QTest::newRow("a longer number is another text") << QVariant("10") << BooleanUnset;
    QTest::newRow("an empty text says nothing") << QVariant("") << BooleanUnset;
    QTest::newRow("no variant says nothing") << QVariant() << BooleanUnset;
    QTest::newRow("a null bool says nothing") << nullBool << BooleanUnset;
    QTest::newRow("a number below 1 is true") << QVariant(0.25) << BooleanTrue;
    QTest::newRow("a zero is false") << QVariant(qlonglong(0)) << BooleanFalse;
    QTest::newRow("a list says nothing") << QVariant(QVariantList{true}) << BooleanUnset;
    QTest::newRow("a Boolean stays, though its number is 0")
        << QVariant::fromValue(BooleanTrue) << BooleanTrue;
}

void TestUtilities::truthOfVariants()
{
    QFETCH(QVariant, variant);
    QFETCH(Tavrin::Boolean, truth);

    QCOMPARE(Tavrin::fromVariant(variant), truth);
    QCOMPARE(Tavrin::toBool(truth), truth == BooleanTrue);
    if (variant.userType() == QMetaType::QString) {
        QCOMPARE(Tavrin::toBoolean(variant.toString()), truth);
        QCOMPARE(Tavrin::toBool(variant.toString()), truth == BooleanTrue);
    }
}

void TestUtilities::vectorsOfMaps()
{
    const auto fromMap = [](const QVariant &y) { return Tavrin::Vec3dFromQVariant({{"x", 1.0}, {"y", y}}); };
    QVERIFY(Tavrin::Vec3dFromQVariant({{"x", 1.0}}) == osg::Vec3d(1.0, 0.0, 0.0));
    QVERIFY(fromMap("2m") == osg::Vec3d(1.0, 0.0, 0.0));
    QVERIFY(fromMap("2.5") == osg::Vec3d(1.0, 2.5, 0.0));
    const osg::Vec3d vector(0.1, -std::numeric_limits<double>::max(), 5e-324);
    QVERIFY(Tavrin::Vec3dFromQVariant(Tavrin::Vec3dToQVariant(vector)) == vector);
    QCOMPARE(Tavrin::Vec3dToQVariant(vector).keys(), QStringList({"x", "y", "z"}));
}

void TestUtilities::identifiersAreDistinctFolderNames()
{
    QSet<QString> seen;
    for (int i = 0; i < 10000; ++i) {
        const QString id = Tavrin::NewId();
        QVERIFY2(!QUuid(id).isNull() && !id.contains('/') && !id.contains('{'), qPrintable(id));
        seen.insert(id);
    }
    QCOMPARE(seen.size(), 10000);
}

QTEST_APPLESS_MAIN(TestUtilities)

#include "TestUtilities.moc"
