#include "Version.h"

#include "BCFModel.h"
#include "Tree/Owners.h"
#include "Xml/Elements.h"
#include "Xml/Printer.h"
#include "Xml/Reader.h"

#include <QDomDocument>
#include <memory>

namespace BCFLib {

Version::Version(QObject *parent)
    : QObject(parent)
{
}

void Version::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

bool Version::isValid() const
{
    return _versionId == BCFModel::currentBCFVersion() || BCFModel::isBCF_2_0(_versionId);
}

Version *Version::BCF1Version()
{
    Version *version = new Version;
    version->setVersionId(QStringLiteral("1.0"));
    version->setDetailedVersion(QStringLiteral("1.0"));
    return version;
}

Version *Version::Deserialize(QIODevice *device)
{
    QDomDocument document;
    if (device == nullptr || !Xml::readDocument(device, &document)) {
        return nullptr;
    }
    std::unique_ptr<Version> version(new Version(nullptr));
    version->readVersion(document);
    return version.release();
}

bool Version::serialize(QIODevice *device)
{
    QDomDocument document;
    writeVersion(document);
    Xml::Printer(device).finish(document);
    return true;
}

void Version::readVersion(QDomDocument &document)
{
    const QDomElement version = document.firstChildElement(QStringLiteral("Version"));
    _versionId = Xml::attribute(version, QStringLiteral("VersionId"));
    _detailedVersion = Xml::childText(version, QStringLiteral("DetailedVersion"));
}

void Version::writeVersion(QDomDocument &document)
{
    QDomElement version = Xml::appendElement(document, document, QStringLiteral("Version"));
    Xml::setAttribute(version, QStringLiteral("VersionId"), _versionId);
    Xml::appendText(document, version, QStringLiteral("DetailedVersion"), _detailedVersion);
}

} // namespace BCFLib
