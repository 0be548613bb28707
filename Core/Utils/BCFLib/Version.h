#pragma once

#include "BCFLibExport.h"

#include <QObject>
#include <QString>

class QDomDocument;
class QIODevice;

namespace BCFLib {

/// The version record of an archive, the file "bcf.version" at its root.
///
/// Made by BCFModel::createVersion() or by a load, and owned by the model.
class BCFLIB_EXPORT Version : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _versionId READ versionId WRITE setVersionId)
    Q_PROPERTY(QString _detailedVersion READ detailedVersion WRITE setDetailedVersion)

public:
    /// The version text, such as "2.1"; compared as text everywhere, never as a number.
    QString versionId() const { return _versionId; }
    void setVersionId(const QString &versionId) { _versionId = versionId; }

    /// Free text beside the version; nothing tests it.
    QString detailedVersion() const { return _detailedVersion; }
    void setDetailedVersion(const QString &detailedVersion) { _detailedVersion = detailedVersion; }

    /// Whether the version is one that a model can be of: exactly "2.1" or exactly "2.0".
    bool isValid() const;

protected:
    /// A record whose two texts are empty.
    explicit Version(QObject *parent = nullptr);

    /// The record of an archive that has no version file. The caller owns it.
    static Version *BCF1Version();
    /// Reads a version file; null if it is not well-formed. The caller owns the result.
    static Version *Deserialize(QIODevice *device);
    /// Fills the record from a parsed file; what is missing there becomes empty.
    void readVersion(QDomDocument &document);
    /// Writes the version file to an open device; always true. Closes the device where the file would be too
    /// large to be read back.
    bool serialize(QIODevice *device);
    /// Builds the elements of the file in an empty document; both texts are written, also empty ones.
    void writeVersion(QDomDocument &document);

private:
    friend class BCFModel;

    void childEvent(QChildEvent *event) override;

    QString _versionId;
    QString _detailedVersion;
};

} // namespace BCFLib
