#include "TestArchive.h"

#include <BCF_2_0_Viewpoint.h>
#include <Comment.h>
#include <Components.h>
#include <File.h>
#include <Topic.h>
#include <Version.h>

#include <QDir>
#include <QFileInfo>
#include <QMetaProperty>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

#include <algorithm>

using namespace BCFLib;

namespace {

/// A property or what a variant form holds, dates as instants of whole seconds and links as guids.
QString textOf(const QVariant &value)
{
    if (value.type() == QVariant::DateTime) {
        return value.toDateTime().toUTC().toString(Qt::ISODate);
    }
    if (QMetaType(value.userType()).flags() & QMetaType::PointerToQObject) {
        const QObject *object = value.value<QObject *>();
        return object != nullptr ? object->objectName() : QString();
    }
    QString text;
    QDebug(&text) << value;
    return text;
}

/// All that an object and what hangs below it hold, a line for each thing.
QStringList dump(const QObject *object, const QString &indent = QString())
{
    QStringList lines{indent + object->metaObject()->className()};
    for (int i = 0; i < object->metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = object->metaObject()->property(i);
        if (qstrcmp(property.name(), "_errorString") != 0) {
            lines.append(indent + property.name() + " = " + textOf(property.read(object)));
        }
    }
    if (const Components *sets = qobject_cast<const Components *>(object)) {
        return lines << indent + textOf(sets->toQVariant()) + textOf(sets->getDefaultVisibility());
    }
    if (const Viewpoint *viewpoint = qobject_cast<const Viewpoint *>(object)) {
        // The cameras are no properties, and the image lives in the topic.
        lines.append(indent + textOf(viewpoint->toQVariant()));
    }
    if (const BCF_2_0_Lib::Component *component = qobject_cast<const BCF_2_0_Lib::Component *>(object)) {
        lines.append(indent + textOf(component->visible()) + textOf(component->selected()));
    }
    QStringList below;
    QObjectList children = object->children();
    // The list form comes out sorted, and a save writes one kind of children after the other.
    std::stable_sort(children.begin(), children.end(), [](const QObject *a, const QObject *b) {
        const int order = qstrcmp(a->metaObject()->className(), b->metaObject()->className());
        const bool isList = qobject_cast<const BCF_2_0_Lib::Component *>(a) != nullptr;
        return order < 0 || (order == 0 && isList && a->objectName() < b->objectName());
    });
    for (const QObject *child : qAsConst(children)) {
        lines += dump(child, indent + ' ');
    }
    return lines;
}

/// What of the form of a topic has to outlast rebuilding it; what has not is a matter of other tests.
QVariantList lasting(QVariantMap topic, bool isListForm)
{
    const auto takeList = [&topic](const char *key) { return topic.take(key).toList(); };
    QVariantList all;
    for (const QVariant &form : takeList("viewpoints")) {
        QVariantMap viewpoint = form.toMap();
        const QVariantMap references = viewpoint.take("components").toMap();
        all << references.value("selection") << references.value(isListForm ? "coloring" : "visibility");
        if (!viewpoint.contains("snapshot")) {
            viewpoint.remove("viewpoint_file");
            viewpoint.remove("snapshot_file");
        }
        all << viewpoint;
    }
    for (const QVariant &form : takeList("comments") + takeList("document_references")) {
        QVariantMap map = form.toMap();
        map.remove("reply_to_comment_guid");
        all << (map.contains("author") ? map : QVariantMap{{"document", map.value("referenced_document")}});
    }
    return all << topic;
}

/// What a program has to say that fails; empty if it has no complaint.
QString complaint(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.waitForFinished();
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
        ? QString()
        : program + ": " + process.readAll();
}

} // namespace

class TestRoundTrip : public QObject
{
    Q_OBJECT

private slots:
    void archives_data();
    void archives();
    void forms_data() { archives_data(); }
    void forms();

private:
    QSharedPointer<BCFModel> load(const QString &path) const;

    QTemporaryDir _folder;
};

void TestRoundTrip::archives_data()
{
    QTest::addColumn<QString>("path");

    const QString corpus = qEnvironmentVariable("BCF_CORPUS_DIR");
    QFileInfoList archives = QDir(QFINDTESTDATA("../Examples/Samples")).entryInfoList({"*.bcf"});
    if (corpus.isEmpty()) {
        qWarning("BCF_CORPUS_DIR is not set: only the sample archives are tried");
    } else {
        archives += QDir(corpus).entryInfoList({"*.bcf", "*.bcfzip"});
    }
    for (const QFileInfo &archive : qAsConst(archives)) {
        QTest::newRow(qPrintable(archive.completeBaseName())) << archive.filePath();
    }
}

QSharedPointer<BCFModel> TestRoundTrip::load(const QString &path) const
{
    const QSharedPointer<BCFModel> model = TestArchive::load(path);
    if (!QFileInfo(path).fileName().startsWith("3.0")) {
        return model;
    }
    // Read into one family of classes and saved as 2.0, it is read into the other from then on.
    model->serialize(_folder.filePath("2.0.bcf"));
    return TestArchive::load(_folder.filePath("2.0.bcf"));
}

void TestRoundTrip::archives()
{
    QFETCH(QString, path);

    const QString saved = _folder.filePath("saved.bcf");
    const QString again = _folder.filePath("again.bcf");
    const QSharedPointer<BCFModel> model = load(path);
    QVERIFY(!model->topics().isEmpty());
    for (File *file : model->findChildren<File *>()) {
        // The load stopped at a file that could not be unpacked.
        file->setIsExternal(file->isExternal() || !QFile::exists(file->filename()));
    }
    for (const Topic *topic : model->topics()) {
        // The load names the first image of a topic, which may take the name of another.
        QStringList names;
        for (Viewpoint *viewpoint : topic->viewpoints()) {
            const QString name = viewpoint->snapshotFilename();
            viewpoint->setSnapshotFilename(!names.contains(name) || name.isEmpty() ? name : "other-" + name);
            names.append(name);
        }
    }
    QVERIFY(model->serialize(saved));
    const QSharedPointer<BCFModel> loaded = TestArchive::load(saved);
    QCOMPARE(dump(loaded.data()).join('\n'), dump(model.data()).join('\n'));

    QVERIFY(loaded->serialize(again));
    const QStringList names = TestArchive::entryNames(saved);
    QCOMPARE(TestArchive::entryNames(again), names);
    for (const QString &name : names) {
        QVERIFY2(TestArchive::entry(again, name) == TestArchive::entry(saved, name), qPrintable(name));
    }

    if (QStandardPaths::findExecutable("python3").isEmpty()
        || QStandardPaths::findExecutable("unzip").isEmpty()) {
        QSKIP("python3 or unzip is not there to read the archive with other eyes");
    }
    QCOMPARE(complaint("unzip", {"-t", saved}), QString());
    QCOMPARE(complaint("python3", {QFINDTESTDATA("check_saved.py"), saved}), QString());
}

void TestRoundTrip::forms()
{
    QFETCH(QString, path);

    const QSharedPointer<BCFModel> model = load(path);
    for (const Topic *topic : model->topics()) {
        const QSharedPointer<BCFModel> other = BCFModel::Create(model->version()->versionId(), nullptr);
        const QVariantMap before = topic->toQVariant().toMap();
        const Topic *rebuilt = new Topic(before, other.data());
        const QVariantMap after = rebuilt->toQVariant().toMap();
        const bool isListForm = BCFModel::isBCF_2_0(model.data());
        QCOMPARE(textOf(lasting(after, isListForm)), textOf(lasting(before, isListForm)));
        QVERIFY2(after == Topic(after, other.data()).toQVariant().toMap(), "a second time changes more");
    }
}

QTEST_GUILESS_MAIN(TestRoundTrip)

#include "TestRoundTrip.moc"
