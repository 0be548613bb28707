#pragma once

// All classes that hosts use, and what most tests take from Qt.
#include <BCFLoadingWorker.h>
#include <BCFModel.h>
#include <BCF_2_0_Comment.h>
#include <BCF_2_0_Component.h>
#include <BCF_2_0_Viewpoint.h>
#include <BimSnippet.h>
#include <Bitmap.h>
#include <ClippingPlane.h>
#include <Comment.h>
#include <Component.h>
#include <Components.h>
#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <DocumentReference.h>
#include <File.h>
#include <Line.h>
#include <OrthogonalCamera.h>
#include <PerspectiveCamera.h>
#include <Project.h>
#include <RelatedTopic.h>
#include <Topic.h>
#include <Vec3dMetaType.h>
#include <Version.h>
#include <ViewSetupHints.h>
#include <Viewpoint.h>

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QMetaProperty>
#include <QPair>
#include <QPointer>
#include <QRegularExpression>
#include <QSharedPointer>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QVariantMap>
#include <QVector>
#include <functional>

/// An archive that a test puts together from short strings, in a folder that goes with it.
class TestArchive
{
public:
    /// With a version file of that version; a null text leaves the file out.
    explicit TestArchive(const QString &version = QStringLiteral("2.1"));

    /// Adds an entry behind the others; names may be repeated and odd.
    TestArchive &add(const QString &name, const QByteArray &content);
    /// Adds the markup of the folder "t": @p topic is the inside of its Topic element, which has the
    /// guid "t", and @p rest is what stands beside it.
    TestArchive &addTopic(const QByteArray &topic, const QByteArray &rest = QByteArray());
    /// Adds the topic "t" with a viewpoint "v" and its file.
    TestArchive &addViewpoint(const QByteArray &file);

    /// A path in the archive's folder.
    QString path(const QString &name = QStringLiteral("test.bcf")) const;
    /// Writes the archive and gives its path.
    QString write() const;
    /// Writes and loads the archive.
    QSharedPointer<BCFLib::BCFModel> load() const;

    /// Loads any archive.
    static QSharedPointer<BCFLib::BCFModel> load(const QString &path);
    /// The names of the entries of an archive, in the order of its directory.
    static QStringList entryNames(const QString &path);
    /// The bytes of an entry; null if there is none.
    static QByteArray entry(const QString &path, const QString &name);
    /// The bytes of a file; null if there is none.
    static QByteArray file(const QString &path);
    /// What other programs that read archives find wrong with one; empty if nothing, or they are not there.
    static QString complaints(const QString &path);
    /// The smallest PNG image.
    static QByteArray png();

private:
    QTemporaryDir _folder;
    QVector<QPair<QString, QByteArray>> _entries;
};

/// The values of some properties, named with blanks between, parted by "|": points as three numbers,
/// enumerations as numbers, other objects by their guid.
QString tell(const QObject *object, const QString &properties);
/// The same for every object of a class at or below @p root, in the order of the tree.
QStringList tellAll(const QObject *root, const char *className, const QString &properties);
/// All that an object and what hangs below it hold, a line for each thing.
QStringList dump(const QObject *object, const QString &indent = QString());

/// Lets a viewpoint read a file that holds this.
void readViewpoint(BCFLib::Viewpoint *viewpoint, const QByteArray &inside);
/// Adds a column "row" and the rows of a table in a file, which bear what stands there as "name".
void addRows(const QString &file);

/// What some work gives in a process of its own; 128 if that crashes, 3 if the work throws.
int outcomeOf(const std::function<int()> &work);
