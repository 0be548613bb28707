#include "TestArchive.h"

#include <QCoreApplication>
#include <QTest>
#include <QTranslator>

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void aCatalogueSpeaksItsLanguage_data();
    void aCatalogueSpeaksItsLanguage();
};

void TestTranslations::aCatalogueSpeaksItsLanguage_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("title");

    QTest::newRow("de") << QStringLiteral("Die Datei „a.bcf“ enthält keine Themen")
                        << QStringLiteral("Warnung");
    QTest::newRow("fr") << QStringLiteral("Le fichier «\u00a0a.bcf\u00a0» ne contient aucun sujet")
                        << QStringLiteral("Avertissement");
}

void TestTranslations::aCatalogueSpeaksItsLanguage()
{
    QFETCH(QString, message);
    QFETCH(QString, title);
    const QString language = QString::fromLatin1(QTest::currentDataTag());
    const QSharedPointer<BCFLib::BCFModel> model = BCFLib::BCFModel::Create(nullptr);
    QString shownMessage;
    QString shownTitle;

    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral("bcflib_") + language, QStringLiteral(TRANSLATIONS_DIR)));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QVERIFY(model->isValid(QStringLiteral("a.bcf"), shownMessage, shownTitle));
    QCOMPARE(shownMessage, message);
    QCOMPARE(shownTitle, title);

    QCoreApplication::removeTranslator(&translator);
    model->isValid(QStringLiteral("a.bcf"), shownMessage, shownTitle);
    QCOMPARE(shownTitle, QStringLiteral("Warning"));
}

QTEST_GUILESS_MAIN(TestTranslations)

#include "TestTranslations.moc"
