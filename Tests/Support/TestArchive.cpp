#include "TestArchive.h"

#include <QDebug>
#include <QJsonDocument>
#include <QProcess>
#include <osg/Vec3d>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipnewinfo.h>
#include <sys/wait.h>
#include <unistd.h>

TestArchive::TestArchive(const QString &version)
{
    if (!version.isNull()) {
        add(QStringLiteral("bcf.version"), "<Version VersionId=\"" + version.toUtf8() + "\"/>");
    }
}

TestArchive &TestArchive::add(const QString &name, const QByteArray &content)
{
    _entries.append({name, content});
    return *this;
}

TestArchive &TestArchive::addTopic(const QByteArray &topic, const QByteArray &rest)
{
    return add(QStringLiteral("t/markup.bcf"),
               "<Markup><Topic Guid=\"t\">" + topic + "</Topic>" + rest + "</Markup>");
}

TestArchive &TestArchive::addViewpoint(const QByteArray &file)
{
    addTopic(QByteArray(), "<Viewpoints Guid='v'><Viewpoint>v.bcfv</Viewpoint></Viewpoints>");
    return add("t/v.bcfv", file);
}

QString TestArchive::path(const QString &name) const
{
    return _folder.filePath(name);
}

QString TestArchive::write() const
{
    QuaZip zip(path());
    bool isWritten = zip.open(QuaZip::mdCreate);
    for (const auto &entry : _entries) {
        QuaZipFile file(&zip);
        isWritten = isWritten && file.open(QIODevice::WriteOnly, QuaZipNewInfo(entry.first))
            && file.write(entry.second) == entry.second.size();
    }
    zip.close();
    Q_ASSERT(isWritten);
    return path();
}

QSharedPointer<BCFLib::BCFModel> TestArchive::load() const
{
    return load(write());
}

QSharedPointer<BCFLib::BCFModel> TestArchive::load(const QString &path)
{
    return BCFLib::BCFModel::Deserialize(path, Tavrin::ProgressionSignals(nullptr));
}

QStringList TestArchive::entryNames(const QString &path)
{
    QuaZip zip(path);
    return zip.open(QuaZip::mdUnzip) ? zip.getFileNameList() : QStringList();
}

QByteArray TestArchive::entry(const QString &path, const QString &name)
{
    QuaZip zip(path);
    if (!zip.open(QuaZip::mdUnzip) || !zip.setCurrentFile(name)) {
        return QByteArray();
    }
    QuaZipFile file(&zip);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray TestArchive::file(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString TestArchive::complaints(const QString &path)
{
    QString all;
    for (const QStringList &call :
         {QStringList{"unzip", "-t", path},
          QStringList{"python3", QStringLiteral(TESTS_FOLDER "/check_saved.py"), path}}) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(call.first(), call.mid(1));
        const bool hasRun = process.waitForStarted() && process.waitForFinished();
        if (hasRun && (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)) {
            all += call.first() + ": " + process.readAll();
        }
    }
    return all;
}

QByteArray TestArchive::png()
{
    return QByteArray::fromBase64(
        "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJg"
        "gg==");
}

namespace {

QString textOf(const QVariant &value)
{
    if (value.userType() == qMetaTypeId<osg::Vec3d>()) {
        const osg::Vec3d point = value.value<osg::Vec3d>();
        const auto number = [](double value) { return QString::number(value, 'g', 15); };
        return QStringList{number(point.x()), number(point.y()), number(point.z())}.join(' ');
    }
    if (value.canConvert<QObject *>()) {
        const QObject *object = value.value<QObject *>();
        return object != nullptr ? object->objectName() : QString();
    }
    if (value.userType() >= QMetaType::User) {
        return QString::number(value.toInt());
    }
    return value.userType() == QMetaType::QStringList ? value.toStringList().join(',') : value.toString();
}

} // namespace

QString tell(const QObject *object, const QString &properties)
{
    QStringList texts;
    for (const QString &name : properties.split(' ')) {
        texts.append(textOf(object->property(name.toLatin1())));
    }
    return texts.join('|');
}

QStringList tellAll(const QObject *root, const char *className, const QString &properties)
{
    QStringList lines;
    for (const QObject *object : QList<const QObject *>{root} + root->findChildren<const QObject *>()) {
        if (object->inherits(className)) {
            lines.append(tell(object, properties));
        }
    }
    return lines;
}

void readViewpoint(BCFLib::Viewpoint *viewpoint, const QByteArray &inside)
{
    QBuffer device;
    device.setData("<VisualizationInfo>" + inside + "</VisualizationInfo>");
    viewpoint->deserialize(&device);
}

void addRows(const QString &file)
{
    QTest::addColumn<QVariantMap>("row");
    const QJsonDocument table =
        QJsonDocument::fromJson(TestArchive::file(QStringLiteral(TESTS_FOLDER "/") + file));
    for (const QVariant &row : table.toVariant().toList()) {
        QTest::newRow(row.toMap()["name"].toByteArray()) << row.toMap();
    }
}

namespace {

/// A property or what a variant form holds, dates as instants of whole seconds and links as guids.
QString valueOf(const QVariant &value)
{
    if (value.userType() == QMetaType::QDateTime) {
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

} // namespace

QStringList dump(const QObject *object, const QString &indent)
{
    QStringList lines{indent + object->metaObject()->className()};
    for (int i = 0; i < object->metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = object->metaObject()->property(i);
        if (qstrcmp(property.name(), "_errorString") != 0) {
            lines.append(indent + property.name() + " = " + valueOf(property.read(object)));
        }
    }
    if (const BCFLib::Components *sets = qobject_cast<const BCFLib::Components *>(object)) {
        return lines << indent + valueOf(sets->toQVariant()) + valueOf(sets->getDefaultVisibility());
    }
    if (const BCFLib::Viewpoint *viewpoint = qobject_cast<const BCFLib::Viewpoint *>(object)) {
        // The cameras are no properties, and the image lives in the topic.
        lines.append(indent + valueOf(viewpoint->toQVariant()));
    }
    if (const BCF_2_0_Lib::Component *component = qobject_cast<const BCF_2_0_Lib::Component *>(object)) {
        lines.append(indent + valueOf(component->visible()) + valueOf(component->selected()));
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

int outcomeOf(const std::function<int()> &work)
{
    const pid_t child = fork();
    if (child == 0) {
        int result = 3;
        try {
            result = work();
        } catch (...) {
        }
        _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128;
}
