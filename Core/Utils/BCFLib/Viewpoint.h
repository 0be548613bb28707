#pragma once

#include "BCFLibExport.h"
#include "OrthogonalCamera.h"
#include "PerspectiveCamera.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>
#include <log4cplus/logger.h>

class QDomDocument;
class QDomElement;
class QIODevice;

namespace BCF_2_0_Lib {
class Viewpoint;
}

namespace BCFLib {

namespace Xml {
class Printer;
}

class Bitmap;
class ClippingPlane;
class Components;
class Line;
class Topic;

/// One saved view of a topic, with its references to model elements in the sets form.
///
/// Made by Topic::addViewpoint() or by a load and owned by its topic. It owns its lines, clipping
/// planes and bitmaps, which a host removes by deleting them, and exactly one Components object.
/// The snapshot image lives in the topic, under the viewpoint's guid; the viewpoint holds only the
/// names of its two files, relative to the topic's folder in the archive.
class BCFLIB_EXPORT Viewpoint : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _guid READ guid WRITE setGuid)
    Q_PROPERTY(QString _viewpointFilename READ viewpointFilename WRITE setViewpointFilename)
    Q_PROPERTY(QString _snapshotFilename READ snapshotFilename WRITE setSnapshotFilename)
    Q_PROPERTY(int _whichCameraIsSet READ whichCameraIsSet)

public:
    /// A viewpoint without cameras and file names; @p topic becomes its owner.
    Viewpoint(const QString &guid, Topic *topic);
    ~Viewpoint() override;

    /// The references to model elements as a map.
    virtual QMap<QString, QVariant> componentsToQVariant() const;
    /// Replaces the references to model elements by those of @p map.
    virtual void componentsFromQVariant(const QMap<QString, QVariant> &map);

    /// The identifier, which is the object name. An image stored under an earlier guid stays there.
    QString guid() const { return objectName(); }
    void setGuid(const QString &guid);

    /// Name of the viewpoint file; a viewpoint without one is not saved as a file.
    QString viewpointFilename() const { return _viewpointFilename; }
    void setViewpointFilename(const QString &viewpointFilename) { _viewpointFilename = viewpointFilename; }

    /// Name of the image file; an image without a name is not saved.
    QString snapshotFilename() const { return _snapshotFilename; }
    void setSnapshotFilename(const QString &snapshotFilename) { _snapshotFilename = snapshotFilename; }

    /// Bit mask of the cameras that count: 1 is the perspective, 2 the orthogonal camera.
    int whichCameraIsSet() const { return _whichCameraIsSet; }

    /// A copy of the camera, whether it counts or not.
    OrthogonalCamera orthogonalCamera() const { return _orthogonalCamera; }
    /// Stores the camera. It counts unless its scale is 0.
    void setOrthogonalCamera(const OrthogonalCamera &camera);

    /// A copy of the camera, whether it counts or not.
    PerspectiveCamera perspectiveCamera() const { return _perspectiveCamera; }
    /// Stores the camera, which counts from then on.
    void setPerspectiveCamera(const PerspectiveCamera &camera);

    /// The annotation lines in order of creation.
    QList<Line *> lines() const;
    /// Adds a line with both ends at the origin.
    Line *addLine();

    /// The planes that cut the model open, in order of creation.
    QList<ClippingPlane *> clippingPlanes() const;
    /// Adds a plane whose two vectors are zero.
    ClippingPlane *addClippingPlane();

    /// The images that stand in the model space, in order of creation.
    QList<Bitmap *> bitmaps() const;
    /// Adds a bitmap of format PNG without a name; its vectors and its height are zero.
    Bitmap *addBitmap();

    /// The references to model elements in the sets form; owned by the viewpoint.
    ///
    /// A BCF_2_0_Lib::Viewpoint has these sets too, but neither reads nor saves them: its references are a
    /// list of its own, so ask for the class with qobject_cast first.
    Components *components() const;

    /// Gives a copy of the image to the topic. Without effect if @p data or the guid is empty or
    /// the viewpoint has no topic.
    void setSnapshot(const QByteArray &data);

    /// Adds what a viewpoint file holds, skipping whatever is incomplete.
    ///
    /// @p device may still be closed. A file that is not well-formed changes nothing.
    void deserialize(QIODevice *device);
    /// Writes the viewpoint file to an open device; always true. Closes the device where the file would be
    /// too large to be read back.
    bool serialize(QIODevice *device);

    /// Whether guid, orthogonal camera and image are as a usable viewpoint needs them.
    bool isValid() const;

    /// The viewpoint as nested maps and lists, with its image.
    QVariant toQVariant() const;
    /// Adds to the viewpoint what @p variant holds.
    void fromQVariant(const QVariant &variant);

protected:
    /// Hands the event on to the owners that keep an index of guids.
    void childEvent(QChildEvent *event) override;

    /// Sets the scale of the orthogonal camera to 0 and the opening of the perspective one to -1.
    void setDefaultCameraParameters();

private:
    friend class Topic;
    friend class Components;
    friend class BCF_2_0_Lib::Viewpoint;

    /// Bits of _whichCameraIsSet.
    static constexpr int perspectiveBit = 1;
    static constexpr int orthogonalBit = 2;

    virtual void readComponents(QDomElement &root);
    virtual void writeComponents(QDomDocument &document, QDomElement &root);

    bool checkOrthogonalCameraIsValid() const;
    bool checkPerspectiveCameraIsValid() const;

    bool checkSnapshot();
    void createFilename();
    int getPositionInTopic();
    Topic *parentTopic() const;

    bool readCameras(QDomElement &root);
    void readAndCheckValidPerspectiveCamera(const QDomElement &element);
    void readAndCheckValidOrthogonalCamera(const QDomElement &element);
    void readLines(QDomElement &root);
    void readAndCheckValidLine(const QDomElement &element);
    void readClippingPlanes(QDomElement &root);
    void readAndCheckValidClippingPlane(const QDomElement &element);
    void readBitmaps(QDomElement &root);
    void readAndCheckValidBitmap(const QDomElement &element);

    /// Has what is finished of a file printed, if one is being written and only the library looks at it.
    void printFinished(const QDomDocument &document) const;
    void writeCameras(QDomDocument &document, QDomElement &root);
    void writeLines(QDomDocument &document, QDomElement &root);
    void writeClippingPlanes(QDomDocument &document, QDomElement &root);
    void writeBitmaps(QDomDocument &document, QDomElement &root);

    void snapshotFromQVariant(const QMap<QString, QVariant> &map);
    void geometryFromQVariant(const QMap<QString, QVariant> &map);

    QString _viewpointFilename;
    QString _snapshotFilename;
    OrthogonalCamera _orthogonalCamera;
    PerspectiveCamera _perspectiveCamera;
    int _whichCameraIsSet = 0;
    /// Only while a file is written.
    Xml::Printer *_printer = nullptr;

protected:
    /// The logger "Tavrin.Core.Utils.BCF_2_1.Viewpoint"; appenders and levels are the host's.
    log4cplus::Logger _logger;
};

} // namespace BCFLib
