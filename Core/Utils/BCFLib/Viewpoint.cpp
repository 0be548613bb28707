#include "Viewpoint.h"

#include "Bitmap.h"
#include "ClippingPlane.h"
#include "Components.h"
#include "Line.h"
#include "Topic.h"
#include "Tree/Owners.h"
#include "Tree/Search.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <log4cplus/log4cplus.h>

namespace BCFLib {

Viewpoint::Viewpoint(const QString &guid, Topic *topic)
    : QObject(topic)
    , _logger(log4cplus::Logger::getInstance(LOG4CPLUS_TEXT("Tavrin.Core.Utils.BCF_2_1.Viewpoint")))
{
    setObjectName(guid);
    setDefaultCameraParameters();
    new Components(this);
    Owners::hasBeenMade(this);
}

Viewpoint::~Viewpoint()
{
    Owners::aboutToGo(this);
}

void Viewpoint::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

void Viewpoint::setGuid(const QString &guid)
{
    Owners::aboutToRename(this, guid);
    setObjectName(guid);
}

void Viewpoint::setOrthogonalCamera(const OrthogonalCamera &camera)
{
    _orthogonalCamera = camera;
    if (checkOrthogonalCameraIsValid()) {
        _whichCameraIsSet |= orthogonalBit;
    } else {
        _whichCameraIsSet &= ~orthogonalBit;
    }
}

void Viewpoint::setPerspectiveCamera(const PerspectiveCamera &camera)
{
    _perspectiveCamera = camera;
    if (checkPerspectiveCameraIsValid()) {
        _whichCameraIsSet |= perspectiveBit;
    }
}

bool Viewpoint::checkOrthogonalCameraIsValid() const
{
    return _orthogonalCamera.viewToWorldScale != 0.0;
}

bool Viewpoint::checkPerspectiveCameraIsValid() const
{
    return true;
}

void Viewpoint::setDefaultCameraParameters()
{
    _orthogonalCamera.viewToWorldScale = 0.0;
    _perspectiveCamera.fieldOfView = -1.0;
}

QList<Line *> Viewpoint::lines() const
{
    return Search::all<Line>(this);
}

Line *Viewpoint::addLine()
{
    return new Line(this);
}

QList<ClippingPlane *> Viewpoint::clippingPlanes() const
{
    return Search::all<ClippingPlane>(this);
}

ClippingPlane *Viewpoint::addClippingPlane()
{
    return new ClippingPlane(this);
}

QList<Bitmap *> Viewpoint::bitmaps() const
{
    return Search::all<Bitmap>(this);
}

Bitmap *Viewpoint::addBitmap()
{
    return new Bitmap(this);
}

Components *Viewpoint::components() const
{
    Components *sets = Search::first<Components>(this);
    // A host that has deleted it, or moved it elsewhere, finds a new one.
    return sets != nullptr ? sets : new Components(const_cast<Viewpoint *>(this));
}

void Viewpoint::setSnapshot(const QByteArray &data)
{
    Topic *topic = parentTopic();
    if (data.isEmpty() || topic == nullptr || guid().isEmpty()) {
        return;
    }
    QByteArray copy = data;
    topic->addSnapshot(guid(), &copy);
}

bool Viewpoint::checkSnapshot()
{
    const QDir folder(QFileInfo(_viewpointFilename).absolutePath());
    if (_snapshotFilename.isEmpty()) {
        return true;
    }
    return folder.exists(_snapshotFilename) && QFile(_snapshotFilename).open(QIODevice::ReadOnly);
}

void Viewpoint::createFilename()
{
    const int position = getPositionInTopic();
    if (position < 0) {
        return;
    }
    const QString number = position == 0 ? QString() : QString::number(position);
    _viewpointFilename = QStringLiteral("viewpoint") + number + QStringLiteral(".bcfv");
    _snapshotFilename = QStringLiteral("snapshot") + number + QStringLiteral(".png");
}

int Viewpoint::getPositionInTopic()
{
    const Topic *topic = parentTopic();
    return topic == nullptr ? 0 : topic->positionOf(this);
}

Topic *Viewpoint::parentTopic() const
{
    return qobject_cast<Topic *>(parent());
}

bool Viewpoint::isValid() const
{
    if (guid().isEmpty()) {
        return false;
    }
    const bool hasOrthogonalCamera = (_whichCameraIsSet & orthogonalBit) != 0;
    if (!_viewpointFilename.isEmpty() && hasOrthogonalCamera && !checkOrthogonalCameraIsValid()) {
        return false;
    }
    if (_snapshotFilename.isEmpty()) {
        return true;
    }
    const Topic *topic = parentTopic();
    return topic != nullptr && topic->snapshot(guid()) != nullptr;
}

} // namespace BCFLib
